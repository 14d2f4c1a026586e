  /** The values from index {@code start} to the end; empty for {@code getNum()}. */
  public boolean[] getValues(int start) {
    return BULK.getFlat(this, start);
  }
