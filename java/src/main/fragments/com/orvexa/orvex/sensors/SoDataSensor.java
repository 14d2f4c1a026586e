import com.orvexa.internal.NativeCalls;
import com.orvexa.internal.ObjectManager;

  /** What this sensor runs when its watched object is being destroyed; null: nothing. */
  private volatile Runnable finalTask;

  /** Whether the toolkit sensor's delete callback is the trampoline yet. */
  private boolean finalTaskInstalled;

  /**
   * Makes {@code task} what this sensor runs when the object it watches is
   * about to be destroyed; the sensor has detached by then, and the task
   * may attach it to something else. Null: nothing is run.
   */
  public void setFinalTask(Runnable task) {
    final long self = NativeCalls.begin(this, "this");
    try {
      synchronized (this) {
        this.finalTask = task;
        if (!finalTaskInstalled) {
          setFinalTaskNativ(self);
          finalTaskInstalled = true;
        }
      }
    } finally {
      NativeCalls.end(this);
    }
  }

  /** The final task set last, or null. */
  public Runnable getFinalTask() {
    return finalTask;
  }

  /** Called by the final-task trampoline with the address of the sensor whose watched object is dying. */
  static void notifyFinal(long address) {
    com.orvexa.orvex.Orvex wrapper = ObjectManager.lookup(address);
    if (!(wrapper instanceof SoDataSensor)) return;
    runTask(((SoDataSensor) wrapper).finalTask);
  }

  /** Makes the toolkit data sensor at {@code sensor} call notifyFinal when its watched object dies. */
  static native void setFinalTaskNativ(long sensor);
