package com.orvexa.internal;

import com.orvexa.orvex.Orvex;

/**
 * Brackets the native calls of generated wrappers: {@code begin} checks an
 * object argument (or the receiver) and marks a call in flight on its native
 * object, {@code end} ends it. Between the two the object cannot be freed,
 * neither by {@code dispose()} on another thread nor by the garbage
 * collector's clean-up (see {@link NativeResourceHandle}).
 */
public final class NativeCalls {
  private NativeCalls() {}

  /**
   * The address of {@code object}'s native object, with a call marked in flight.
   *
   * @throws NullPointerException naming {@code parameter} when {@code object} is null
   * @throws IllegalStateException when the object has been disposed or has no native object
   */
  public static long begin(Orvex object, String parameter) {
    if (object == null) throw new NullPointerException(parameter + " must not be null");
    NativeResourceHandle handle = object.getNativeResourceHandle();
    if (handle == null) throw new IllegalStateException(object.getClass().getName() + " has no native object");
    return handle.acquire();
  }

  /** As {@link #begin}, for an argument that may be null: 0 for null. */
  public static long beginOrNull(Orvex object) {
    return object == null ? 0L : begin(object, "");
  }

  /** Ends the call marked by {@code begin} or {@code beginOrNull}; does nothing for null. */
  public static void end(Orvex object) {
    if (object != null) object.getNativeResourceHandle().endUse();
  }

  /**
   * Makes {@code receiver}'s native object hold {@code held}'s (see
   * {@link NativeResourceHandle#hold}); null lets go of what {@code slot} held.
   */
  public static void hold(Orvex receiver, String slot, Orvex held) {
    receiver.getNativeResourceHandle().hold(slot, held == null ? null : held.getNativeResourceHandle());
  }

  /**
   * A direct buffer of Java's own holding the bytes of {@code toolkitMemory}
   * (a buffer over memory the toolkit may change or free later), in the
   * platform's byte order, the order of the ints it holds.
   */
  public static java.nio.ByteBuffer copyOfInts(java.nio.ByteBuffer toolkitMemory) {
    java.nio.ByteBuffer copy = java.nio.ByteBuffer.allocateDirect(toolkitMemory.capacity());
    copy.put(toolkitMemory.duplicate().clear()).flip();
    return copy.order(java.nio.ByteOrder.nativeOrder());
  }

  /**
   * Tells {@code receiver}'s handle that the coming call frees what it lent
   * until renewal (see {@link NativeResourceHandle#renew}).
   */
  public static void renew(Orvex receiver) {
    receiver.getNativeResourceHandle().renew();
  }

  /**
   * The addresses of the objects of {@code objects} (0 for null elements),
   * each marked in flight; on failure the objects marked so far are released.
   */
  public static long[] beginAll(Orvex[] objects) {
    long[] handles = new long[objects.length];
    int i = 0;
    try {
      for (; i < objects.length; i++) handles[i] = beginOrNull(objects[i]);
      return handles;
    } catch (RuntimeException e) {
      for (int j = 0; j < i; j++) end(objects[j]);
      throw e;
    }
  }

  /** Ends the calls marked by {@link #beginAll} on the same objects. */
  public static void endAll(Orvex[] objects) {
    for (Orvex o : objects) end(o);
  }

  /**
   * The address a Java object hands back to native code as a result (of a
   * Java override, say): 0 for null; the object must not be disposed.
   */
  public static long addressOf(Orvex object) {
    if (object == null) return 0L;
    NativeResourceHandle handle = object.getNativeResourceHandle();
    long address = handle == null ? 0L : handle.getAddress();
    if (address == 0L) throw new IllegalStateException(object.getClass().getName() + " has been disposed");
    return address;
  }

  /** The exception for a null argument that the toolkit does not accept. */
  public static NullPointerException nullArgument(String parameter) {
    return new NullPointerException(parameter + " must not be null");
  }

  /** The exception for a primitive array of the wrong length. */
  public static IllegalArgumentException wrongLength(String parameter, int expected, int actual) {
    return new IllegalArgumentException(parameter + " needs " + expected + " elements, not " + actual);
  }

  /** The exception for a primitive array that is too short. */
  public static IllegalArgumentException tooShort(String parameter, long expected, int actual) {
    return new IllegalArgumentException(parameter + " needs at least " + expected + " elements, not " + actual);
  }
}
