package com.orvexa.orvex.fields;

import com.orvexa.internal.NativeResourceHandle;
import com.orvexa.orvex.Orvex;

/** Wrapper of the made-up toolkit type "ProbeField" (found with "So" put in front). */
public class SoProbeField extends Orvex {
  protected SoProbeField(NativeResourceHandle handle) {
    super(handle);
  }
}
