  /** The path last given the name {@code name}, or null when no path has it. */
  public static SoPath getByName(String name) {
    if (name == null) throw com.orvexa.internal.NativeCalls.nullArgument("name");
    return com.orvexa.internal.ObjectManager.getManagedObject(SoPath.class, getByNameNativ(name));
  }

  /**
   * Adds every path named {@code name} to {@code list}, in the toolkit's
   * order; answers how many were added.
   */
  public static int getByName(String name, java.util.List<? super SoPath> list) {
    if (name == null) throw com.orvexa.internal.NativeCalls.nullArgument("name");
    if (list == null) throw com.orvexa.internal.NativeCalls.nullArgument("list");
    SoPath[] paths = getAllByNameImpl(name);
    java.util.Collections.addAll(list, paths);
    return paths.length;
  }

  /** Every path named {@code name}; empty when none has it. */
  public static java.util.List<SoPath> getAllByName(String name) {
    if (name == null) throw com.orvexa.internal.NativeCalls.nullArgument("name");
    return java.util.List.of(getAllByNameImpl(name));
  }

  /** Paths are equal when they have the same head and go through the same child indices. */
  @Override
  public boolean equals(Object o) {
    if (this == o) return true;
    if (!(o instanceof SoPath)) return false;
    SoPath other = (SoPath) o;
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      final long otherHandle = com.orvexa.internal.NativeCalls.begin(other, "o");
      try {
        return equalsNativ(self, otherHandle);
      } finally {
        com.orvexa.internal.NativeCalls.end(other);
      }
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  /** Consistent with {@link #equals}: the head's address and the length. */
  @Override
  public int hashCode() {
    return 31 * Long.hashCode(com.orvexa.internal.NativeCalls.addressOf(getHead())) + getLength();
  }

  static native long getByNameNativ(String name);

  static native SoPath[] getAllByNameImpl(String name);

  static native boolean equalsNativ(long a, long b);
