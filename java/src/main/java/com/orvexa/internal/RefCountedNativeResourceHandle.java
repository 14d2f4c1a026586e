package com.orvexa.internal;

import com.orvexa.orvex.Orvex;

/**
 * Handle of a reference-counted toolkit object: takes one reference when it
 * is created and drops it when released, so the native object lives at least
 * as long as its wrapper (the toolkit deletes it when the count reaches 0).
 */
public class RefCountedNativeResourceHandle extends NativeResourceHandle {
  static {
    Orvex.init();
  }

  public RefCountedNativeResourceHandle(long address) {
    super(address);
    if (address == 0L) throw new IllegalArgumentException("null native object");
    refImpl(address);
  }

  /** The native object's current reference count (including this handle's). */
  public int getRefCount() {
    long a = getAddress();
    if (a == 0L) throw new IllegalStateException("the native object has been released");
    return getRefCount(a);
  }

  @Override
  protected void releaseNative(long address) {
    unrefImpl(address);
  }

  private static native void refImpl(long address);

  private static native void unrefImpl(long address);

  private static native int getRefCount(long address);
}
