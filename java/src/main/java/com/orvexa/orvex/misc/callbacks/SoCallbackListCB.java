package com.orvexa.orvex.misc.callbacks;

/**
 * A function of an {@link com.orvexa.orvex.misc.SoCallbackList}: called, in
 * the order the functions were added, each time the list is invoked, with
 * the data given to that invocation. A list invoked by native code passes
 * data Java cannot see: the function then receives null.
 */
public final class SoCallbackListCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(Object callbackData, Object userData);
  }

  private final Function function;

  public SoCallbackListCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline with the invocation's data. */
  private void internInvoke(Object callbackData) {
    function.invoke(callbackData, getUserData());
  }
}
