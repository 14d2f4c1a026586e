package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.nodes.SoWWWAnchor;

/**
 * A function of the {@link SoWWWAnchor} nodes: the fetch function, called
 * with the anchor's URL when the anchor is clicked, and the highlight
 * function, called with the URL when the cursor moves onto an anchor and
 * with an empty URL when it leaves. Both run on the thread that handles the
 * event.
 */
public final class SoWWWAnchorCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(String url, SoWWWAnchor anchor, Object userData);
  }

  private final Function function;

  public SoWWWAnchorCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private void invoke(String url, SoWWWAnchor anchor) {
    function.invoke(url, anchor, getUserData());
  }
}
