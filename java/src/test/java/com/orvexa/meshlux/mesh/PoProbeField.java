package com.orvexa.meshlux.mesh;

import com.orvexa.internal.NativeResourceHandle;
import com.orvexa.orvex.Orvex;

/** Wrapper of the made-up toolkit type "PoProbeField", found in a later package of the search. */
public class PoProbeField extends Orvex {
  protected PoProbeField(NativeResourceHandle handle) {
    super(handle);
  }
}
