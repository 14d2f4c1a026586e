import java.util.function.LongPredicate;

  private static volatile LongPredicate memoryCleanup;

  /**
   * Installs the hook the toolkit asks to free memory when an allocation
   * fails: it receives the size that was asked for and answers whether it
   * released something worth retrying for. Installing also routes memory
   * errors to Java (see {@link SoError#setHandler}); null removes the hook
   * (the toolkit is then told that nothing was released).
   */
  public static void setMemoryCleanupHandler(LongPredicate cleanup) {
    memoryCleanup = cleanup;
    initNativeCallback();
  }

  /** Called by the toolkit's memory cleanup hook with the size that could not be allocated. */
  static boolean invokeMemoryCleanup(long size) {
    LongPredicate cleanup = memoryCleanup;
    return cleanup != null && cleanup.test(size);
  }

  /** Called by the native route of this class with the address of the error being posted. */
  static void invoke(long address) {
    dispatch(SoMemoryError.class, new SoMemoryError(com.orvexa.internal.NativeResourceHandle.borrowed(address)));
  }

  /** Makes the toolkit's handler of this class call {@link #invoke(long)} and installs the cleanup hook. */
  static native void initNativeCallback();
