package com.orvexa.orvex;

/** The toolkit's scene database: version and the start-up services of the native core. */
public class SoDB {
  static {
    Orvex.init();
  }

  protected SoDB() {}

  /** The toolkit's version text. */
  public static String getVersion() {
    return getVersionImpl();
  }

  /** Initialises the database core (also done by the module initialisation at start-up). */
  public static native void initDatabase();

  /** Prepares the calling thread's toolkit storage. */
  public static native void initThreadLocalStorageNative();

  /** Makes the calling thread the toolkit's main thread. */
  public static native void resetOrxCppMainThreadIdNative();

  /**
   * Gives the real-time clock back to the toolkit's own sensor, undoing the
   * hand-over to {@link RealTimeManager} made at start-up.
   */
  public static native void restoreRealTimeUpdate();

  private static native String getVersionImpl();
}
