package com.orvexa.internal;

import com.orvexa.orvex.Orvex;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.concurrent.ConcurrentHashMap;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.function.Supplier;

/**
 * The Java side of toolkit types that Java defines or resolves.
 *
 * <p>When the toolkit meets a type name it does not know, native code asks
 * {@link #handleUnknownType(String)}, which offers the name to the registered
 * {@link UnknownTypeHandler}s; the first one that answers a type name (of a
 * type it has just registered, or of an existing type to use instead) wins.
 *
 * <p>When the toolkit must create an instance of a Java-defined type (reading
 * a file, copying a scene graph), native code calls
 * {@link #newInstance(String)}, which runs the factory registered for the
 * type name and answers the new wrapper's native handle. The factory's
 * wrapper must stay reachable for as long as the toolkit uses the object (a
 * Java-extended class keeps its peer, see the custom class framework).
 */
public final class DynamicTypeManager {
  /** Offered each type name that the toolkit does not know. */
  @FunctionalInterface
  public interface UnknownTypeHandler {
    /** The name of the toolkit type to use for {@code typeName}, or null to pass. */
    String handleUnknownType(String typeName);
  }

  private static final List<UnknownTypeHandler> HANDLERS = new CopyOnWriteArrayList<>();
  private static final Map<String, Supplier<? extends Orvex>> FACTORIES = new ConcurrentHashMap<>();

  private DynamicTypeManager() {}

  public static void addUnknownTypeHandler(UnknownTypeHandler handler) {
    HANDLERS.add(Objects.requireNonNull(handler, "handler"));
  }

  public static boolean removeUnknownTypeHandler(UnknownTypeHandler handler) {
    return HANDLERS.remove(handler);
  }

  /** Registers the factory that creates instances of the Java-defined type {@code typeName}. */
  public static void registerType(String typeName, Supplier<? extends Orvex> factory) {
    FACTORIES.put(Objects.requireNonNull(typeName, "typeName"), Objects.requireNonNull(factory, "factory"));
  }

  public static boolean unregisterType(String typeName) {
    return FACTORIES.remove(typeName) != null;
  }

  public static boolean isRegistered(String typeName) {
    return FACTORIES.containsKey(typeName);
  }

  /** Called by native code: the type name to use for {@code typeName}, or null (the type stays unknown). */
  public static String handleUnknownType(String typeName) {
    for (UnknownTypeHandler handler : HANDLERS) {
      String answer = handler.handleUnknownType(typeName);
      if (answer != null) return answer;
    }
    return null;
  }

  /**
   * Called by native code: creates an instance of the Java-defined type
   * {@code typeName} and answers its native handle.
   *
   * @throws IllegalArgumentException when no factory is registered for the name
   */
  public static long newInstance(String typeName) {
    Supplier<? extends Orvex> factory = FACTORIES.get(typeName);
    if (factory == null) throw new IllegalArgumentException("no Java class registered for the type " + typeName);
    Orvex object = factory.get();
    if (object == null) throw new IllegalArgumentException("the factory of " + typeName + " returned null");
    return object.getNativeResourceHandleInternal();
  }
}
