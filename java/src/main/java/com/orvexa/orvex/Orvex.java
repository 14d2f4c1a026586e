package com.orvexa.orvex;

import com.orvexa.internal.NativeResourceHandle;
import com.orvexa.internal.ObjectManager;
import com.orvexa.internal.natives.JarNativeLibraries;
import java.io.File;
import java.util.Objects;
import java.util.function.Consumer;

/**
 * Root of the binding: loading this class starts the native side, and every
 * wrapper class of a native toolkit object extends it.
 *
 * <h2>Start-up</h2>
 * The static initialiser loads {@code liborvexjava}: from the directory named
 * by the system property {@code orvex.library.path} when it is set, else
 * through {@link System#loadLibrary} when a directory of
 * {@code java.library.path} holds it, else from the copies of the native
 * libraries that the jar carries (see {@link JarNativeLibraries}). It then
 * hands the virtual machine to the native
 * side, switches the native debug trace on when the system property
 * {@code orvex.native.debug} is {@code true}, initialises the toolkit and its
 * modules, and starts the {@link RealTimeManager} that drives the toolkit's
 * timer queue. Classes with native methods that may be touched before any
 * wrapper call {@link #init()} in their own static initialiser.
 *
 * <h2>Native handle conventions</h2>
 * A wrapper stands for one native object, whose address (the native handle)
 * is kept in a {@link NativeResourceHandle}; the handle's class decides how
 * the native object is released when the wrapper is collected:
 * <ul>
 * <li>reference-counted toolkit objects ({@code SoBase} descendants) use
 *   {@link com.orvexa.internal.RefCountedNativeResourceHandle}, which holds one
 *   reference for as long as the wrapper lives;</li>
 * <li>plain objects owned by Java use a nested class
 *   {@code <Class>.NativeResourceHandle} extending
 *   {@link NativeResourceHandle} whose release calls the class's native
 *   {@code deleteNativeHandleImpl(long)};</li>
 * <li>objects that the toolkit owns and only lends to Java (the action of a
 *   callback, an event) use {@link NativeResourceHandle#borrowed(long)}.</li>
 * </ul>
 * Every wrapper class declares the constructor
 * {@code protected X(NativeResourceHandle handle) { super(handle); }}: the
 * {@link ObjectManager} calls it reflectively to wrap a native object that
 * native code hands to Java, and the public constructors of a class call it
 * with the handle of the native object they create, e.g.
 * {@code public SoSeparator() { super(new RefCountedNativeResourceHandle(ctorImpl())); }}.
 * Adopting a handle registers the wrapper with the {@link ObjectManager}, so
 * that native code handing the same address back to Java gets this object.
 *
 * <h2>Threads and lifetime</h2>
 * A wrapper may be used from any thread, but it adds no locking of its own:
 * calls on one native object from several threads at once are safe exactly
 * when the toolkit says so for that object (value types, being Java arrays,
 * follow the usual rules for unsynchronised Java state). What the wrapper does
 * guarantee is memory safety of its lifetime: every method that reaches the
 * native object marks a call in flight for the duration of the native call, so
 * neither {@link #dispose()} on another thread nor the garbage collector's
 * clean-up frees the object under a running call; the object is freed when
 * the last such call returns. A method called after {@code dispose()} throws
 * {@link IllegalStateException}; a {@code null} argument that the toolkit does
 * not accept throws {@link NullPointerException} naming the parameter, and a
 * primitive array of the wrong length {@link IllegalArgumentException}.
 */
public class Orvex {
  // A lambda, not System.err::println, which would bind the stream of class
  // initialisation: the default must follow System.setErr.
  private static final Consumer<String> DEFAULT_ERROR_LISTENER = message -> System.err.println(message);
  private static volatile Consumer<String> errorListener = DEFAULT_ERROR_LISTENER;

  static {
    loadNativeLibrary();
    checkJVM();
    setNativeDebug(Boolean.getBoolean("orvex.native.debug"));
    initNativeOrx((int) System.currentTimeMillis());
    RealTimeManager.start();
  }

  private volatile NativeResourceHandle nativeResourceHandle;

  /** For wrappers whose native object is attached later with {@link #adoptNativeResourceHandle}. */
  protected Orvex() {}

  /** Wraps the native object of {@code handle}; see the class comment. */
  protected Orvex(NativeResourceHandle handle) {
    adoptNativeResourceHandle(handle);
  }

  /**
   * Makes {@code handle} the native counterpart of this wrapper: it is
   * released when this wrapper becomes unreachable (or by {@link #dispose()}),
   * and the wrapper becomes the managed object of its address.
   */
  protected final void adoptNativeResourceHandle(NativeResourceHandle handle) {
    Objects.requireNonNull(handle, "handle");
    if (nativeResourceHandle != null) {
      throw new IllegalStateException("the wrapper already has a native object");
    }
    handle.attachTo(this);
    nativeResourceHandle = handle;
    ObjectManager.register(this);
  }

  /** The native handle (address) of this wrapper's object; 0 when it has none or was disposed. */
  public long getNativeResourceHandleInternal() {
    NativeResourceHandle handle = nativeResourceHandle;
    return handle == null ? 0L : handle.getAddress();
  }

  /** The handle object itself, or null. */
  public final NativeResourceHandle getNativeResourceHandle() {
    return nativeResourceHandle;
  }

  /**
   * Releases the native object now instead of at collection time. The wrapper
   * must not be used afterwards.
   */
  public void dispose() {
    NativeResourceHandle handle = nativeResourceHandle;
    if (handle == null) return;
    ObjectManager.unregister(this);
    handle.release();
  }

  /** Triggers the start-up above if it has not run yet; does nothing otherwise. */
  public static void init() {}

  /**
   * Called by the native error handler with the text of each toolkit error of
   * the routed classes (read, memory and OpenGL errors), on the thread that
   * posted the error; forwards it to the current listener.
   */
  public static void printErrorMessage(String message) {
    errorListener.accept(message);
  }

  /**
   * Replaces the receiver of toolkit error messages (default: one line on
   * {@code System.err}); {@code null} restores the default. Returns the
   * previous listener. Listeners may be called on toolkit threads.
   */
  public static Consumer<String> setErrorListener(Consumer<String> listener) {
    Consumer<String> previous = errorListener;
    errorListener = listener == null ? DEFAULT_ERROR_LISTENER : listener;
    return previous;
  }

  private static void loadNativeLibrary() {
    String libraryFile = System.mapLibraryName("orvexjava");
    String directory = System.getProperty("orvex.library.path");
    if (directory != null && !directory.isEmpty()) {
      System.load(new File(directory, libraryFile).getAbsolutePath());
    } else if (isOnJavaLibraryPath(libraryFile) || !JarNativeLibraries.available()) {
      // Without libraries in the jar, loadLibrary gives the JVM's usual error.
      System.loadLibrary("orvexjava");
    } else {
      JarNativeLibraries.load();
    }
  }

  private static boolean isOnJavaLibraryPath(String libraryFile) {
    for (String folder : System.getProperty("java.library.path", "").split(File.pathSeparator)) {
      if (!folder.isEmpty() && new File(folder, libraryFile).isFile()) return true;
    }
    return false;
  }

  private static native void checkJVM();

  private static native void setNativeDebug(boolean enable);

  private static native void initNativeOrx(int milliseconds);
}
