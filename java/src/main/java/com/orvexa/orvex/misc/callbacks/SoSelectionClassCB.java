package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.nodes.SoSelection;

/**
 * A start, finish or change callback of an {@link SoSelection}: called with
 * the selection node when a pick starts or finishes changing it, or when its
 * list of selected paths changed.
 */
public final class SoSelectionClassCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(SoSelection selection, Object userData);
  }

  private final Function function;

  public SoSelectionClassCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private void invoke(SoSelection selection) {
    function.invoke(selection, getUserData());
  }
}
