package com.orvexa.orvex;

/**
 * The native entry points of a few value-type methods called directly,
 * without the public methods' argument checks: the benchmark's measure of
 * what those checks cost.
 */
public final class UncheckedCalls {
  private UncheckedCalls() {}

  public static void add(SbVec3f a, SbVec3f b) {
    SbVec3f.addImpl(a.array, b.array);
  }

  public static void multVecMatrix(SbMatrix m, SbVec3f src, SbVec3f dst) {
    SbMatrix.multVecMatrixImpl(m.array, src.array, dst.array);
  }

  public static void multVec(SbRotation r, SbVec3f src, SbVec3f dst) {
    SbRotation.multVecImpl(r.array, src.array, dst.array);
  }
}
