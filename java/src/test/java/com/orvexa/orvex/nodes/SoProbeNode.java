package com.orvexa.orvex.nodes;

import com.orvexa.internal.NativeResourceHandle;
import com.orvexa.orvex.misc.SoBase;

/** Wrapper of the test library's reference-counted "ProbeNode". */
public class SoProbeNode extends SoBase {
  protected SoProbeNode(NativeResourceHandle handle) {
    super(handle);
  }
}
