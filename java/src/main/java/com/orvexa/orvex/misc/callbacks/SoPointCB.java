package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.SoPrimitiveVertex;
import com.orvexa.orvex.actions.SoCallbackAction;

/**
 * A point callback of an {@link SoCallbackAction}: called for every point
 * that a shape of the registered type generates. The vertex is valid only
 * during the call.
 */
public final class SoPointCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(SoCallbackAction action, SoPrimitiveVertex v, Object userData);
  }

  private final Function function;

  public SoPointCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private void invoke(SoCallbackAction action, SoPrimitiveVertex v) {
    try {
      function.invoke(action, v, getUserData());
    } finally {
      releaseLent(v);
    }
  }
}
