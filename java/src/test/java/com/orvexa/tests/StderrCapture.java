package com.orvexa.tests;

import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;

/** Collects what is printed on System.err (where JNI's ExceptionDescribe writes) while open. */
final class StderrCapture implements AutoCloseable {
  private final PrintStream original = System.err;
  private final ByteArrayOutputStream bytes = new ByteArrayOutputStream();

  StderrCapture() {
    System.setErr(new PrintStream(bytes, true, StandardCharsets.UTF_8));
  }

  String text() {
    System.err.flush();
    return bytes.toString(StandardCharsets.UTF_8);
  }

  @Override
  public void close() {
    System.setErr(original);
  }
}
