import com.orvexa.internal.CallbackAccess;
import com.orvexa.internal.NativeCalls;
import com.orvexa.orvex.misc.callbacks.SoCallbackCB;

  /**
   * Makes {@code callback} the function this node calls for every action
   * that traverses it, replacing the one set before; null: no function. The
   * node keeps the callback for as long as it exists, whether or not this
   * wrapper does.
   */
  public void setCallback(SoCallbackCB callback, Object userData) {
    final long self = NativeCalls.begin(this, "this");
    try {
      if (callback != null) CallbackAccess.prepare(callback);
      setCallbackImpl(self, callback, userData);
    } finally {
      NativeCalls.end(this);
    }
  }

  private static native void setCallbackImpl(long self, SoCallbackCB cb, Object userData);
