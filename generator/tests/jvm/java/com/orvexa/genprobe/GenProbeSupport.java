package com.orvexa.genprobe;

/** Loads the fixture library and makes the objects the generator tests need. */
public final class GenProbeSupport {
  static {
    com.orvexa.orvex.Orvex.init();
    System.loadLibrary("orvexgen_probe");
  }

  private GenProbeSupport() {}

  /** Triggers the static initialiser above. */
  public static void load() {}

  /** The native address of a direct buffer's storage. */
  public static native long addressOf(java.nio.ByteBuffer buffer);

  /** A native GuardProbe bound the way Java-extended objects are (it is an ICustomClass). */
  static native long makeCustom();

  /** A probe that Java owns and that counts in {@link GuardProbe#getLiveCount()} until it is freed. */
  public static GuardProbe newCountedProbe() {
    return GuardProbe.adopt(GuardProbe.makeDerivedImpl());
  }

  /** Fills the generated CustomGuardProbe's method-identifier table. */
  static native void initCustomGuardProbe();

  /** Binds the native custom object at {@code handle} to its Java peer (a global reference). */
  static native void bindCustom(long handle, GuardProbe peer);

  /** The virtual describe() called on the native object, as the toolkit calls it. */
  static native String describeNatively(long handle);

  /** The virtual scaled(f) called on the native object. */
  static native float scaledNatively(long handle, float f);

  /** The virtual preferredMode(mode) called on the native object, with and giving enum values. */
  static native int preferredModeNatively(long handle, int mode);

  /** Posts an SoErrorStack from a native function of this library; returns how many it posted so far. */
  static native int postErrorStack();

  /** Calls the toolkit's memory cleanup hook with {@code size}; answers what the hook answered. */
  static native boolean toolkitMemoryCleanup(long size);
}
