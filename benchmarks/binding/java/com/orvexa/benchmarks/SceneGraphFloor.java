package com.orvexa.benchmarks;

/** Native baselines of the scene-graph benchmark. */
final class SceneGraphFloor {
  static {
    com.orvexa.orvex.Orvex.init();
    System.loadLibrary("orvexbench");
  }

  private SceneGraphFloor() {}

  /** Copies the array into a native buffer with one region copy. */
  static native void regionIn(float[] a);

  /** A new array holding the native buffer, made with one region copy. */
  static native float[] regionOut();

  /** Builds that many cubes with their width set under a separator in C++, then frees them. */
  static native int buildCubes(int count);
}
