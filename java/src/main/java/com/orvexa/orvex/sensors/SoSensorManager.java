package com.orvexa.orvex.sensors;

import com.orvexa.internal.CallbackAccess;
import com.orvexa.internal.NativeAccess;
import com.orvexa.internal.NativeCalls;
import com.orvexa.orvex.Orvex;
import com.orvexa.orvex.SbTime;
import com.orvexa.orvex.misc.callbacks.SoSensorManagerCB;

/**
 * The toolkit's sensor manager: the timer queue (alarm and timer sensors),
 * the delay queue (data, one-shot and idle sensors, in priority order) and
 * the immediate queue (delay sensors of priority 0). The database's manager
 * is {@link com.orvexa.orvex.SoDB#getSensorManager()}; a manager made with
 * {@code new} is owned by Java and serves only the code that processes it.
 *
 * <p>In a Java application the database's queues are processed by the
 * {@link com.orvexa.orvex.RealTimeManager} thread, so sensors fire without
 * the program pumping anything; the methods here let a program process them
 * itself as well (after {@code RealTimeManager.stop()}, for full control).
 */
public class SoSensorManager extends Orvex implements AutoCloseable {
  static {
    Orvex.init();
  }

  protected SoSensorManager(com.orvexa.internal.NativeResourceHandle handle) {
    super(handle);
  }

  /** A new manager, owned by this wrapper. */
  public SoSensorManager() {
    this(new NativeResourceHandle(constructor()));
  }

  /**
   * Makes {@code callback} the function called whenever the earliest pending
   * time may have changed or the delay queue became empty or non-empty;
   * null: none. The manager keeps the callback until it is replaced.
   */
  public void setChangedCallback(SoSensorManagerCB callback) {
    final long self = NativeCalls.begin(this, "this");
    try {
      if (callback != null) CallbackAccess.prepare(callback);
      setChangedCallback(self, callback);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** How long a delay sensor may wait for an idle pass before a timer pass fires it anyway. */
  public void setDelaySensorTimeout(SbTime timeout) {
    final long self = NativeCalls.begin(this, "this");
    try {
      final long time = NativeCalls.begin(timeout, "timeout");
      try {
        setDelaySensorTimeout(self, time);
      } finally {
        NativeCalls.end(timeout);
      }
    } finally {
      NativeCalls.end(this);
    }
  }

  public SbTime getDelaySensorTimeout() {
    final long self = NativeCalls.begin(this, "this");
    try {
      return NativeAccess.of(SbTime.class).adopt(getDelaySensorTimeout(self));
    } finally {
      NativeCalls.end(this);
    }
  }

  /** Fires the queued delay sensors in priority order; idle-only sensors only when {@code isIdle}. */
  public void processDelayQueue(boolean isIdle) {
    final long self = NativeCalls.begin(this, "this");
    try {
      processDelayQueue1(self, isIdle);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** Fires the sensors of the immediate queue. */
  public void processImmediateQueue() {
    final long self = NativeCalls.begin(this, "this");
    try {
      processImmediateQueue1(self);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** Fires every timer sensor whose trigger time has passed. */
  public void processTimerQueue() {
    final long self = NativeCalls.begin(this, "this");
    try {
      processTimerQueue1(self);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** True when a delay sensor is queued. */
  public boolean isDelaySensorPending() {
    final long self = NativeCalls.begin(this, "this");
    try {
      return isDelaySensorPending1(self);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** True when a timer sensor is scheduled. */
  public boolean isTimerSensorPending() {
    final long self = NativeCalls.begin(this, "this");
    try {
      return isTimerSensorPending1(self, 0L);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** True when a timer sensor is scheduled; {@code earliest} then receives the earliest trigger time. */
  public boolean isTimerSensorPending(SbTime earliest) {
    final long self = NativeCalls.begin(this, "this");
    try {
      final long time = NativeCalls.begin(earliest, "earliest");
      try {
        return isTimerSensorPending1(self, time);
      } finally {
        NativeCalls.end(earliest);
      }
    } finally {
      NativeCalls.end(this);
    }
  }

  /** Releases a manager made with {@code new} now; the database's manager is not released. */
  @Override
  public void close() {
    dispose();
  }

  private static native long constructor();
  private static native void setChangedCallback(long self, SoSensorManagerCB callback);
  private static native void setDelaySensorTimeout(long self, long time);
  private static native long getDelaySensorTimeout(long self);
  private static native void processDelayQueue1(long self, boolean isIdle);
  private static native void processImmediateQueue1(long self);
  private static native void processTimerQueue1(long self);
  private static native boolean isDelaySensorPending1(long self);
  private static native boolean isTimerSensorPending1(long self, long time);

  /** Releases a manager made with {@code new} with deleteNativeHandleImpl. */
  public static final class NativeResourceHandle extends com.orvexa.internal.NativeResourceHandle {
    NativeResourceHandle(long address) {
      super(address);
    }

    @Override
    protected void releaseNative(long address) {
      deleteNativeHandleImpl(address);
    }

    static native void deleteNativeHandleImpl(long address);
  }
}
