  /** A frame with the given parts: the same as {@code setValue} on a new frame. */
  public StackFrame(long address, String moduleName, String functionName, long offset) {
    this();
    setValue(address, moduleName, functionName, offset);
  }

  /** The frame as a line of the toolkit's stack traces shows it. */
  @Override
  public String toString() {
    return getString();
  }
