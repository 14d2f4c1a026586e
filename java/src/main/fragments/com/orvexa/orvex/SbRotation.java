  /** Sets the quaternion (x, y, z, w) from the first four elements of {@code q}; the value is normalised. */
  public SbRotation setValue(float[] q) {
    return setValue(q[0], q[1], q[2], q[3]);
  }

  /** A copy of the quaternion (x, y, z, w). */
  public float[] getValue() {
    return array.clone();
  }
