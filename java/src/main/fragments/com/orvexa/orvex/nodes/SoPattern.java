  /**
   * The names of the patterns that the pattern file {@code fileName}
   * defines, in the file's order; empty when it defines none or cannot be
   * read (the reader's errors go to the toolkit's error handlers). A null
   * name names no file.
   */
  public static native String[] getPatternNames(String fileName);
