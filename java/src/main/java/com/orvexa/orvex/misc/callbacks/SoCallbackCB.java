package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.actions.SoAction;

/**
 * The function of an {@link com.orvexa.orvex.nodes.SoCallback} node: called
 * with the action traversing the node, for every action.
 */
public final class SoCallbackCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(SoAction action, Object userData);
  }

  private final Function function;

  public SoCallbackCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private void invoke(SoAction action) {
    function.invoke(action, getUserData());
  }
}
