package com.orvexa.orvex;

/**
 * Drives the toolkit's sensor queues from a daemon thread: the toolkit's own
 * real-time sensor is switched off at start-up, so timer sensors (and the
 * "realTime" global field's users) fire only when this thread processes the
 * timer queue. Each pass then processes the database's delay queue as an
 * idle moment, so data, one-shot and idle sensors fire without the Java
 * program pumping anything, on this thread. Started by {@link Orvex} at
 * start-up; a program that processes the queues itself stops it.
 */
public final class RealTimeManager {
  /** Default period between two passes over the timer queue. */
  public static final long DEFAULT_PERIOD_MILLIS = 10;

  /** The driving thread; it runs for as long as it is the one recorded here. */
  private static volatile Thread thread;

  static {
    Orvex.init();
  }

  private RealTimeManager() {}

  /** Starts processing every {@link #DEFAULT_PERIOD_MILLIS} ms; does nothing when running. */
  public static void start() {
    start(DEFAULT_PERIOD_MILLIS);
  }

  /** Starts processing at a fixed rate of one pass per {@code periodMillis}; does nothing when running. */
  public static synchronized void start(long periodMillis) {
    if (periodMillis <= 0) throw new IllegalArgumentException("period must be positive: " + periodMillis);
    if (thread != null) return;
    final long periodNanos = periodMillis * 1_000_000L;
    Thread t = new Thread(() -> run(periodNanos), "Orvex-RealTimeManager");
    t.setDaemon(true);
    thread = t;
    t.start();
  }

  /** Stops processing and waits for the thread to end; does nothing when stopped. */
  public static void stop() {
    Thread t;
    synchronized (RealTimeManager.class) {
      t = thread;
      if (t == null) return;
      thread = null;
    }
    t.interrupt();
    if (t != Thread.currentThread()) {
      try {
        t.join();
      } catch (InterruptedException e) {
        Thread.currentThread().interrupt();
      }
    }
  }

  /** True on the thread that processes the queues. */
  public static boolean isCurrentThread() {
    Thread t = thread;
    return t != null && t == Thread.currentThread();
  }

  public static boolean isRunning() {
    return thread != null;
  }

  /** Processes the timer queue once on the calling thread. */
  public static void processTimerQueue() {
    processTimerQueueNative();
  }

  private static void run(long periodNanos) {
    // A stopped thread leaves the loop at its next turn even when a sensor
    // swallowed the interrupt, so it cannot keep running beside a new one.
    Thread self = Thread.currentThread();
    long next = System.nanoTime();
    while (thread == self) {
      try {
        processTimerQueueNative();
        processDelayQueueNative(true);
      } catch (RuntimeException | Error e) {
        // A failing sensor must not stop the clock of every other one.
        e.printStackTrace();
      }
      next += periodNanos;
      long delay = next - System.nanoTime();
      if (delay < 0) {
        next = System.nanoTime();  // fell behind: do not try to catch up in a burst
        continue;
      }
      try {
        Thread.sleep(delay / 1_000_000L, (int) (delay % 1_000_000L));
      } catch (InterruptedException e) {
        return;
      }
    }
  }

  /** Processes the database's delay queue once on the calling thread ({@code isIdle}: idle sensors too). */
  public static void processDelayQueue(boolean isIdle) {
    processDelayQueueNative(isIdle);
  }

  private static native void processTimerQueueNative();

  private static native void processDelayQueueNative(boolean isIdle);
}
