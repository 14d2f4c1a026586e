  // ---- the 3D image from Java arrays (hand-written natives) ----
  // The field keeps a copy of what it is given and gives copies.

  /**
   * The image: its width, height and depth go into {@code size}, its number of components into
   * {@code numComponents[0]}, and its 8-bit pixels come back as a new array, slice by slice.
   */
  public byte[] getValue(com.orvexa.orvex.SbVec3s size, int[] numComponents) {
    if (size == null) throw com.orvexa.internal.NativeCalls.nullArgument("size");
    if (numComponents == null) throw com.orvexa.internal.NativeCalls.nullArgument("numComponents");
    if (numComponents.length < 1) throw com.orvexa.internal.NativeCalls.tooShort("numComponents", 1, 0);
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      return getValueImpl(self, size.array, numComponents);
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  /**
   * Sets the image to {@code size} pixels of {@code numComponents} 8-bit components (0 to 4), slice by slice,
   * copied from the start of {@code pixels}.
   *
   * @throws IllegalArgumentException for a negative size, a component count outside 0..4, or too few pixels
   */
  public void setValue(com.orvexa.orvex.SbVec3s size, int numComponents, byte[] pixels) {
    if (size == null) throw com.orvexa.internal.NativeCalls.nullArgument("size");
    if (pixels == null) throw com.orvexa.internal.NativeCalls.nullArgument("pixels");
    short[] s = size.array;
    if (s[2] < 0) throw new IllegalArgumentException("image depth " + s[2] + " is negative");
    long bytes = SoSFImage.imageBytes(s[0], s[1], numComponents, 1) * s[2];
    if (pixels.length < bytes) throw com.orvexa.internal.NativeCalls.tooShort("pixels", bytes, pixels.length);
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      setValueImpl(self, s, numComponents, pixels);
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  static native byte[] getValueImpl(long nativeObject, short[] size, int[] numComponents);
  static native void setValueImpl(long nativeObject, short[] size, int numComponents, byte[] pixels);
