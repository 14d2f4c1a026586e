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

  /**
   * New holdings that are never released, for a wrapper that does not own
   * its toolkit object (the toolkit may go on calling the callbacks after
   * the wrapper has gone): the callbacks stay held for the life of the
   * process unless they are removed.
   */
  public static NativeCallbackHoldings createUnowned() {
    return new NativeCallbackHoldings(createImpl());
  }

  /** The native holdings, for the registration entry points of the owner's class. */
  public long address() {
    return address;
  }

  private static native long createImpl();

  private static native void deleteImpl(long address);
}
