package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.actions.SoCallbackAction;
import com.orvexa.orvex.nodes.SoNode;

/**
 * A pre, post or tail callback of an {@link SoCallbackAction}: called for
 * the nodes of the registered type (or at the tail of the path the action
 * is applied to), answering how the traversal goes on.
 */
public final class SoCallbackActionCB extends NCallback {
  /** What the callback does; the answer must not be null. */
  @FunctionalInterface
  public interface Function {
    SoCallbackAction.Response invoke(SoCallbackAction action, SoNode node, Object userData);
  }

  private final Function function;

  public SoCallbackActionCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline: the response as the toolkit's value. */
  private int invoke(SoCallbackAction action, SoNode node) {
    SoCallbackAction.Response response = function.invoke(action, node, getUserData());
    if (response == null) throw new NullPointerException("the callback answered no response");
    return response.getValue();
  }
}
