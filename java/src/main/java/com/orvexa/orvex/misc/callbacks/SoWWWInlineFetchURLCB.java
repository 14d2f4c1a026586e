package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.nodes.SoWWWInline;

/**
 * The function that fetches the scene an {@link SoWWWInline} node names:
 * called (once per node) when the node first needs its children, with the
 * node's full URL, on the thread that traverses the node. It typically
 * reads the scene and gives it to the node with {@code setChildData}.
 */
public final class SoWWWInlineFetchURLCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(String url, SoWWWInline node, Object userData);
  }

  private final Function function;

  public SoWWWInlineFetchURLCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private void invoke(String url, SoWWWInline node) {
    function.invoke(url, node, getUserData());
  }
}
