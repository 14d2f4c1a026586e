import com.orvexa.internal.NativeCalls;
import com.orvexa.internal.ObjectManager;

  /** What this sensor runs when it fires; null: nothing. */
  private volatile Runnable task;

  /** Whether the toolkit sensor calls the trampoline yet: set once, at the first setTask. */
  private boolean taskInstalled;

  /**
   * Makes {@code task} what this sensor runs each time it fires; null: the
   * sensor still fires, but does nothing. The task runs on the thread that
   * processes the sensor's queue: the {@link com.orvexa.orvex.RealTimeManager}
   * thread for timer and delay sensors of the database's queues, or the
   * thread that made the change, for a data sensor of priority 0. An
   * exception the task throws reaches the Java code that made the queue be
   * processed, and no other sensor reaches Java before it has; on the
   * RealTimeManager thread it goes to the thread's uncaught-exception
   * handler instead, and the pass goes on with the next sensor.
   *
   * <p>The sensor fires only while the program keeps a reference to it: a
   * collected (or disposed) sensor's toolkit sensor is deleted, which
   * unschedules and detaches it. A deletion on another thread while the
   * task runs waits for the task to return, so the task must not wait for
   * the thread that disposes of its sensor.
   */
  public void setTask(Runnable task) {
    final long self = NativeCalls.begin(this, "this");
    try {
      synchronized (this) {
        this.task = task;
        if (!taskInstalled) {
          setTaskNativ(self);
          taskInstalled = true;
        }
      }
    } finally {
      NativeCalls.end(this);
    }
  }

  /** The task set last, or null. */
  public Runnable getTask() {
    return task;
  }

  /** Called by the sensor trampoline with the address of the firing sensor. */
  static void notifySensor(long address) {
    com.orvexa.orvex.Orvex wrapper = ObjectManager.lookup(address);
    if (!(wrapper instanceof SoSensor)) return;  // collected meanwhile: its sensor is being deleted
    runTask(((SoSensor) wrapper).task);
  }

  /**
   * Runs a task the toolkit called for (null: nothing). On the
   * RealTimeManager thread an exception goes to the thread's
   * uncaught-exception handler: that thread has no caller to hand it to, and
   * a pending exception would keep every later sensor of the pass from Java.
   * Elsewhere it reaches the Java code that made the queue be processed.
   */
  static void runTask(Runnable t) {
    if (t == null) return;
    if (!com.orvexa.orvex.RealTimeManager.isCurrentThread()) {
      t.run();
      return;
    }
    try {
      t.run();
    } catch (RuntimeException | Error e) {
      Thread self = Thread.currentThread();
      self.getUncaughtExceptionHandler().uncaughtException(self, e);
    }
  }

  /** Makes the toolkit sensor at {@code sensor} call notifySensor when it fires. */
  static native void setTaskNativ(long sensor);
