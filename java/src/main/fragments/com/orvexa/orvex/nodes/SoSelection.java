import com.orvexa.internal.CallbackAccess;
import com.orvexa.internal.NativeCalls;
import com.orvexa.orvex.misc.callbacks.SoSelectionClassCB;
import com.orvexa.orvex.misc.callbacks.SoSelectionPathCB;
import com.orvexa.orvex.misc.callbacks.SoSelectionPickCB;

  /** The address of this node for a registration of {@code callback}, whose native object is made first. */
  private long beginCallbackCall(Object callback, boolean registration) {
    if (callback == null) throw NativeCalls.nullArgument("callback");
    final long self = NativeCalls.begin(this, "this");
    if (!registration) return self;
    try {
      CallbackAccess.prepare(callback);
    } catch (RuntimeException | Error e) {
      NativeCalls.end(this);
      throw e;
    }
    return self;
  }

  /**
   * Calls {@code callback} with each path selected. The node keeps its
   * callbacks for as long as it exists, whether or not this wrapper does.
   */
  public void addSelectionCallback(SoSelectionPathCB callback, Object userData) {
    final long self = beginCallbackCall(callback, true);
    try {
      addSelectionCallbackImpl(self, callback, userData);
    } finally {
      NativeCalls.end(this);
    }
  }

  public void removeSelectionCallback(SoSelectionPathCB callback) {
    final long self = beginCallbackCall(callback, false);
    try {
      removeSelectionCallbackImpl(self, callback);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** Calls {@code callback} with each path deselected. */
  public void addDeselectionCallback(SoSelectionPathCB callback, Object userData) {
    final long self = beginCallbackCall(callback, true);
    try {
      addDeselectionCallbackImpl(self, callback, userData);
    } finally {
      NativeCalls.end(this);
    }
  }

  public void removeDeselectionCallback(SoSelectionPathCB callback) {
    final long self = beginCallbackCall(callback, false);
    try {
      removeDeselectionCallbackImpl(self, callback);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** Calls {@code callback} when a pick starts changing the selection. */
  public void addStartCallback(SoSelectionClassCB callback, Object userData) {
    final long self = beginCallbackCall(callback, true);
    try {
      addStartCallbackImpl(self, callback, userData);
    } finally {
      NativeCalls.end(this);
    }
  }

  public void removeStartCallback(SoSelectionClassCB callback) {
    final long self = beginCallbackCall(callback, false);
    try {
      removeStartCallbackImpl(self, callback);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** Calls {@code callback} when a pick has finished changing the selection. */
  public void addFinishCallback(SoSelectionClassCB callback, Object userData) {
    final long self = beginCallbackCall(callback, true);
    try {
      addFinishCallbackImpl(self, callback, userData);
    } finally {
      NativeCalls.end(this);
    }
  }

  public void removeFinishCallback(SoSelectionClassCB callback) {
    final long self = beginCallbackCall(callback, false);
    try {
      removeFinishCallbackImpl(self, callback);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** Calls {@code callback} each time the list of selected paths changed. */
  public void addChangeCallback(SoSelectionClassCB callback, Object userData) {
    final long self = beginCallbackCall(callback, true);
    try {
      addChangeCallbackImpl(self, callback, userData);
    } finally {
      NativeCalls.end(this);
    }
  }

  public void removeChangeCallback(SoSelectionClassCB callback) {
    final long self = beginCallbackCall(callback, false);
    try {
      removeChangeCallbackImpl(self, callback);
    } finally {
      NativeCalls.end(this);
    }
  }

  /**
   * Makes {@code filter} the pick filter, replacing the one set before;
   * null: none. With {@code callOnlyIfSelectable} it sees only picks under
   * this node.
   */
  public void setPickFilterCallback(SoSelectionPickCB filter, Object userData, boolean callOnlyIfSelectable) {
    final long self = NativeCalls.begin(this, "this");
    try {
      if (filter != null) CallbackAccess.prepare(filter);
      setPickFilterCallbackImpl(self, filter, userData, callOnlyIfSelectable);
    } finally {
      NativeCalls.end(this);
    }
  }

  /** As {@link #setPickFilterCallback(SoSelectionPickCB, Object, boolean)}, for picks under this node only. */
  public void setPickFilterCallback(SoSelectionPickCB filter, Object userData) {
    setPickFilterCallback(filter, userData, true);
  }

  private static native void addSelectionCallbackImpl(long self, SoSelectionPathCB cb, Object userData);
  private static native void removeSelectionCallbackImpl(long self, SoSelectionPathCB cb);
  private static native void addDeselectionCallbackImpl(long self, SoSelectionPathCB cb, Object userData);
  private static native void removeDeselectionCallbackImpl(long self, SoSelectionPathCB cb);
  private static native void addStartCallbackImpl(long self, SoSelectionClassCB cb, Object userData);
  private static native void removeStartCallbackImpl(long self, SoSelectionClassCB cb);
  private static native void addFinishCallbackImpl(long self, SoSelectionClassCB cb, Object userData);
  private static native void removeFinishCallbackImpl(long self, SoSelectionClassCB cb);
  private static native void addChangeCallbackImpl(long self, SoSelectionClassCB cb, Object userData);
  private static native void removeChangeCallbackImpl(long self, SoSelectionClassCB cb);
  private static native void setPickFilterCallbackImpl(long self, SoSelectionPickCB cb, Object userData,
      boolean callOnlyIfSelectable);
