  /**
   * The managed wrapper of the native object at {@code address}, whose
   * run-time toolkit type is {@code typeName}: the existing one, or a new one
   * of the most specific Java class found for the type. Called by native code.
   */
  public static SoBase newInstance(long address, String typeName) {
    return com.orvexa.internal.ObjectManager.getManagedObjectForType(SoBase.class, address, typeName);
  }
