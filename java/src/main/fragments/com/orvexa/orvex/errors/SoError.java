import java.util.Map;
import java.util.concurrent.ConcurrentHashMap;
import java.util.function.Consumer;

  private static final Map<Class<?>, Consumer<?>> HANDLERS = new ConcurrentHashMap<>();

  /**
   * Routes the toolkit's errors of exactly {@code errorClass} (one of the six
   * error classes) to {@code handler}. The handler runs on the thread that
   * posts the error, with a wrapper that is valid only during the call: the
   * native error lives on the poster's stack. Installing replaces the route
   * installed before for that class, including the start-up route of read,
   * memory and OpenGL errors to {@code Orvex.printErrorMessage}: the last
   * installed route wins. With a null handler the errors of the class still
   * come to Java and their text is printed on {@code System.err}.
   */
  public static <E extends SoError> void setHandler(Class<E> errorClass, Consumer<? super E> handler) {
    if (errorClass == null) throw com.orvexa.internal.NativeCalls.nullArgument("errorClass");
    Runnable install = routeInstaller(errorClass);
    if (handler == null) {
      HANDLERS.remove(errorClass);
    } else {
      HANDLERS.put(errorClass, handler);
    }
    install.run();
  }

  private static Runnable routeInstaller(Class<?> errorClass) {
    if (errorClass == SoError.class) return SoError::initNativeCallback;
    if (errorClass == SoDebugError.class) return SoDebugError::initNativeCallback;
    if (errorClass == SoGLError.class) return SoGLError::initNativeCallback;
    if (errorClass == SoMemoryError.class) return SoMemoryError::initNativeCallback;
    if (errorClass == SoReadError.class) return SoReadError::initNativeCallback;
    if (errorClass == SoErrorStack.class) return SoErrorStack::initNativeCallback;
    throw new IllegalArgumentException("not a toolkit error class: " + errorClass.getName());
  }

  /** Hands a routed error to the handler of its class, then forgets the wrapper. */
  @SuppressWarnings("unchecked")
  static <E extends SoError> void dispatch(Class<E> errorClass, E error) {
    try {
      Consumer<? super E> handler = (Consumer<? super E>) HANDLERS.get(errorClass);
      if (handler != null) {
        handler.accept(error);
      } else {
        System.err.println(error.getDebugString());
      }
    } finally {
      error.dispose();  // the address is a stack address of the poster
    }
  }

  /** Called by the native route of this class with the address of the error being posted. */
  static void invoke(long address) {
    dispatch(SoError.class, new SoError(com.orvexa.internal.NativeResourceHandle.borrowed(address)));
  }

  /** Makes the toolkit's handler of this class call {@link #invoke(long)}. */
  static native void initNativeCallback();
