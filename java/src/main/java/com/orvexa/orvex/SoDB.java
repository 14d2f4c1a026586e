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

  /**
   * Reads the whole scene of {@code in} under one separator; null when the
   * input holds no valid scene (the reader's errors go to the toolkit's error
   * handlers, never as Java exceptions).
   */
  public static com.orvexa.orvex.nodes.SoSeparator readAll(SoInput in) {
    final long input = com.orvexa.internal.NativeCalls.begin(in, "in");
    try {
      return com.orvexa.internal.ObjectManager.getManagedObject(com.orvexa.orvex.nodes.SoSeparator.class,
          readAllImpl(input));
    } finally {
      com.orvexa.internal.NativeCalls.end(in);
    }
  }

  /**
   * Reads the next node of {@code in}: the node, or null at the end of the
   * input or after a read error.
   */
  public static com.orvexa.orvex.nodes.SoNode read(SoInput in) {
    final long input = com.orvexa.internal.NativeCalls.begin(in, "in");
    try {
      long[] node = new long[1];
      readImpl(input, node);
      return com.orvexa.internal.ObjectManager.getManagedObject(com.orvexa.orvex.nodes.SoNode.class, node[0]);
    } finally {
      com.orvexa.internal.NativeCalls.end(in);
    }
  }

  /** Reads the next path of {@code in}: the path, or null at the end of the input or after a read error. */
  public static SoPath readPath(SoInput in) {
    final long input = com.orvexa.internal.NativeCalls.begin(in, "in");
    try {
      long[] path = new long[1];
      readPathImpl(input, path);
      return com.orvexa.internal.ObjectManager.getManagedObject(SoPath.class, path[0]);
    } finally {
      com.orvexa.internal.NativeCalls.end(in);
    }
  }

  /** Whether {@code text} starts with a header the reader knows. */
  public static boolean isValidHeader(String text) {
    if (text == null) throw com.orvexa.internal.NativeCalls.nullArgument("text");
    return isValidHeaderImpl(text);
  }

  /**
   * The database's sensor manager, which the toolkit owns; its queues are
   * processed by {@link RealTimeManager} (see package
   * {@code com.orvexa.orvex.sensors}).
   */
  public static com.orvexa.orvex.sensors.SoSensorManager getSensorManager() {
    return getNativSensorManager();
  }

  private static native com.orvexa.orvex.sensors.SoSensorManager getNativSensorManager();

  private static native String getVersionImpl();

  static native boolean readImpl(long input, long[] rootNode);

  static native boolean readPathImpl(long input, long[] path);

  static native long readAllImpl(long input);

  static native boolean isValidHeaderImpl(String text);
}
