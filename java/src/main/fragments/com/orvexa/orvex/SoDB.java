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

  /** The application locks the calling thread holds through these methods: {read, write}. */
  private static final ThreadLocal<int[]> HELD_LOCKS = ThreadLocal.withInitial(() -> new int[2]);

  /**
   * Takes the application lock for reading; several threads may hold it at
   * once, and a thread may take it again.
   *
   * @throws IllegalStateException when this thread holds it for writing
   *     (taking it would wait for ever)
   */
  public static void readlock() {
    int[] held = HELD_LOCKS.get();
    if (held[1] > 0) throw new IllegalStateException("this thread holds the write lock");
    readlockImpl();
    held[0]++;
  }

  /**
   * Gives back a read lock this thread took.
   *
   * @throws IllegalStateException when this thread holds no read lock
   */
  public static void readunlock() {
    int[] held = HELD_LOCKS.get();
    if (held[0] == 0) throw new IllegalStateException("this thread holds no read lock");
    held[0]--;
    readunlockImpl();
  }

  /**
   * Takes the application lock for writing, alone.
   *
   * @throws IllegalStateException when this thread already holds it, for
   *     reading or writing (taking it would wait for ever)
   */
  public static void writelock() {
    int[] held = HELD_LOCKS.get();
    if (held[0] > 0 || held[1] > 0) throw new IllegalStateException("this thread already holds the lock");
    writelockImpl();
    held[1]++;
  }

  /**
   * Gives back the write lock this thread took.
   *
   * @throws IllegalStateException when this thread does not hold it
   */
  public static void writeunlock() {
    int[] held = HELD_LOCKS.get();
    if (held[1] == 0) throw new IllegalStateException("this thread holds no write lock");
    held[1]--;
    writeunlockImpl();
  }

  static native void readlockImpl();

  static native void readunlockImpl();

  static native void writelockImpl();

  static native void writeunlockImpl();

  /**
   * Renames the global field {@code oldName}. An empty new name deletes the
   * field, and a new name that another global field has deletes that one:
   * the Java wrapper of a deleted field is disposed, so that using it throws
   * {@link IllegalStateException}.
   */
  public static void renameGlobalField(String oldName, String newName) {
    if (oldName == null) throw com.orvexa.internal.NativeCalls.nullArgument("oldName");
    if (newName == null) throw com.orvexa.internal.NativeCalls.nullArgument("newName");
    synchronized (GLOBAL_FIELD_RENAMES) {
      com.orvexa.orvex.fields.SoField renamed = getGlobalField(oldName);
      if (renamed == null || oldName.equals(newName)) return;
      com.orvexa.orvex.fields.SoField deleted = newName.isEmpty() ? renamed : getGlobalField(newName);
      renameGlobalFieldImpl(oldName, newName);
      if (deleted != null) deleted.dispose();
    }
  }

  /** Renames made from Java one at a time, so that each sees which field it deletes. */
  private static final Object GLOBAL_FIELD_RENAMES = new Object();

  static native void renameGlobalFieldImpl(String oldName, String newName);

  /**
   * The database's sensor manager, which the toolkit owns; its queues are
   * processed by {@link RealTimeManager} (see package
   * {@code com.orvexa.orvex.sensors}).
   */
  public static com.orvexa.orvex.sensors.SoSensorManager getSensorManager() {
    return getNativSensorManager();
  }

  private static native com.orvexa.orvex.sensors.SoSensorManager getNativSensorManager();

  /**
   * Registers {@code header} (a line starting with '#') as the first line of
   * scene files that inputs accept, binary or ASCII, of that file-format
   * version, with functions called when an input recognises the header
   * ({@code preCB}, made by {@code SoDBHeaderCB.pre}) and when it closes the
   * file ({@code postCB}, made by {@code SoDBHeaderCB.post}); either may be
   * null. Both are handed {@code userData}. A registration lasts for the
   * life of the process; false when the header is already registered or is
   * no header line.
   *
   * @throws IllegalArgumentException when a function is of the other kind
   */
  public static boolean registerHeader(String header, boolean isBinary, float version,
      com.orvexa.orvex.misc.callbacks.SoDBHeaderCB preCB, com.orvexa.orvex.misc.callbacks.SoDBHeaderCB postCB,
      Object userData) {
    if (header == null) throw com.orvexa.internal.NativeCalls.nullArgument("header");
    if (preCB != null && !preCB.isPre()) throw new IllegalArgumentException("preCB is a post function");
    if (postCB != null && postCB.isPre()) throw new IllegalArgumentException("postCB is a pre function");
    if (preCB != null) com.orvexa.internal.CallbackAccess.prepare(preCB);
    if (postCB != null) com.orvexa.internal.CallbackAccess.prepare(postCB);
    return registerHeaderImpl(header, isBinary, version, preCB, postCB, userData);
  }

  /** As {@link #registerHeader(String, boolean, float, SoDBHeaderCB, SoDBHeaderCB, Object)}, without functions. */
  public static boolean registerHeader(String header, boolean isBinary, float version) {
    return registerHeader(header, isBinary, version, null, null, null);
  }

  private static native boolean registerHeaderImpl(String header, boolean isBinary, float version,
      com.orvexa.orvex.misc.callbacks.SoDBHeaderCB preCB, com.orvexa.orvex.misc.callbacks.SoDBHeaderCB postCB,
      Object userData);
