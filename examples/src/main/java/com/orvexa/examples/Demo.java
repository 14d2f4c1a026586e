package com.orvexa.examples;

import com.orvexa.orvex.Orvex;
import com.orvexa.orvex.SoDB;

/**
 * Starts the binding and shows what a user sees: the start-up of the toolkit
 * modules (traced when run with -Dorvex.native.debug=true), the toolkit
 * version, and a toolkit error raised on a native thread arriving in Java.
 */
public final class Demo {
  private Demo() {}

  public static void main(String[] args) {
    System.out.println("Starting the Orvex binding...");
    Orvex.init();  // loads liborvexjava and initialises the toolkit modules
    System.out.println("Orvex toolkit version " + SoDB.getVersion());

    Orvex.setErrorListener(message -> System.out.printf("Toolkit error received on thread \"%s\":%n  %s%n",
        Thread.currentThread().getName(), message.replace("\n", "\n  ")));
    DemoNatives.postReadErrorFromNativeThread("scene.ovx", 12, "Unknown node type \"Sepparator\"");
    System.out.println("Done.");
  }
}
