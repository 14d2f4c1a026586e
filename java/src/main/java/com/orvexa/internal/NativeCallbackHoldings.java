package com.orvexa.internal;

import java.lang.ref.Cleaner;

/**
 * The record of the callbacks that a Java-owned toolkit object (an action)
 * holds, kept natively: each registration takes a hold of its callback,
 * each removal gives it back, and whatever is left is given back when the
 * owning wrapper becomes unreachable (by then the wrapper can run no call
 * of the toolkit object, which is freed with it).
 */
public final class NativeCallbackHoldings {
  private static final Cleaner CLEANER = Cleaner.create();

  static {
    com.orvexa.orvex.Orvex.init();
  }

  private final long address;

  private NativeCallbackHoldings(long address) {
    this.address = address;
  }

  /** New holdings that live as long as {@code owner}. */
  public static NativeCallbackHoldings createFor(Object owner) {
    long address = createImpl();
    CLEANER.register(owner, () -> deleteImpl(address));
    return new NativeCallbackHoldings(address);
  }

  /** The native holdings, for the registration entry points of the owner's class. */
  public long address() {
    return address;
  }

  private static native long createImpl();

  private static native void deleteImpl(long address);
}
