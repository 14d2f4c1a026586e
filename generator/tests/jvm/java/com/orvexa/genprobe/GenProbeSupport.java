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

  /** Posts an SoErrorStack from a native function of this library; returns how many it posted so far. */
  static native int postErrorStack();

  /** Calls the toolkit's memory cleanup hook with {@code size}; answers what the hook answered. */
  static native boolean toolkitMemoryCleanup(long size);
}
