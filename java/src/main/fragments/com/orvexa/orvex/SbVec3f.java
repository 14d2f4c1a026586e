  /** The zero vector. */
  public SbVec3f() {
    this(new float[3], (Void) null);
  }

  /** A vector with the first three elements of {@code v}. */
  public SbVec3f(float[] v) {
    this();
    setValue(v);
  }

  public SbVec3f(float x, float y, float z) {
    this();
    setValue(x, y, z);
  }

  /** Copies the first three elements of {@code v}. */
  public SbVec3f setValue(float[] v) {
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
