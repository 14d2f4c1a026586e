package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.actions.SoGLRenderAction;

/**
 * The abort callback of an {@link com.orvexa.orvex.actions.SoGLRenderAction}:
 * asked before each node is rendered whether to go on ({@code CONTINUE}),
 * stop the whole traversal ({@code ABORT}), skip the node ({@code PRUNE}) or
 * render it later, with the delayed objects ({@code DELAY}). It runs on the
 * thread that renders, once per node, so it must be quick.
 */
public final class SoGLRenderAbortCB extends NCallback {
  /** What the callback does; the answer must not be null. */
  @FunctionalInterface
  public interface Function {
    SoGLRenderAction.AbortCode invoke(Object userData);
  }

  private final Function function;

  public SoGLRenderAbortCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline: the answer as the toolkit's value. */
  private int invoke() {
    SoGLRenderAction.AbortCode code = function.invoke(getUserData());
    if (code == null) throw new NullPointerException("the abort callback answered no code");
    return code.getValue();
  }
}
