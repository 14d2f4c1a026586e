  /** Sets the quaternion (x, y, z, w) from the four elements of {@code q}; the value is normalised. */
  public SbRotation setValue(float[] q) {
    if (q == null) throw com.orvexa.internal.NativeCalls.nullArgument("q");
    if (q.length != 4) throw com.orvexa.internal.NativeCalls.wrongLength("q", 4, q.length);
    return setValue(q[0], q[1], q[2], q[3]);
  }

  /** A copy of the quaternion (x, y, z, w). */
  public float[] getValue() {
    return array.clone();
  }
