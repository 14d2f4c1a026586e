package com.orvexa.orvex.misc.callbacks;

import com.orvexa.internal.CallbackAccess;
import com.orvexa.orvex.Orvex;
import java.lang.ref.Cleaner;

/**
 * Base of the Java callbacks that the toolkit calls through a function
 * pointer and a user-data pointer (traversal callbacks of actions, event
 * callbacks, the function of an {@code SoCallback} node, the sensor
 * manager's changed callback). Each kind {@code <Kind>CB} wraps a functional
 * interface, so a lambda is a callback:
 *
 * <pre>{@code
 * SoTriangleCB counter = new SoTriangleCB((action, v1, v2, v3, data) -> triangles.increment());
 * action.addTriangleCallback("Shape", counter, null);
 * }</pre>
 *
 * <h2>Native callback object</h2>
 * The first registration makes the callback's native object, which the
 * toolkit receives as its user data; the same native object (the same
 * pointer) serves every later registration of this callback, with any
 * toolkit object. While at least one toolkit object holds the callback, the
 * native object keeps this Java object alive (a JNI global reference); once
 * every holder has removed it, or has itself been destroyed, nothing native
 * refers to this object any more, and when the program drops it too, its
 * clean-up deletes the native object, once. The program never releases
 * anything by hand.
 *
 * <h2>User data</h2>
 * The user data given at a registration is stored on this object (field
 * {@code userData}) and handed to the function on every call; a callback
 * registered twice with different user data sees the latest.
 *
 * <h2>Threads and exceptions</h2>
 * The function runs on the thread on which the toolkit calls back. An
 * exception it throws on a Java thread (typically the one that applied the
 * action) is left pending and reaches that Java caller when the native call
 * returns; until then no further callback reaches Java on that thread, and
 * traversal callbacks that answer a response make the traversal stop. On a
 * native thread that the binding attached for the call, where no Java caller
 * exists, the exception is printed on {@code System.err} and cleared.
 */
public abstract class NCallback {
  private static final Cleaner CLEANER = Cleaner.create();

  static {
    Orvex.init();
    CallbackAccess.register(NCallback::prepareNative);
  }

  /** Address of the native callback object (0 before the first registration); written natively. */
  private long addressCB;

  /** User data of the latest registration; written natively by the registration entry points. */
  private volatile Object userData;

  NCallback() {}

  /** The user data given at the latest registration of this callback. */
  public final Object getUserData() {
    return userData;
  }

  /** Makes the kind's native callback object and stores its address in {@code addressCB}. */
  abstract void constructor();

  /** The clean-up that deletes the native object once; null before the first registration. */
  private Cleaner.Cleanable cleanup;

  /**
   * Deletes the native callback object now, for a callback no toolkit object
   * holds. It runs the clean-up itself, which therefore deletes nothing
   * later, and clears the address: a second call does nothing.
   */
  final void deleteNativeCallback() {
    Cleaner.Cleanable c;
    synchronized (this) {
      c = cleanup;
      cleanup = null;
      addressCB = 0L;
    }
    if (c != null) c.clean();
  }

  /** The native object's address, for tests of the life cycle; 0 before the first registration. */
  final synchronized long nativeAddress() {
    return addressCB;
  }

  /** Makes the native object before the first registration. */
  private static void prepareNative(NCallback callback) {
    synchronized (callback) {
      if (callback.addressCB != 0L) return;
      callback.constructor();
      long address = callback.addressCB;
      if (address == 0L) throw new OutOfMemoryError("no memory for a native callback object");
      callback.cleanup = CLEANER.register(callback, () -> deleteNativeCallbackAt(address));
    }
  }

  /** The explicit null check of a constructor argument. */
  static <T> T required(T value, String parameter) {
    if (value == null) throw new NullPointerException(parameter + " must not be null");
    return value;
  }

  /** Lets go of a wrapper that native code lent for the duration of a call. */
  static void releaseLent(Orvex wrapper) {
    if (wrapper != null) wrapper.dispose();
  }

  private static native void deleteNativeCallbackAt(long address);

  /** How many native callback objects exist now. */
  static native long liveNativeCallbacks();

  /** How many global references native callback objects hold now. */
  static native long heldReferences();

  /** How many registrations hold the native callback object at {@code address}. */
  static native int holdCount(long address);
}
