  /** Called by the native route of this class with the address of the error being posted. */
  static void invoke(long address) {
    dispatch(SoErrorStack.class, new SoErrorStack(com.orvexa.internal.NativeResourceHandle.borrowed(address)));
  }

  /** Makes the toolkit's handler of this class call {@link #invoke(long)}. */
  static native void initNativeCallback();
