import com.orvexa.internal.NativeCallbackHoldings;

  /** The callbacks this action holds; made at the first registration. */
  private NativeCallbackHoldings callbackHoldings;

  /**
   * The native record of the callbacks registered with this action, for the
   * registration entry points of its class. An action Java owns lets go of
   * them once it is freed; one lent by native code keeps them, since the
   * toolkit may go on calling them after the wrapper has gone.
   */
  final synchronized long callbackHoldings() {
    if (callbackHoldings == null) {
      callbackHoldings = getNativeResourceHandle().isOwned()
          ? NativeCallbackHoldings.createFor(this) : NativeCallbackHoldings.createUnowned();
    }
    return callbackHoldings.address();
  }
