import com.orvexa.internal.CallbackAccess;
import com.orvexa.internal.NativeCalls;
import com.orvexa.orvex.misc.callbacks.SoGLRenderAbortCB;
import com.orvexa.orvex.misc.callbacks.SoGLRenderPassCB;

  /**
   * Makes {@code callback} the function called before each rendering pass
   * after the first, replacing the one set before; null: none. The action
   * keeps the callback for as long as it exists, even while a renderer
   * holds it after this wrapper has gone.
   */
  public void setPassCallback(SoGLRenderPassCB callback, Object userData) {
    final long self = NativeCalls.begin(this, "this");
    try {
      if (callback != null) CallbackAccess.prepare(callback);
      setPassCallbackImpl(self, callbackHoldings(), callback, userData);
    } finally {
      NativeCalls.end(this);
    }
  }

  /**
   * Makes {@code callback} the function asked before each node is rendered
   * whether to go on, replacing the one set before; null: none. Kept as
   * {@link #setPassCallback} keeps its callback.
   */
  public void setAbortCallback(SoGLRenderAbortCB callback, Object userData) {
    final long self = NativeCalls.begin(this, "this");
    try {
      if (callback != null) CallbackAccess.prepare(callback);
      setAbortCallbackImpl(self, callbackHoldings(), callback, userData);
    } finally {
      NativeCalls.end(this);
    }
  }

  private static native void setPassCallbackImpl(long self, long holdings, SoGLRenderPassCB cb, Object userData);

  private static native void setAbortCallbackImpl(long self, long holdings, SoGLRenderAbortCB cb, Object userData);
