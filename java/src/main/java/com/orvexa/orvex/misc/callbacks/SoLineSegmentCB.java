package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.SoPrimitiveVertex;
import com.orvexa.orvex.actions.SoCallbackAction;

/**
 * A line-segment callback of an {@link SoCallbackAction}: called for every
 * segment that a shape of the registered type generates. The vertices are
 * valid only during the call.
 */
public final class SoLineSegmentCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(SoCallbackAction action, SoPrimitiveVertex v1, SoPrimitiveVertex v2, Object userData);
  }

  private final Function function;

  public SoLineSegmentCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private void invoke(SoCallbackAction action, SoPrimitiveVertex v1, SoPrimitiveVertex v2) {
    try {
      function.invoke(action, v1, v2, getUserData());
    } finally {
      releaseLent(v1);
      releaseLent(v2);
    }
  }
}
