import com.orvexa.internal.CallbackAccess;
import com.orvexa.internal.NativeCalls;
import com.orvexa.orvex.misc.callbacks.SoEventCallbackCB;

  /**
   * Calls {@code callback} when an event of the toolkit type named
   * {@code eventType} (or derived from it) reaches this node. The node keeps
   * the callback for as long as it exists, whether or not this wrapper does.
   *
   * @throws IllegalArgumentException when no toolkit type has that name
   */
  public void addEventCallback(String eventType, SoEventCallbackCB callback, Object userData) {
    if (eventType == null) throw NativeCalls.nullArgument("eventType");
    if (callback == null) throw NativeCalls.nullArgument("callback");
    final long self = NativeCalls.begin(this, "this");
    try {
      CallbackAccess.prepare(callback);
      addEventCallbackImpl(self, eventType, callback, userData);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** Removes one registration of {@code callback} for {@code eventType}; nothing when there is none. */
  public void removeEventCallback(String eventType, SoEventCallbackCB callback) {
    if (eventType == null) throw NativeCalls.nullArgument("eventType");
    if (callback == null) throw NativeCalls.nullArgument("callback");
    final long self = NativeCalls.begin(this, "this");
    try {
      removeEventCallbackImpl(self, eventType, callback);
    } finally {
      NativeCalls.end(this);
    }
  }

  private static native void addEventCallbackImpl(long self, String eventType, SoEventCallbackCB cb, Object userData);
  private static native void removeEventCallbackImpl(long self, String eventType, SoEventCallbackCB cb);
