package com.orvexa.orvex.misc;

import com.orvexa.internal.NativeResourceHandle;
import com.orvexa.internal.ObjectManager;
import com.orvexa.orvex.Orvex;

/**
 * Base of the wrappers of reference-counted toolkit objects. Their handle is
 * a {@link com.orvexa.internal.RefCountedNativeResourceHandle}: the wrapper
 * holds one reference on the native object while it is reachable.
 */
public class SoBase extends Orvex {
  protected SoBase(NativeResourceHandle handle) {
    super(handle);
  }

  /**
   * The managed wrapper of the native object at {@code address}, whose
   * run-time toolkit type is {@code typeName}: the existing one, or a new one
   * of the most specific Java class found for the type. Called by native code.
   */
  public static SoBase newInstance(long address, String typeName) {
    return ObjectManager.getManagedObjectForType(SoBase.class, address, typeName);
  }
}
