package com.orvexa.orvex.devices;

/** A buffer in main memory, of its own (its size set with {@link #setSize}). */
public class SoCpuBufferObject extends SoBufferObject {
  /** An empty buffer. */
  public SoCpuBufferObject() {
    super(ctorImpl());
  }

  /** A buffer holding a copy of {@code bytes}. */
  public SoCpuBufferObject(byte[] bytes) {
    this();
    if (bytes == null) throw com.orvexa.internal.NativeCalls.nullArgument("bytes");
    if (!setSize(bytes.length)) throw new OutOfMemoryError("no memory for a buffer of " + bytes.length + " bytes");
    write(0, bytes);
  }

  static native long ctorImpl();
}
