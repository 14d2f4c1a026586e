package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.SoPath;
import com.orvexa.orvex.SoPickedPoint;

/**
 * The pick filter of an {@link com.orvexa.orvex.nodes.SoSelection}: called
 * with the picked point of a pick, it answers the path to select instead of
 * the picked one, or null to refuse the pick. The picked point is valid only
 * during the call.
 */
public final class SoSelectionPickCB extends NCallback {
  /** What the filter does. */
  @FunctionalInterface
  public interface Function {
    SoPath invoke(SoPickedPoint pick, Object userData);
  }

  private final Function function;

  /**
   * The path answered last: the toolkit receives only its address, so the
   * wrapper (and with it the path) is kept alive until the next answer.
   */
  private volatile SoPath lastAnswer;

  public SoSelectionPickCB(Function function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private SoPath invoke(SoPickedPoint pick) {
    try {
      SoPath answer = function.invoke(pick, getUserData());
      if (answer != null && answer.getNativeResourceHandleInternal() == 0L) {
        throw new IllegalStateException("the pick filter answered a disposed path");
      }
      lastAnswer = answer;
      return answer;
    } finally {
      releaseLent(pick);
    }
  }
}
