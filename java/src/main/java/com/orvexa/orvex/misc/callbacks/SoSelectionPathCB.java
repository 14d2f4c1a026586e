package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.SoPath;

/**
 * A selection or deselection callback of an
 * {@link com.orvexa.orvex.nodes.SoSelection}: called with each path
 * selected or deselected (from the selection node down).
 */
public final class SoSelectionPathCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(SoPath path, Object userData);
  }

  private final Function function;

  public SoSelectionPathCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private void invoke(SoPath path) {
    function.invoke(path, getUserData());
  }
}
