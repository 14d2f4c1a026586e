import com.orvexa.internal.CallbackAccess;
import com.orvexa.internal.NativeCallbackHoldings;
import com.orvexa.internal.NativeCalls;
import com.orvexa.orvex.misc.callbacks.SoCallbackListCB;

  /** The callbacks this list holds; made at the first addition, let go of once the list is freed. */
  private NativeCallbackHoldings callbackHoldings;

  private synchronized long callbackHoldings() {
    if (callbackHoldings == null) callbackHoldings = NativeCallbackHoldings.createFor(this);
    return callbackHoldings.address();
  }

  /**
   * Adds {@code callback} at the end of the list, with {@code userData}
   * (stored on the callback: the latest registration's is handed to it).
   * The same callback added twice is called twice.
   */
  public void addCallback(SoCallbackListCB callback, Object userData) {
    if (callback == null) throw NativeCalls.nullArgument("callback");
    final long self = NativeCalls.begin(this, "this");
    try {
      CallbackAccess.prepare(callback);
      addCCallback(self, callbackHoldings(), callback, userData);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** Removes the first entry of {@code callback}; nothing when there is none. */
  public void removeCallback(SoCallbackListCB callback) {
    if (callback == null) throw NativeCalls.nullArgument("callback");
    final long self = NativeCalls.begin(this, "this");
    try {
      removeCCallback(self, callbackHoldings(), callback);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** Removes every entry. */
  public void clearCallbacks() {
    final long self = NativeCalls.begin(this, "this");
    try {
      clearCCallbacks(self, callbackHoldings());
    } finally {
      NativeCalls.end(this);
    }
  }

  /**
   * Calls every entry, in the order added, on this thread, with
   * {@code callbackData} (which may be null). An exception thrown by a
   * function ends the pass and reaches the caller.
   */
  public void invokeCallbacks(Object callbackData) {
    final long self = NativeCalls.begin(this, "this");
    try {
      invokeCCallbacks(self, callbackData);
    } finally {
      NativeCalls.end(this);
    }
  }

  private static native void addCCallback(long self, long holdings, SoCallbackListCB cb, Object userData);

  private static native void removeCCallback(long self, long holdings, SoCallbackListCB cb);

  private static native void clearCCallbacks(long self, long holdings);

  private static native void invokeCCallbacks(long self, Object callbackData);
