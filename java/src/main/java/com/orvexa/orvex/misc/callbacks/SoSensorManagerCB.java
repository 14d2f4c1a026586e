package com.orvexa.orvex.misc.callbacks;

/**
 * The changed callback of an {@link com.orvexa.orvex.sensors.SoSensorManager}:
 * called whenever the earliest pending timer may have changed or the delay
 * queue became empty or non-empty, so that an event loop can re-arm its
 * timer or its idle processing. It runs on the thread that changed the
 * queues and must not block.
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
    function.run();
  }
}
