package com.orvexa.internal;

/**
 * The record of the callbacks that a Java-owned toolkit object (an action)
 * holds, kept natively: each registration takes a hold of its callback,
 * each removal gives it back, and whatever is left is given back once the
 * owner's native object has been freed (nothing can call them any more).
 */
public final class NativeCallbackHoldings {
  static {
    com.orvexa.orvex.Orvex.init();
  }

  private final long address;

  private NativeCallbackHoldings(long address) {
    this.address = address;
  }

  /**
   * New holdings that live as long as {@code owner}'s native object, which
   * Java owns: they let go of the callbacks once it has been freed, which
   * may be later than the wrapper goes (a renderer may still hold its render
   * action), never earlier.
   */
  public static NativeCallbackHoldings createFor(com.orvexa.orvex.Orvex owner) {
    long address = createImpl();
    owner.getNativeResourceHandle().whenFreed(() -> deleteImpl(address));
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
