package com.orvexa.tests;

import com.orvexa.testsupport.RuntimeProbe;

/** Natives of the test support library that post toolkit errors and run the bridge's other upcalls. */
final class ErrorUpcallProbe {
  /** Error classes of {@link #postOnNativeThreads} and {@link #postOnCallingThread}. */
  static final int DEBUG = 0;
  static final int READ = 1;

  static {
    RuntimeProbe.init();  // starts the binding and loads the support library
  }

  private ErrorUpcallProbe() {}

  static void init() {}

  /**
   * Starts {@code threads} native threads that each post {@code perThread}
   * errors of class {@code kind}, with the text "error <i> of thread <t>",
   * and waits for them.
   */
  static native void postOnNativeThreads(int kind, int threads, int perThread);

  /** Posts {@code count} errors on the calling thread without returning to Java in between. */
  static native void postOnCallingThread(int kind, int count);

  /** SoDebugError::post with the format made safe, as the generated entry point does it. */
  static native void postDebugErrorFromJava(String methodName, String format);

  /** The name of the type the toolkit resolves for {@code name} on a native thread, or null. */
  static native String typeNameFromNameOnNativeThread(String name);

  /** The toolkit's memory cleanup hook, asked on a native thread. */
  static native boolean memoryCleanupOnNativeThread(long size);

  /** The toolkit's memory cleanup hook, asked on the calling thread. */
  static native boolean memoryCleanupOnCallingThread(long size);
}
