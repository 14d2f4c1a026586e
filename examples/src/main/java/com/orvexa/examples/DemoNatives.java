package com.orvexa.examples;

import com.orvexa.orvex.Orvex;

/** The demo's own native library, a sibling of the binding's. */
final class DemoNatives {
  static {
    Orvex.init();
    System.loadLibrary("orvexdemo");
  }

  private DemoNatives() {}

  /** Posts a toolkit read error from a fresh native thread and waits for that thread. */
  static native void postReadErrorFromNativeThread(String fileName, int line, String message);
}
