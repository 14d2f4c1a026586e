package com.orvexa.examples;

import com.orvexa.orvex.Orvex;

/** The demo's own native library, a sibling of the binding's. */
final class DemoNatives {
  static {
    Orvex.init();
    System.loadLibrary("orvexdemo");
  }

  private DemoNatives() {}

  /**
   * Reads a scene from its text on a fresh native thread and waits for it.
   *
   * @return a short description of the scene, or null when the read failed
   */
  static native String loadSceneOnNativeThread(String sceneText);
}
