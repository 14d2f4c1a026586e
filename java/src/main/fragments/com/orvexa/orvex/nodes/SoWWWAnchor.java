import com.orvexa.internal.CallbackAccess;
import com.orvexa.orvex.misc.callbacks.SoWWWAnchorCB;

  /**
   * Makes {@code callback} the function called with an anchor's URL when the
   * anchor is clicked, for every anchor, replacing the one set before; null:
   * none. Kept until replaced.
   */
  public static void setFetchURLCallBack(SoWWWAnchorCB callback, Object userData) {
    if (callback != null) CallbackAccess.prepare(callback);
    setFetchURLCallBackImpl(callback, userData);
  }

  /**
   * Makes {@code callback} the function called when the cursor moves onto an
   * anchor (with its URL) or leaves it (with an empty URL), for every anchor,
   * replacing the one set before; null: none. Kept until replaced.
   */
  public static void setHighlightURLCallBack(SoWWWAnchorCB callback, Object userData) {
    if (callback != null) CallbackAccess.prepare(callback);
    setHighlightURLCallBackImpl(callback, userData);
  }

  private static native void setFetchURLCallBackImpl(SoWWWAnchorCB cb, Object userData);

  private static native void setHighlightURLCallBackImpl(SoWWWAnchorCB cb, Object userData);
