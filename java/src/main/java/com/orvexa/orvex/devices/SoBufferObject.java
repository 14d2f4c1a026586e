package com.orvexa.orvex.devices;

import com.orvexa.internal.NativeCalls;
import com.orvexa.internal.NativeResourceHandle;
import com.orvexa.orvex.Orvex;

/**
 * A block of memory that the toolkit's data (images) can live in: the base of
 * the buffer kinds ({@link SoCpuBufferObject} for main memory). Reference
 * counted: this wrapper holds one reference, and a field using the buffer
 * holds its own, so the buffer lives while either needs it.
 *
 * <p>Java reaches the content by copies ({@link #write}, {@link #read}); a
 * field that uses the buffer's memory sees writes at once, without being told
 * (call the field's {@code touch()} after them). While a field uses the
 * memory, the buffer keeps its size: {@link #setSize} answers false.
 */
public abstract class SoBufferObject extends Orvex {
  protected SoBufferObject(long address) {
    super(new Handle(address));
  }

  /** Size in bytes. */
  public long getSize() {
    final long self = NativeCalls.begin(this, "this");
    try {
      return getSizeImpl(self);
    } finally {
      NativeCalls.end(this);
    }
  }

  /**
   * Changes the size in bytes, keeping the content up to the smaller size
   * (new bytes are zero). False, with a toolkit error posted, while the memory
   * is in use (mapped) or when it cannot be had.
   *
   * @throws IllegalArgumentException for a negative size
   */
  public boolean setSize(long size) {
    if (size < 0) throw new IllegalArgumentException("size " + size + " is negative");
    final long self = NativeCalls.begin(this, "this");
    try {
      return setSizeImpl(self, size);
    } finally {
      NativeCalls.end(this);
    }
  }

  /**
   * Copies {@code bytes} into the buffer from byte {@code offset} on.
   *
   * @throws IndexOutOfBoundsException when the bytes do not fit between {@code offset} and the end
   */
  public void write(long offset, byte[] bytes) {
    if (bytes == null) throw NativeCalls.nullArgument("bytes");
    final long self = NativeCalls.begin(this, "this");
    try {
      checkRange(offset, bytes.length, getSizeImpl(self));
      copyImpl(self, offset, bytes, true);
    } finally {
      NativeCalls.end(this);
    }
  }

  /**
   * Copies bytes of the buffer from byte {@code offset} on into all of {@code bytes}.
   *
   * @throws IndexOutOfBoundsException when the buffer has fewer bytes after {@code offset}
   */
  public void read(long offset, byte[] bytes) {
    if (bytes == null) throw NativeCalls.nullArgument("bytes");
    final long self = NativeCalls.begin(this, "this");
    try {
      checkRange(offset, bytes.length, getSizeImpl(self));
      copyImpl(self, offset, bytes, false);
    } finally {
      NativeCalls.end(this);
    }
  }

  private static void checkRange(long offset, int length, long size) {
    if (offset < 0 || offset > size || length > size - offset)
      throw new IndexOutOfBoundsException(length + " bytes at " + offset + " outside a buffer of " + size);
  }

  /** The wrapper's reference to the buffer, given back when it is released. */
  private static final class Handle extends NativeResourceHandle {
    Handle(long address) {
      super(address);
      if (address == 0L) throw new IllegalArgumentException("null native object");
      refImpl(address);
    }

    @Override
    protected void releaseNative(long address) {
      unrefImpl(address);
    }
  }

  static native void refImpl(long nativeObject);
  static native void unrefImpl(long nativeObject);
  static native long getSizeImpl(long nativeObject);
  static native boolean setSizeImpl(long nativeObject, long size);
  static native void copyImpl(long nativeObject, long offset, byte[] bytes, boolean intoBuffer);
}
