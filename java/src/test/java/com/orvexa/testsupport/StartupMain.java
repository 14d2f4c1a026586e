package com.orvexa.testsupport;

import com.orvexa.orvex.Orvex;

/** Starts the binding in a child JVM and reports what the start-up initialised. */
public final class StartupMain {
  private StartupMain() {}

  public static void main(String[] args) {
    Orvex.init();
    if (args.length == 0 || !args[0].equals("--no-probe")) {
      System.out.println("IMAGELUX=" + RuntimeProbe.imageLuxInitialized());
    }
    System.out.println("STARTED");
    System.out.flush();
    System.exit(0);
  }
}
