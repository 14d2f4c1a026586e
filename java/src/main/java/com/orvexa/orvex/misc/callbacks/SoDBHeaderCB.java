package com.orvexa.orvex.misc.callbacks;

import com.orvexa.orvex.SoInput;

/**
 * A function of a registered scene-file header
 * ({@link com.orvexa.orvex.SoDB#registerHeader}): the pre function is called
 * when an input recognises the header, standing at the file's first object;
 * the post function when the input closes that file. Both run on the
 * reading thread, with the input that reads.
 */
public final class SoDBHeaderCB extends NCallback {
  /** What the callback does. */
  @FunctionalInterface
  public interface Function {
    void invoke(SoInput in, Object userData);
  }

  private final Function function;
  private final boolean pre;

  private SoDBHeaderCB(Function function, boolean pre) {
    this.function = required(function, "function");
    this.pre = pre;
  }

  /** A function called when an input recognises the header. */
  public static SoDBHeaderCB pre(Function function) {
    return new SoDBHeaderCB(function, true);
  }

  /** A function called when an input closes a file that had the header. */
  public static SoDBHeaderCB post(Function function) {
    return new SoDBHeaderCB(function, false);
  }

  /** True for a pre function, false for a post function. */
  public boolean isPre() {
    return pre;
  }

  @Override
  void constructor() {
    if (pre) {
      constructor1();
    } else {
      constructor2();
    }
  }

  /** Makes the native object of a pre function. */
  private native void constructor1();

  /** Makes the native object of a post function. */
  private native void constructor2();

  /** Called by the native trampoline of a pre function. */
  private void invokePre(SoInput in) {
    function.invoke(in, getUserData());
  }

  /** Called by the native trampoline of a post function. */
  private void invokePost(SoInput in) {
    function.invoke(in, getUserData());
  }
}
