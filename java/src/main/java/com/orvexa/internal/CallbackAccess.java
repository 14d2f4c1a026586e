package com.orvexa.internal;

import java.util.Objects;
import java.util.function.Consumer;

/**
 * Lets the generated classes that register callbacks (in other packages)
 * make a callback's native object before they hand the callback to native
 * code, without making that step public on the callback classes.
 */
public final class CallbackAccess {
  private static volatile Consumer<Object> preparer;

  private CallbackAccess() {}

  /** Called once, by the callback base class. */
  @SuppressWarnings("unchecked")
  public static <T> void register(Consumer<T> prepare) {
    if (preparer != null) throw new IllegalStateException("callback preparation already registered");
    preparer = (Consumer<Object>) Objects.requireNonNull(prepare);
  }

  /**
   * Makes sure {@code callback} (a {@code com.orvexa.orvex.misc.callbacks}
   * callback, not null) has its native object.
   */
  public static void prepare(Object callback) {
    Consumer<Object> p = preparer;
    if (p == null) {
      try {
        Class.forName("com.orvexa.orvex.misc.callbacks.NCallback", true, CallbackAccess.class.getClassLoader());
      } catch (ClassNotFoundException e) {
        throw new IllegalStateException(e);
      }
      p = preparer;
    }
    p.accept(callback);
  }
}
