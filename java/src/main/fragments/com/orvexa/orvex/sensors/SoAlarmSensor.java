  /** A new sensor that runs {@code task} each time it fires (see {@link #setTask}). */
  public SoAlarmSensor(Runnable task) {
    this();
    setTask(task);
  }
