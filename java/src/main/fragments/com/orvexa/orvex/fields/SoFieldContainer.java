  /**
   * The field named {@code name} of this container as a wrapper of class
   * {@code cls}. The wrapper keeps this container alive while it is
   * reachable, since the container owns the field, and its calls fail with
   * {@link IllegalStateException} once the container is disposed.
   * Subclasses bind their field members with it.
   *
   * @throws IllegalStateException when the container has no such field
   */
  protected final <T extends SoField> T fieldOf(Class<T> cls, String name) {
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      // A field member is of exactly its declared class: no need to ask its type.
      T field = com.orvexa.internal.ObjectManager.getLentObject(cls, getFieldHandle(self, name), this, true);
      if (field == null) throw new IllegalStateException(getClass().getName() + " has no field " + name);
      field.owner = this;
      return field;
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  /** The address of the field named {@code name} of the container, 0 for none. */
  static native long getFieldHandle(long container, String name);

  /**
   * Adds the fields of this container to {@code list}, in the container's
   * order; answers how many were added. Each field's wrapper keeps this
   * container reachable, as the container owns the field.
   */
  public int getFields(java.util.List<? super SoField> list) {
    if (list == null) throw com.orvexa.internal.NativeCalls.nullArgument("list");
    final long self = com.orvexa.internal.NativeCalls.begin(this, "this");
    try {
      SoField[] fields = getFieldsNativ(self);
      for (SoField field : fields) {
        if (field.owner == null) field.owner = this;
        list.add(field);
      }
      return fields.length;
    } finally {
      com.orvexa.internal.NativeCalls.end(this);
    }
  }

  /** The container's fields, each the one Java object of its address (no e: the entry point's name). */
  static native SoField[] getFieldsNativ(long container);
