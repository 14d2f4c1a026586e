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
   * Reads the next node of {@code in}: the node, or null at the end of the
   * input or after a read error (the reader's errors go to the toolkit's
   * error handlers, never as Java exceptions).
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

  static native boolean readImpl(long input, long[] rootNode);

  static native boolean readPathImpl(long input, long[] path);
