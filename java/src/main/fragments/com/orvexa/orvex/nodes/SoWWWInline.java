import com.orvexa.internal.CallbackAccess;
import com.orvexa.orvex.misc.callbacks.SoWWWInlineFetchURLCB;

  /**
   * Makes {@code callback} the function that fetches the scenes of every
   * inline node, replacing the one set before; null: none (the nodes then
   * stay empty unless given their children). Kept until replaced.
   */
  public static void setFetchURLCallBack(SoWWWInlineFetchURLCB callback, Object userData) {
    if (callback != null) CallbackAccess.prepare(callback);
    setNativeFetchURLCallBack(callback, userData);
  }

  private static native void setNativeFetchURLCallBack(SoWWWInlineFetchURLCB cb, Object userData);
