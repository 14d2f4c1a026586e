package com.orvexa.internal;

import java.util.Map;
import java.util.concurrent.ConcurrentHashMap;

/**
 * The raw-address operations of the generated wrapper classes, for generated
 * code of other packages. Those operations trust any address they are given,
 * so the classes keep them package-private and hand them, through this
 * registry, only to the binding's own code: nothing public in the binding's
 * API packages takes an address.
 */
public final class NativeAccess {
  private NativeAccess() {}

  /** What a class can make of native addresses. Operations a class does not have throw. */
  public interface Ops<T> {
    /** A new value holding a copy of the toolkit value at {@code address}. */
    default T copy(long address) {
      throw new UnsupportedOperationException("not a value type");
    }

    /** A wrapper that owns (and eventually frees) the native object at {@code address}; null for 0. */
    default T adopt(long address) {
      throw new UnsupportedOperationException("not an owned class");
    }

    /** Copies, owned by Java, of {@code count} contiguous native objects at {@code address}. */
    default T[] copies(long address, int count) {
      throw new UnsupportedOperationException("no arrays of this class");
    }
  }

  private static final Map<Class<?>, Ops<?>> OPS = new ConcurrentHashMap<>();

  /** Called once by each generated class, from its static initialiser. */
  public static <T> void register(Class<T> cls, Ops<T> ops) {
    OPS.put(cls, ops);
  }

  /** The operations of {@code cls}, initialising the class first if it has not registered yet. */
  @SuppressWarnings("unchecked")
  public static <T> Ops<T> of(Class<T> cls) {
    Ops<?> ops = OPS.get(cls);
    if (ops == null) {
      try {
        Class.forName(cls.getName(), true, cls.getClassLoader());
      } catch (ClassNotFoundException e) {
        throw new IllegalStateException(e);
      }
      ops = OPS.get(cls);
      if (ops == null) throw new IllegalStateException(cls.getName() + " has no native access");
    }
    return (Ops<T>) ops;
  }
}
