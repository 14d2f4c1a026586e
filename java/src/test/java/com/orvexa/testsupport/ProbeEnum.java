package com.orvexa.testsupport;

/** An enumeration with the value accessor of the binding's enumerations. */
public enum ProbeEnum {
  LOW(3),
  HIGH(7);

  private final int value;

  ProbeEnum(int value) {
    this.value = value;
  }

  public int getValue() {
    return value;
  }
}
