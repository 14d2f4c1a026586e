package com.orvexa.orvex.misc.callbacks;

/**
 * The changed callback of an {@link com.orvexa.orvex.sensors.SoSensorManager}:
 * called whenever the earliest pending timer may have changed or the delay
 * queue became empty or non-empty, so that an event loop can re-arm its
 * timer or its idle processing. It runs on the thread that changed the
 * queues and must not block. An exception it throws there reaches the Java
 * code that changed the queues; on the {@link com.orvexa.orvex.RealTimeManager}
 * thread, which has no such caller, it goes to the thread's
 * uncaught-exception handler, and the pass goes on.
 */
public final class SoSensorManagerCB extends NCallback {
  private final Runnable function;

  public SoSensorManagerCB(Runnable function) {
    this.function = required(function, "function");
  }

  @Override
  native void constructor();

  /** Called by the native trampoline. */
  private void invoke() {
    if (!com.orvexa.orvex.RealTimeManager.isCurrentThread()) {
      function.run();
      return;
    }
    // Left pending, the exception would keep every later sensor of the pass
    // from reaching Java, and the sensors already popped would be lost.
    try {
      function.run();
    } catch (RuntimeException | Error e) {
      Thread self = Thread.currentThread();
      self.getUncaughtExceptionHandler().uncaughtException(self, e);
    }
  }
}
