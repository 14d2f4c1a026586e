package com.orvexa.benchmarks;

/** Native baselines: the cost of crossing into native code with value arrays. */
final class JniFloor {
  static {
    System.loadLibrary("orvexbench");
  }

  private JniFloor() {}

  /** Does nothing with its arguments. */
  static native void empty(float[] a, float[] b);

  /** Borrows and releases both arrays (copy back included), nothing else. */
  static native void pinTwo(float[] a, float[] b);

  /** Borrows and releases three arrays. */
  static native void pinThree(float[] a, float[] b, float[] c);
}
