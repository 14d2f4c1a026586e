package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.nodes.SoEventCallback;

/**
 * An event callback of an {@link SoEventCallback} node: called with the
 * node when an event of the registered type reaches it; the node gives the
 * event, the action and the picked point during the call.
 */
public final class SoEventCallbackCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(SoEventCallback node, Object userData);
  }

  private final Function function;

  public SoEventCallbackCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private void invoke(SoEventCallback node) {
    function.invoke(node, getUserData());
  }
}
