package com.orvexa.orvex.fields;

import com.orvexa.internal.NativeResourceHandle;
import com.orvexa.orvex.Orvex;

/** Stand-in for the wrapper of the integer fields, for the class-search tests. */
public class SoSFInt extends Orvex {
  protected SoSFInt(NativeResourceHandle handle) {
    super(handle);
  }
}
