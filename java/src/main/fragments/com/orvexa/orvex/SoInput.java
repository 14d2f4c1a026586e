import java.lang.ref.Cleaner;

  /**
   * Address of the native copy of the last buffer given to setBuffer, or 0.
   * The native side allocates and frees it; this field only remembers it.
   */
  private long nativBuff;

  /** The block to free once this input is unreachable (mirrors nativBuff; the cleaner cannot read this object). */
  private final long[] bufferToFree = new long[1];

  private static final Cleaner BUFFERS = Cleaner.create();

  {
    long[] block = bufferToFree;
    BUFFERS.register(this, () -> freeBufferImpl(block[0]));
  }

  /** Reads from the UTF-8 text of {@code text}. */
  public void setBuffer(String text) {
    if (text == null) throw com.orvexa.internal.NativeCalls.nullArgument("text");
    setBuffer(text, modifiedUtf8Length(text));
  }

  /**
   * Reads the first {@code size} bytes of the UTF-8 form of {@code text} (the
   * form Java hands to native code, in which U+0000 takes two bytes).
   */
  public void setBuffer(String text, int size) {
    if (text == null) throw com.orvexa.internal.NativeCalls.nullArgument("text");
    int length = modifiedUtf8Length(text);
    if (size < 0 || size > length) {
      throw new IndexOutOfBoundsException("size " + size + " outside the text's " + length + " bytes");
    }
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      setBufferImpl2(self, text, size);
      bufferToFree[0] = nativBuff;
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  /** Reads the first {@code size} bytes of {@code data} (copied: the array may change afterwards). */
  public void setBuffer(byte[] data, int size) {
    if (data == null) throw com.orvexa.internal.NativeCalls.nullArgument("data");
    if (size < 0 || size > data.length) {
      throw new IndexOutOfBoundsException("size " + size + " outside the array's " + data.length + " bytes");
    }
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      setBufferImpl(self, data, size);
      bufferToFree[0] = nativBuff;
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  /** Reads all of {@code data}. */
  public void setBuffer(byte[] data) {
    if (data == null) throw com.orvexa.internal.NativeCalls.nullArgument("data");
    setBuffer(data, data.length);
  }

  private static int modifiedUtf8Length(String text) {
    int n = 0;
    for (int i = 0; i < text.length(); i++) {
      char c = text.charAt(i);
      n += c != 0 && c < 0x80 ? 1 : c < 0x800 ? 2 : 3;
    }
    return n;
  }

  private native void setBufferImpl(long handle, byte[] data, int size);

  private native void setBufferImpl2(long handle, String text, int size);

  private static native void freeBufferImpl(long block);

  /** The parameters set last, kept reachable while this input may read them. */
  private SoInputParameters inputParameters;

  /**
   * Reads with the limits of {@code parameters} (null: this input's own).
   * This input keeps the parameters alive while it uses them.
   */
  public void setInputParameters(SoInputParameters parameters) {
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      final long parametersHandle = com.orvexa.internal.NativeCalls.beginOrNull(parameters);
      try {
        setInputParametersImpl(self, parametersHandle);
        inputParameters = parameters;
      } finally {
        com.orvexa.internal.NativeCalls.end(parameters);
      }
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  private static native void setInputParametersImpl(long handle, long parameters);
