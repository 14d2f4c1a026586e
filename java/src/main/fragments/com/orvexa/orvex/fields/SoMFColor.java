  // ---- values in bulk: float[] arrays and FloatBuffers, 3 numbers per value (see MultiValues) ----
  private static final MultiValues<float[], java.nio.FloatBuffer> BULK = new MultiValues<>(3, float[].class,
      java.nio.FloatBuffer.class, SoMFColor::setValuesImpl, SoMFColor::getValuesFlatImpl, SoMFColor::startEditingImpl,
      SoMFColor::getDirectValuesImpl, SoMFColor::setValuesBufferImpl);

  /**
   * Sets {@code num} values from index {@code start} on (3 numbers each), growing the field as needed.
   *
   * @throws IndexOutOfBoundsException when {@code start} is negative
   * @throws IllegalArgumentException when {@code num} is negative or {@code newValues} is too short
   */
  public void setValues(int start, int num, float[] newValues) {
    BULK.set(this, start, num, newValues, "newValues");
  }

  /**
   * Sets the values from index {@code start} on to those of {@code flat}, 3 numbers per colour (red, green, blue).
   *
   * @throws IllegalArgumentException when the length of {@code flat} is not a multiple of 3
   */
  public void setValues(int start, float[] flat) {
    BULK.setFlat(this, start, flat, "flat");
  }

  /** Sets the values from index {@code start} on to copies of {@code values}. */
  public void setValues(int start, com.orvexa.orvex.SbColor[] values) {
    BULK.setValues(this, start, values, v -> v.array, "values");
  }

  /** The numbers of the values from index {@code start} to the end, 3 numbers per value; empty for {@code getNum()}. */
  public float[] getValuesFlat(int start) {
    return BULK.getFlat(this, start);
  }

  /**
   * The field's values as a FloatBuffer to change in place; {@link #finishEditing()} then tells of the
   * changes. The buffer is memory Java owns that the field uses as its storage: it shows the field's
   * values until the field needs more room (or gets other memory); ask again after such a change.
   */
  public java.nio.FloatBuffer startEditing() {
    return BULK.startEditing(this);
  }

  /** The values from index {@code start} on as a FloatBuffer over the field's storage, as {@link #startEditing()}. */
  public java.nio.FloatBuffer getDirectValues(int start) {
    return BULK.getDirectValues(this, start);
  }

  /**
   * Makes the field hold {@code num} values stored in place in {@code buffer}, from its position on: writes
   * into the buffer show in the field and the field's changes land in the buffer, until the field needs
   * more room. The buffer must be direct, in the platform's byte order, a FloatBuffer or a ByteBuffer;
   * it stays reachable while the field uses it. A read-only buffer is copied before the first change.
   *
   * @throws IllegalArgumentException for another buffer, or one too small for {@code num} values
   */
  public void setValuesBuffer(int num, java.nio.Buffer buffer) {
    BULK.setValuesBuffer(this, num, buffer);
  }

  /** As {@link #setValuesBuffer(int, java.nio.Buffer)} with as many values as the buffer has room for. */
  public void setValuesBuffer(java.nio.Buffer buffer) {
    BULK.setValuesBuffer(this, buffer);
  }

  static native void setValuesImpl(long nativeObject, int start, int num, float[] values);
  static native float[] getValuesFlatImpl(long nativeObject, int start);
  static native java.nio.Buffer startEditingImpl(long nativeObject);
  static native java.nio.Buffer getDirectValuesImpl(long nativeObject);
  static native void setValuesBufferImpl(long nativeObject, int num, java.nio.Buffer buffer, boolean readOnly);
