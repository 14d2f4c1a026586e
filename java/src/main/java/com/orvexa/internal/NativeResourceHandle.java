package com.orvexa.internal;

import java.lang.ref.Cleaner;
import java.util.concurrent.atomic.AtomicLong;

/**
 * The native handle of a wrapper: the address of its native object plus the
 * way that object is released. The release runs once, either explicitly
 * ({@link #release()}) or through a {@link Cleaner} when the wrapper that
 * adopted the handle becomes unreachable. A handle therefore must never refer
 * back to its wrapper.
 *
 * <p>Generated classes of plain owned objects declare a nested
 * {@code NativeResourceHandle} subclass whose {@link #releaseNative(long)}
 * calls the class's native {@code deleteNativeHandleImpl(long)}.
 */
public abstract class NativeResourceHandle {
  private static final Cleaner CLEANER = Cleaner.create();

  private final AtomicLong address;
  private volatile Cleaner.Cleanable cleanable;

  protected NativeResourceHandle(long address) {
    this.address = new AtomicLong(address);
  }

  /** The native address; 0 once released. */
  public final long getAddress() {
    return address.get();
  }

  /** True once the native object has been released through this handle. */
  public final boolean isReleased() {
    return address.get() == 0L;
  }

  /** Releases the native object now; later calls do nothing. */
  public final void release() {
    Cleaner.Cleanable c = cleanable;
    if (c != null) {
      c.clean();  // runs releaseOnce() at most once, and deregisters it
    } else {
      releaseOnce();
    }
  }

  /**
   * Ties the release to the reachability of {@code owner}. Called once, by
   * the wrapper that adopts this handle.
   */
  public final void attachTo(Object owner) {
    if (cleanable != null) throw new IllegalStateException("handle already attached to a wrapper");
    cleanable = CLEANER.register(owner, new Releaser(this));
  }

  /** Releases the native object at {@code address} (never 0). Runs at most once. */
  protected abstract void releaseNative(long address);

  private void releaseOnce() {
    long a = address.getAndSet(0L);
    if (a != 0L) releaseNative(a);
  }

  /** A handle for a native object that the toolkit owns: releasing it does nothing. */
  public static NativeResourceHandle borrowed(long address) {
    return new Borrowed(address);
  }

  /** Holds the handle, not the wrapper, so that the wrapper can become unreachable. */
  private static final class Releaser implements Runnable {
    private final NativeResourceHandle handle;

    Releaser(NativeResourceHandle handle) {
      this.handle = handle;
    }

    @Override
    public void run() {
      handle.releaseOnce();
    }
  }

  private static final class Borrowed extends NativeResourceHandle {
    Borrowed(long address) {
      super(address);
    }

    @Override
    protected void releaseNative(long address) {}
  }
}
