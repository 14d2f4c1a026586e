package com.orvexa.orvex.misc.callbacks;

import com.orvexa.testsupport.RuntimeProbe;

/** Natives of the test support library that make the toolkit call back from native threads. */
final class CallbackProbe {
  static {
    RuntimeProbe.init();  // starts the binding and loads the support library
  }

  private CallbackProbe() {}

  static void init() {}

  /**
   * Starts one native thread per action; thread i applies {@code actions[i]}
   * to {@code roots[i]} {@code repetitions} times. The threads start together;
   * returns when all have ended.
   */
  static native void applyOnNativeThreads(long[] actions, long[] roots, int repetitions);
}
