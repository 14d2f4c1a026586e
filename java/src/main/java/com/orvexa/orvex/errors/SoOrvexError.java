package com.orvexa.orvex.errors;

/** A failure of the binding itself (not a toolkit error report). */
public class SoOrvexError extends RuntimeException {
  private static final long serialVersionUID = 1L;

  public SoOrvexError(String message) {
    super(message);
  }
}
