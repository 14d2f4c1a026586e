package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.SoPrimitiveVertex;
import com.orvexa.orvex.actions.SoCallbackAction;

/**
 * A triangle callback of an {@link SoCallbackAction}: called for every
 * triangle that a shape of the registered type generates, with its three
 * vertices in the shape's object space. The vertices are valid only during
 * the call (they are released when it returns); copy what must be kept.
 */
public final class SoTriangleCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(SoCallbackAction action, SoPrimitiveVertex v1, SoPrimitiveVertex v2, SoPrimitiveVertex v3,
        Object userData);
  }

  private final Function function;

  public SoTriangleCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private void invoke(SoCallbackAction action, SoPrimitiveVertex v1, SoPrimitiveVertex v2, SoPrimitiveVertex v3) {
    try {
      function.invoke(action, v1, v2, v3, getUserData());
    } finally {
      releaseLent(v1);
      releaseLent(v2);
      releaseLent(v3);
    }
  }
}
