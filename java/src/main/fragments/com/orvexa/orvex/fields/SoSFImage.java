  // ---- the image from Java arrays and direct buffers (hand-written natives) ----
  // The field keeps a copy of what it is given and gives copies.

  /**
   * The image: its width and height go into {@code size}, its number of components into
   * {@code numComponents[0]}, and its pixels come back as a new array: rows from the bottom,
   * {@link #getValueSize()} bytes of components of {@link #getDataType()} in the platform's byte order.
   */
  public byte[] getValue(com.orvexa.orvex.SbVec2i32 size, int[] numComponents) {
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

  /** The pixels as {@link #getValue(com.orvexa.orvex.SbVec2i32, int[])} gives them. */
  public byte[] getPixels() {
    return getValue(new com.orvexa.orvex.SbVec2i32(), new int[1]);
  }

  /**
   * Copies the pixels into {@code destination} from its position on and moves the position past them.
   *
   * @throws IllegalArgumentException when the buffer is not direct or has no room for {@link #getValueSize()} bytes
   */
  public void getPixels(java.nio.ByteBuffer destination) {
    if (destination == null) throw com.orvexa.internal.NativeCalls.nullArgument("destination");
    if (!destination.isDirect()) throw new IllegalArgumentException("destination must be a direct buffer");
    if (destination.isReadOnly()) throw new IllegalArgumentException("destination is read-only");
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      long bytes = getValueSize();
      if (destination.remaining() < bytes)
        throw new IllegalArgumentException("destination has room for " + destination.remaining() + " bytes, the image has " + bytes);
      getValueBufferImpl(self, destination.slice(), destination.remaining());
      destination.position(destination.position() + (int) bytes);
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  /**
   * Sets the image to {@code size} pixels of {@code numComponents} 8-bit components (0 to 4), rows from the
   * bottom, copied from the start of {@code pixels}.
   *
   * @throws IllegalArgumentException for a negative size, a component count outside 0..4, or too few pixels
   */
  public void setValue(com.orvexa.orvex.SbVec2s size, int numComponents, byte[] pixels) {
    if (size == null) throw com.orvexa.internal.NativeCalls.nullArgument("size");
    if (pixels == null) throw com.orvexa.internal.NativeCalls.nullArgument("pixels");
    long bytes = imageBytes(size.array[0], size.array[1], numComponents, 1);
    if (pixels.length < bytes) throw com.orvexa.internal.NativeCalls.tooShort("pixels", bytes, pixels.length);
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      setValueImpl2(self, size.array, numComponents, pixels);
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  /**
   * Sets the image to {@code size} pixels of {@code numComponents} components (0 to 4) of {@code dataType},
   * copied from {@code pixels} (a direct buffer in the platform's byte order) from its position on.
   *
   * @throws IllegalArgumentException for a negative size, a component count outside 0..4, a buffer that is
   *     not direct or not in the platform's byte order, or one with too few bytes
   */
  public void setValue(com.orvexa.orvex.SbVec2i32 size, int numComponents, DataTypes dataType, java.nio.Buffer pixels) {
    if (size == null) throw com.orvexa.internal.NativeCalls.nullArgument("size");
    if (dataType == null) throw com.orvexa.internal.NativeCalls.nullArgument("dataType");
    if (pixels == null) throw com.orvexa.internal.NativeCalls.nullArgument("pixels");
    if (!pixels.isDirect()) throw new IllegalArgumentException("pixels must be a direct buffer");
    if (MultiValues.orderOf(pixels) != java.nio.ByteOrder.nativeOrder())
      throw new IllegalArgumentException("pixels must be in the platform's byte order (ByteOrder.nativeOrder())");
    long bytes = imageBytes(size.array[0], size.array[1], numComponents, componentBytes(dataType));
    long room = (long) pixels.remaining() * MultiValues.elementBytes(pixels);
    if (room < bytes) throw new IllegalArgumentException("pixels holds " + room + " bytes, the image needs " + bytes);
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      setValueBufferImpl(self, size.array, numComponents, dataType.getValue(), pixels.slice());
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  /**
   * Sets the image to {@code size} pixels of {@code numComponents} 8-bit components held by {@code buffer}
   * (from its start; more bytes are ignored). With {@link CopyPolicies#COPY} the field copies them; with any
   * other policy it uses the buffer's memory in place, holding a reference to the buffer, until it gets another
   * value or its pixels are edited. Writes into such a buffer show in the field without notification: call
   * {@code touch()} after them.
   *
   * @throws IllegalArgumentException for a data type other than {@code UNSIGNED_BYTE}, a negative size, a
   *     component count outside 0..4, or a buffer with too few bytes
   */
  public void setValue(com.orvexa.orvex.SbVec2s size, int numComponents, DataTypes dataType,
      com.orvexa.orvex.devices.SoBufferObject buffer, CopyPolicies copyPolicy) {
    if (size == null) throw com.orvexa.internal.NativeCalls.nullArgument("size");
    if (dataType == null) throw com.orvexa.internal.NativeCalls.nullArgument("dataType");
    if (buffer == null) throw com.orvexa.internal.NativeCalls.nullArgument("buffer");
    if (copyPolicy == null) throw com.orvexa.internal.NativeCalls.nullArgument("copyPolicy");
    if (dataType != DataTypes.UNSIGNED_BYTE)
      throw new IllegalArgumentException("pixels in a buffer object are UNSIGNED_BYTE components, not " + dataType);
    long bytes = imageBytes(size.array[0], size.array[1], numComponents, 1);
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      final long bufferHandle = com.orvexa.internal.NativeCalls.begin(buffer, "buffer");
      try {
        if (buffer.getSize() < bytes)
          throw new IllegalArgumentException("buffer holds " + buffer.getSize() + " bytes, the image needs " + bytes);
        setValueImpl(self, size.array, numComponents, dataType.getValue(), bufferHandle, copyPolicy.getValue());
      } finally {
        com.orvexa.internal.NativeCalls.end(buffer);
      }
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  /** Bytes of an image, after checking its dimensions. */
  static long imageBytes(int width, int height, int numComponents, int componentBytes) {
    if (width < 0 || height < 0) throw new IllegalArgumentException("image size " + width + " x " + height + " is negative");
    if (numComponents < 0 || numComponents > 4)
      throw new IllegalArgumentException("numComponents " + numComponents + " outside 0..4");
    return (long) width * height * numComponents * componentBytes;
  }

  private static int componentBytes(DataTypes dataType) {
    switch (dataType) {
      case UNSIGNED_BYTE:
      case SIGNED_BYTE:
        return 1;
      case UNSIGNED_SHORT:
      case SIGNED_SHORT:
        return 2;
      default:
        return 4;
    }
  }

  static native byte[] getValueImpl(long nativeObject, int[] size, int[] numComponents);
  static native void getValueBufferImpl(long nativeObject, java.nio.Buffer destination, long room);
  static native void setValueImpl(long nativeObject, short[] size, int numComponents, int dataType, long bufferObject, int copyPolicy);
  static native void setValueImpl2(long nativeObject, short[] size, int numComponents, byte[] pixels);
  static native void setValueBufferImpl(long nativeObject, int[] size, int numComponents, int dataType, java.nio.Buffer pixels);
