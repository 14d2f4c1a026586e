package com.orvexa.orvex.misc.callbacks;

/**
 * The pass callback of an {@link com.orvexa.orvex.actions.SoGLRenderAction}:
 * called before each rendering pass after the first (antialiasing passes,
 * the passes of delayed transparent objects), on the thread that renders,
 * with the render action's context current. The usual use is to clear or
 * prepare the frame buffer for the pass.
 */
public final class SoGLRenderPassCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(Object userData);
  }

  private final Function function;

  public SoGLRenderPassCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private void invoke() {
    function.invoke(getUserData());
  }
}
