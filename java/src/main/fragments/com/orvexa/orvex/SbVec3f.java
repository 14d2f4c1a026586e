  /** The zero vector. */
  public SbVec3f() {
    this(new float[3], (Void) null);
  }

  /** A vector with the three elements of {@code v}. */
  public SbVec3f(float[] v) {
    this();
    setValue(v);
  }

  public SbVec3f(float x, float y, float z) {
    this();
    setValue(x, y, z);
  }

  /** Copies the three elements of {@code v}. */
  public SbVec3f setValue(float[] v) {
    if (v == null) throw com.orvexa.internal.NativeCalls.nullArgument("v");
    if (v.length != 3) throw com.orvexa.internal.NativeCalls.wrongLength("v", 3, v.length);
    System.arraycopy(v, 0, array, 0, 3);
    return this;
  }

  public SbVec3f setValue(float x, float y, float z) {
    array[0] = x;
    array[1] = y;
    array[2] = z;
    return this;
  }

  /** A copy of the three components. */
  public float[] getValue() {
    return array.clone();
  }

  public float getX() {
    return array[0];
  }

  public float getY() {
    return array[1];
  }

  public float getZ() {
    return array[2];
  }
