package com.orvexa.internal;

import com.orvexa.orvex.Orvex;

/**
 * Ownership of traversal-state elements that Java holds: an element that
 * Java created (a copy made for it, an element of a Java-extended class) is
 * Java's to destroy, which its handle does through the element's virtual
 * destructor. Elements that the toolkit's state hands out are borrowed.
 */
public final class ElementManager {
  static {
    Orvex.init();
  }

  private ElementManager() {}

  /** A handle that destroys the element at {@code address} when its wrapper is released. */
  public static NativeResourceHandle ownedElement(long address) {
    return new OwnedElement(address);
  }

  private static final class OwnedElement extends NativeResourceHandle {
    OwnedElement(long address) {
      super(address);
    }

    @Override
    protected void releaseNative(long address) {
      deleteNativeHandleImpl(address);
    }
  }

  /** Destroys the element at {@code address}; 0 is ignored. */
  static native void deleteNativeHandleImpl(long address);
}
