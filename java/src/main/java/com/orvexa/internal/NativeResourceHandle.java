package com.orvexa.internal;

import java.lang.ref.Cleaner;
import java.util.HashMap;
import java.util.Map;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.concurrent.atomic.AtomicIntegerFieldUpdater;

/**
 * The native handle of a wrapper: the address of its native object plus the
 * way that object is released. The release runs once, either explicitly
 * ({@link #release()}) or through a {@link Cleaner} when the wrapper that
 * adopted the handle becomes unreachable. A handle therefore must never refer
 * back to its wrapper.
 *
 * <h2>Calls in flight</h2>
 * Every call that hands the address to native code brackets the native call
 * with {@link #acquire()} and {@link #endUse()}. A release requested while
 * calls are in flight (an explicit {@code dispose()} on another thread, or
 * the {@code Cleaner} of a wrapper that the JIT already considers dead while
 * its method still runs) only marks the handle; the last call to finish
 * frees the native object. A call that starts after the release request
 * fails with {@link IllegalStateException} instead of reaching freed memory.
 *
 * <h2>Objects lent until the next renewal</h2>
 * Some objects live inside their lender only until the lender's next call of
 * a certain kind: an action frees the picked points of one traversal when
 * the next one starts. Their handles ({@link #lentUntilRenewed}) remember the
 * lender's renewal count when they were lent; the lender's {@link #renew()}
 * (called before such a call) makes every one of them refuse further calls
 * with {@link IllegalStateException}, instead of reaching freed memory.
 *
 * <h2>Held objects</h2>
 * A native object that keeps using another after a call returns (a renderer
 * its render action) holds that object's handle ({@link #hold}): the held
 * object counts as in use until it is replaced in its slot or this object is
 * freed, so disposing of it, or losing its wrapper, frees nothing meanwhile.
 *
 * <p>Generated classes of plain owned objects declare a nested
 * {@code NativeResourceHandle} subclass whose {@link #releaseNative(long)}
 * calls the class's native {@code deleteNativeHandleImpl(long)}.
 */
public abstract class NativeResourceHandle {
  private static final Cleaner CLEANER = Cleaner.create();
  private static final AtomicIntegerFieldUpdater<NativeResourceHandle> RENEWALS =
      AtomicIntegerFieldUpdater.newUpdater(NativeResourceHandle.class, "renewals");

  /** Sign bit of {@link #state}: release requested. The other bits count the calls in flight. */
  private static final int RELEASE_REQUESTED = Integer.MIN_VALUE;

  private final long address;
  /** The handle of the object that owns this one's native object (a node for its field), or null. */
  private final NativeResourceHandle lender;
  /** How often this object, as a lender, has freed what it lent until renewal (see {@link #renew()}). */
  private volatile int renewals;
  /** Whether this handle is lent only until its lender's next renewal. */
  private final boolean untilRenewed;
  /** For a handle lent until renewal, the lender's renewal count when it was lent. */
  private final int lentAtRenewal;
  private final AtomicInteger state = new AtomicInteger();
  /**
   * Whether calls in flight are counted: not for borrowed and lent handles,
   * whose release frees nothing (a lent object's calls count on its lender).
   */
  private final boolean counted = !(this instanceof Borrowed);
  private volatile Cleaner.Cleanable cleanable;
  /** Handles held by slot name (see {@link #hold}); created on first use, guarded by {@code this}. */
  private Map<String, NativeResourceHandle> held;
  /** What runs once the native object is freed (see {@link #whenFreed}); guarded by {@code this}. */
  private java.util.List<Runnable> afterFree;
  /** Set once the native object is freed; guarded by {@code this}. */
  private boolean freed;

  protected NativeResourceHandle(long address) {
    this(address, null, false);
  }

  private NativeResourceHandle(long address, NativeResourceHandle lender, boolean untilRenewed) {
    this.address = address;
    this.lender = lender;
    this.untilRenewed = untilRenewed;
    this.lentAtRenewal = untilRenewed ? lender.renewals : 0;
  }

  /** The native address; 0 once a release has been requested. */
  public final long getAddress() {
    return state.get() < 0 ? 0L : address;
  }

  /** True once the native object has been released, or its release requested, through this handle. */
  public final boolean isReleased() {
    return state.get() < 0;
  }

  /** True when this handle owns its native object: its release frees it (not borrowed, not lent). */
  public final boolean isOwned() {
    return counted;
  }

  /**
   * Starts a call on the native object and returns its address, which stays
   * valid until the matching {@link #endUse()}.
   *
   * @throws IllegalStateException when the object has been released (disposed)
   */
  public final long acquire() {
    if (address == 0L) throw new IllegalStateException("the wrapper has no native object");
    // An object lent by another lives inside it: the owner must be alive, and
    // stay so for the call.
    if (lender != null) {
      lender.acquire();
      if (untilRenewed && lender.renewals != lentAtRenewal) {
        lender.endUse();
        throw new IllegalStateException("the object was freed by its owner when it was used again "
            + "(a picked point by the next apply of its action): ask the owner again");
      }
    }
    if (!counted) {
      // Releasing frees nothing here, so there is nothing to count: only a
      // released handle must refuse the call.
      if (state.get() < 0) {
        if (lender != null) lender.endUse();
        throw new IllegalStateException("the native object has been released (disposed)");
      }
      return address;
    }
    for (;;) {
      int s = state.get();
      if (s < 0 || s == Integer.MAX_VALUE) {
        if (lender != null) lender.endUse();
        throw new IllegalStateException(s < 0 ? "the native object has been released (disposed)"
            : "too many calls in flight");
      }
      if (state.compareAndSet(s, s + 1)) return address;
    }
  }

