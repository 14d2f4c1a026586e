package com.orvexa.benchmarks;

/** Native baselines of the callback benchmark. */
final class CallbackFloor {
  static {
    com.orvexa.orvex.Orvex.init();
    System.loadLibrary("orvexbench");
  }

  private CallbackFloor() {}

  /** The triangles of the scene at {@code root}, counted by a C++ triangle callback. */
  static native long countTrianglesInCpp(long root);

  /** Calls {@code target.hit(null)} that many times through a cached method identifier. */
  static native void callCached(Object target, int count);

  /** Calls the function of the SoCallback node at {@code node} that many times. */
  static native void callNodeFunction(long node, int count);
}
