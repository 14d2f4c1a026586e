package com.orvexa.examples;

import com.orvexa.orvex.Orvex;
import com.orvexa.orvex.SoDB;

/**
 * Starts the binding and shows what a user sees: the start-up of the toolkit
 * modules (traced when run with -Dorvex.native.debug=true), the toolkit
 * version, and scenes loaded on a native loader thread, whose read errors
 * arrive in Java.
 */
public final class Demo {
  private static final String GOOD_SCENE = String.join("\n",
      "#Orvex V1.0 ascii",
      "Separator {",
      "  PerspectiveCamera { position 0 0 10 }",
      "  DirectionalLight {}",
      "  Material { diffuseColor 0.8 0.2 0.2 }",
      "  DEF Ball Sphere { radius 1.5 }",
      "  Translation { translation 4 0 0 }",
      "  Cube { width 2 }",
      "  Translation { translation 4 0 0 }",
      "  USE Ball",
      "}",
      "");

  private static final String BAD_SCENE = String.join("\n",
      "#Orvex V1.0 ascii",
      "Separator {",
      "  Cube { width 2 }",
      "  Sphere { radius -- }",
      "}",
      "");

  private Demo() {}

  public static void main(String[] args) {
    System.out.println("Starting the Orvex binding...");
    Orvex.init();  // loads liborvexjava and initialises the toolkit modules
    System.out.println("Orvex toolkit version " + SoDB.getVersion());

    Orvex.setErrorListener(message -> System.out.printf("Toolkit error received on thread \"%s\":%n  %s%n",
        Thread.currentThread().getName(), message.replace("\n", "\n  ")));

    System.out.println("Loading a scene on a native thread...");
    System.out.println("  " + describe(DemoNatives.loadSceneOnNativeThread(GOOD_SCENE)));
    System.out.println("Loading a broken scene on a native thread...");
    System.out.println("  " + describe(DemoNatives.loadSceneOnNativeThread(BAD_SCENE)));
    System.out.println("Done.");
  }

  private static String describe(String result) {
    return result == null ? "read failed (see the error above)" : "read: " + result;
  }
}