  /** Ends a call started by {@link #acquire()}; frees the object if its release was requested meanwhile. */
  public final void endUse() {
    if (counted && state.decrementAndGet() == RELEASE_REQUESTED) free();
    if (lender != null) lender.endUse();
  }

  /**
   * Frees, as far as Java is concerned, every object this one lent until
   * renewal: their handles refuse calls from now on. Called before the
   * member that frees them natively.
   */
  public final void renew() {
    RENEWALS.incrementAndGet(this);
  }

  /**
   * True for a lent handle whose object is gone with its lender: the lender
   * (or one of its own lenders) has been released, or renewed since this
   * handle was lent until renewal. A wrapper with a stale handle must not
   * stand for a new object that happens to have the same address.
   */
  public final boolean isStale() {
    if (lender == null) return false;
    return (untilRenewed && lender.renewals != lentAtRenewal) || lender.isReleased() || lender.isStale();
  }

  /**
   * Keeps {@code other}'s native object in use, in place of the one held so
   * far in {@code slot} (which is let go); null lets go of the slot only.
   *
   * @throws IllegalStateException when {@code other} has been released
   * @throws IllegalArgumentException when {@code other}'s object belongs to
   *     the toolkit alone (handed to a callback, say), which may free it at
   *     any time
   */
  public final void hold(String slot, NativeResourceHandle other) {
    if (other != null && !other.counted && other.lender == null) {
      throw new IllegalArgumentException("an object the toolkit lends only for a call cannot be kept");
    }
    if (other != null) other.acquire();
    NativeResourceHandle previous;
    synchronized (this) {
      if (held == null) held = new HashMap<>(2);
      previous = other == null ? held.remove(slot) : held.put(slot, other);
    }
    if (previous != null) previous.endUse();
  }

  /**
   * Runs {@code task} once this handle's native object has been freed (at
   * once if it already has): for what the native object may use until its
   * very end, such as the callbacks registered with it, which must outlive
   * it even where the wrapper is gone but another object still holds it.
   * Nothing runs for a handle whose release frees nothing.
   */
  public final void whenFreed(Runnable task) {
    if (!counted) return;
    synchronized (this) {
      if (!freed) {
        if (afterFree == null) afterFree = new java.util.ArrayList<>(1);
        afterFree.add(task);
        return;
      }
    }
    task.run();
  }

  private void free() {
    releaseNative(address);
    Map<String, NativeResourceHandle> letGo;
    java.util.List<Runnable> tasks;
    synchronized (this) {
      freed = true;
      letGo = held;
      held = null;
      tasks = afterFree;
      afterFree = null;
    }
    // After the native object is gone: it may have used them until then.
    if (tasks != null) for (Runnable task : tasks) task.run();
    if (letGo != null) for (NativeResourceHandle h : letGo.values()) h.endUse();
  }

  /** Releases the native object now, or once the calls in flight end; later calls do nothing. */
  public final void release() {
    Cleaner.Cleanable c = cleanable;
    if (c != null) {
      c.clean();  // runs requestRelease() at most once, and deregisters it
    } else {
      requestRelease();
    }
  }

  /**
   * Ties the release to the reachability of {@code owner}. Called once, by
   * the wrapper that adopts this handle.
   */
  public final void attachTo(Object owner) {
    if (cleanable != null) throw new IllegalStateException("handle already attached to a wrapper");
    // A handle whose release frees nothing needs no clean-up when its wrapper
    // goes: registering one would only load the collector.
    if (this instanceof Borrowed) return;
    cleanable = CLEANER.register(owner, new Releaser(this));
  }

  /** Releases the native object at {@code address} (never 0). Runs at most once. */
  protected abstract void releaseNative(long address);

  private void requestRelease() {
    for (;;) {
      int s = state.get();
      if (s < 0) return;
      if (state.compareAndSet(s, s | RELEASE_REQUESTED)) {
        if (s == 0 && address != 0L) free();
        return;
      }
    }
  }

  /** A handle for a native object that the toolkit owns: releasing it does nothing. */
  public static NativeResourceHandle borrowed(long address) {
    return new Borrowed(address, null, false);
  }

  /**
   * A handle for a native object that lives inside the object of {@code lender}
   * (a field of a node): releasing it does nothing, and calls on it fail with
   * {@link IllegalStateException} once the lender has been released.
   */
  public static NativeResourceHandle lentBy(long address, NativeResourceHandle lender) {
    return new Borrowed(address, lender, false);
  }

  /**
   * As {@link #lentBy}, for an object that lives inside the lender's object
   * only until the lender's next {@link #renew()}: afterwards calls on it fail
   * with {@link IllegalStateException}.
   */
  public static NativeResourceHandle lentUntilRenewed(long address, NativeResourceHandle lender) {
    return new Borrowed(address, lender, true);
  }

  /** Holds the handle, not the wrapper, so that the wrapper can become unreachable. */
  private static final class Releaser implements Runnable {
    private final NativeResourceHandle handle;

    Releaser(NativeResourceHandle handle) {
      this.handle = handle;
    }

    @Override
    public void run() {
      handle.requestRelease();
    }
  }

  private static final class Borrowed extends NativeResourceHandle {
    Borrowed(long address, NativeResourceHandle lender, boolean untilRenewed) {
      super(address, lender, untilRenewed);
    }

    @Override
    protected void releaseNative(long address) {}
  }
}
