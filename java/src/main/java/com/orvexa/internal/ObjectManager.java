package com.orvexa.internal;

import com.orvexa.orvex.Orvex;
import java.lang.ref.ReferenceQueue;
import java.lang.ref.WeakReference;
import java.lang.reflect.Constructor;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.Optional;
import java.util.concurrent.ConcurrentHashMap;
import java.util.function.LongFunction;

/**
 * The identity map of the binding: at most one live wrapper per native
 * address. Wrappers are held weakly, so the map never keeps one alive; a
 * wrapper registers itself when it adopts its handle (see {@link Orvex}).
 *
 * <p>When native code hands an address to Java, the existing wrapper is
 * returned if it is an instance of the requested class; otherwise a new one is
 * made, of the most specific Java class known for the object's run-time
 * toolkit type (asked from native code per family), through the class's
 * {@code (NativeResourceHandle)} constructor.
 *
 * <p>Thread-safe: native callbacks may call in from any thread.
 */
public final class ObjectManager {
  /** Packages searched for the Java class of a toolkit type, after the requested class's own. */
  private static final String[] SEARCH_PATH = {
    "com.orvexa.orvex.fields.",
    "com.orvexa.orvex.",
    "com.orvexa.orvex.misc.",
    "com.orvexa.orvex.details.",
    "com.orvexa.volumelux.details.",
    "com.orvexa.orvex.nodekits.",
    "com.orvexa.orvex.actions.",
    "com.orvexa.orvex.events.",
    "com.orvexa.meshlux.graph.",
    "com.orvexa.meshlux.mesh.",
    "com.orvexa.orvex.nodes.",
    "com.orvexa.meshlux.nodes.",
    "com.orvexa.orvex.draggers.",
    "com.orvexa.orvex.engines.",
    "com.orvexa.orvex.manips.",
    "com.orvexa.orvex.VRMLnodes.",
    "com.orvexa.ldm.fields.",
    "com.orvexa.orvex.shader.fields.",
  };

  /** A family of wrappers whose run-time toolkit type native code can report. */
  private static final class Family {
    final String rootClassName;
    final LongFunction<String> typeNameOf;
    final LongFunction<NativeResourceHandle> handleFor;

    Family(String rootClassName, LongFunction<String> typeNameOf, LongFunction<NativeResourceHandle> handleFor) {
      this.rootClassName = rootClassName;
      this.typeNameOf = typeNameOf;
      this.handleFor = handleFor;
    }
  }

  private static final class Entry extends WeakReference<Orvex> {
    final long address;
    /**
     * False while the wrapper this entry was made for is still being
     * constructed by {@link #instantiate}: the fast path must not hand out an
     * object whose constructor (its final field members) has not finished.
     */
    volatile boolean published;

    Entry(Orvex referent, long address, ReferenceQueue<Orvex> queue) {
      super(referent, queue);
      this.address = address;
    }
  }

  private static final Object LOCK = new Object();
  /** True while {@link #instantiate} runs a constructor; guarded by LOCK. */
  private static boolean instantiating;
  /**
   * Wrappers by native address. Changed only under LOCK; read without it by
   * the lookups' fast path, which returns a live wrapper found there (a live
   * wrapper keeps its native object, so the entry cannot be stale).
   */
  private static final Map<Long, Entry> OBJECTS = new ConcurrentHashMap<>();
  private static final ReferenceQueue<Orvex> COLLECTED = new ReferenceQueue<>();
  private static final List<Family> FAMILIES = new ArrayList<>();
  private static final Map<String, Class<? extends Orvex>> REGISTERED_CLASSES = new ConcurrentHashMap<>();
  private static final Map<String, Optional<Class<?>>> FOUND_CLASSES = new ConcurrentHashMap<>();
  private static final Map<Class<?>, Map<Integer, Enum<?>>> ENUM_VALUES = new ConcurrentHashMap<>();

  static {
    Orvex.init();
    registerFamily("com.orvexa.orvex.misc.SoBase", ObjectManager::getSoBaseNativeTypeName,
        RefCountedNativeResourceHandle::new);
    registerFamily("com.orvexa.orvex.fields.SoField", ObjectManager::getSoFieldNativeTypeName,
        NativeResourceHandle::borrowed);
    registerFamily("com.orvexa.orvex.errors.SoError", ObjectManager::getSoErrorNativeTypeName,
        NativeResourceHandle::borrowed);
    // Actions, events and details that native code hands to Java are lent by
    // the toolkit (the action being applied, the event being handled, the
    // detail of a picked point): Java wraps them without owning them.
    registerFamily("com.orvexa.orvex.actions.SoAction", ObjectManager::getSoActionNativeTypeName,
        NativeResourceHandle::borrowed);
    registerFamily("com.orvexa.orvex.events.SoEvent", ObjectManager::getSoEventNativeTypeName,
        NativeResourceHandle::borrowed);
    registerFamily("com.orvexa.orvex.details.SoDetail", ObjectManager::getSoDetailNativeTypeName,
        NativeResourceHandle::borrowed);
  }

  private ObjectManager() {}

  /**
   * Declares a family of wrappers: classes derived from {@code rootClassName}
   * have their toolkit type reported by {@code typeNameOf} and are given the
   * handles that {@code handleFor} makes when they wrap an existing native
   * object. Families declared later take precedence.
   */
  public static void registerFamily(String rootClassName, LongFunction<String> typeNameOf,
      LongFunction<NativeResourceHandle> handleFor) {
    Family family = new Family(Objects.requireNonNull(rootClassName), Objects.requireNonNull(typeNameOf),
        Objects.requireNonNull(handleFor));
    synchronized (FAMILIES) {
      FAMILIES.add(0, family);
    }
  }

  /** Makes {@code javaClass} the wrapper class of the toolkit type {@code toolkitTypeName}. */
  public static void registerClass(String toolkitTypeName, Class<? extends Orvex> javaClass) {
    REGISTERED_CLASSES.put(Objects.requireNonNull(toolkitTypeName), Objects.requireNonNull(javaClass));
  }

  /** Records a wrapper that has adopted its handle. Called by {@link Orvex}. */
  public static void register(Orvex object) {
    long address = object.getNativeResourceHandleInternal();
    if (address == 0L) return;
    synchronized (LOCK) {
      expungeCollected();
      Entry entry = new Entry(object, address, COLLECTED);
      entry.published = !instantiating;
      OBJECTS.put(address, entry);
    }
  }

  /** Forgets a wrapper that is being disposed. */
  public static void unregister(Orvex object) {
    long address = object.getNativeResourceHandleInternal();
    synchronized (LOCK) {
      Entry entry = OBJECTS.get(address);
      if (entry != null && entry.get() == object) OBJECTS.remove(address, entry);
    }
  }

  /** The live wrapper registered for {@code address}, or null. */
  public static Orvex lookup(long address) {
    synchronized (LOCK) {
      expungeCollected();
      Entry entry = OBJECTS.get(address);
      return entry == null ? null : entry.get();
    }
  }

  /** The wrapper of the native object at {@code address} as an instance of {@code javaClass}; null for 0. */
  public static <T extends Orvex> T getManagedObject(Class<T> javaClass, long address) {
    return javaClass.cast(getManagedObjectForInternal(javaClass, address));
  }

  /**
   * The wrapper of the native object at {@code address} that lives inside the
   * object of {@code lender} (a field of a node): the existing one, or a new
   * one whose calls need the lender alive. Null for 0.
   */
  public static <T extends Orvex> T getLentObject(Class<T> javaClass, long address, Orvex lender) {
    return getLentObject(javaClass, address, lender, false);
  }

  /**
   * As {@link #getLentObject(Class, long, Orvex)}, for an object that lives
   * inside the lender only until the lender is renewed (a picked point until
   * its action's next apply): a wrapper from before the renewal is not
   * reused, even when the new object has the old one's address.
   */
  public static <T extends Orvex> T getLentObjectUntilRenewed(Class<T> javaClass, long address, Orvex lender) {
    return getLentObject(javaClass, address, lender, false, true);
  }

  /**
   * As {@link #getLentObject(Class, long, Orvex)}; with {@code exact}, the
   * native object is known to be of exactly the toolkit class of
   * {@code javaClass} (a field member of its declared class), so its run-time
   * type is not asked for.
   */
  public static <T extends Orvex> T getLentObject(Class<T> javaClass, long address, Orvex lender, boolean exact) {
    return getLentObject(javaClass, address, lender, exact, false);
  }

  private static <T extends Orvex> T getLentObject(Class<T> javaClass, long address, Orvex lender, boolean exact,
                                                   boolean untilRenewed) {
    if (address == 0L) return null;
    T live = liveAs(javaClass, address);
    if (live != null && !live.getNativeResourceHandle().isStale()) return live;
    synchronized (LOCK) {
      T existing = registeredAs(javaClass, address);
      if (existing != null && !existing.getNativeResourceHandle().isStale()) return existing;
      Class<? extends T> target = javaClass;
      if (!exact) {
        Family family = familyOf(javaClass);
        String typeName = family == null ? null : family.typeNameOf.apply(address);
        target = mostSpecificClass(javaClass, typeName);
      }
      NativeResourceHandle lenderHandle = lender.getNativeResourceHandle();
      return javaClass.cast(instantiate(target, untilRenewed
          ? NativeResourceHandle.lentUntilRenewed(address, lenderHandle)
          : NativeResourceHandle.lentBy(address, lenderHandle)));
    }
  }

  /** The live wrapper registered for {@code address} if it is a {@code javaClass}, else null. Under LOCK. */
  private static <T extends Orvex> T registeredAs(Class<T> javaClass, long address) {
    expungeCollected();
    Entry entry = OBJECTS.get(address);
    Orvex existing = entry == null ? null : entry.get();
    return javaClass.isInstance(existing) ? javaClass.cast(existing) : null;
  }

  /**
   * As {@link #registeredAs}, without the lock or the clean-up of collected
   * entries, and only for wrappers whose construction is complete.
   */
  private static <T extends Orvex> T liveAs(Class<T> javaClass, long address) {
    Entry entry = OBJECTS.get(address);
    Orvex existing = entry == null || !entry.published ? null : entry.get();
    return javaClass.isInstance(existing) ? javaClass.cast(existing) : null;
  }

  /** Called by native code with a dotted or slash-separated class name. */
  public static Orvex getManagedObjectForInternal(String className, long address) {
    return getManagedObjectForInternal(loadClass(className), address);
  }

  /**
   * A wrapper of the most specific class for a native object that Java now
   * owns through {@code handle} (a copy the toolkit made for the caller): it
   * is freed with the wrapper. A wrapper still registered at that address
   * stood for an object that is gone, since the address is new to Java.
   */
  public static <T extends Orvex> T adopt(Class<T> javaClass, NativeResourceHandle handle) {
    Family family = familyOf(javaClass);
    String typeName = family == null ? null : family.typeNameOf.apply(handle.getAddress());
    synchronized (LOCK) {
      return javaClass.cast(instantiate(mostSpecificClass(javaClass, typeName), handle));
    }
  }

  /** Called by native code: the wrapper of the native object at {@code address}; null for 0. */
  public static Orvex getManagedObjectForInternal(Class<?> javaClass, long address) {
    return getManagedObjectForType(asWrapperClass(javaClass), address, null);
  }

  /**
   * The wrapper of the native object at {@code address} whose toolkit type is
   * {@code toolkitTypeName} (asked from native code when null).
   */
  public static <T extends Orvex> T getManagedObjectForType(Class<T> javaClass, long address, String toolkitTypeName) {
    if (address == 0L) return null;
    T live = liveAs(javaClass, address);
    if (live != null) return live;
    synchronized (LOCK) {
      T existing = registeredAs(javaClass, address);
      if (existing != null) return existing;
      Family family = familyOf(javaClass);
      String typeName = toolkitTypeName;
      if (typeName == null && family != null) typeName = family.typeNameOf.apply(address);
      Class<? extends T> target = mostSpecificClass(javaClass, typeName);
      NativeResourceHandle handle =
          family != null ? family.handleFor.apply(address) : NativeResourceHandle.borrowed(address);
      return javaClass.cast(instantiate(target, handle));
    }
  }

  /** Called by native code: the constant of {@code enumClassName} whose {@code getValue()} is {@code value}, or null. */
  public static Enum<?> getEnumValueOf(String enumClassName, int value) {
    Class<?> enumClass = loadClass(enumClassName);
    if (!enumClass.isEnum()) throw new IllegalArgumentException(enumClassName + " is not an enumeration");
    return ENUM_VALUES.computeIfAbsent(enumClass, ObjectManager::valueTable).get(value);
  }

  /** Called by native code: a new instance of the class, through its no-argument constructor. */
  public static Object newInstance(String className) {
    Class<?> cls = loadClass(className);
    try {
      Constructor<?> ctor = cls.getDeclaredConstructor();
      ctor.setAccessible(true);
      return ctor.newInstance();
    } catch (InvocationTargetException e) {
      throw rethrow(e);
    } catch (ReflectiveOperationException e) {
      throw new IllegalArgumentException("cannot instantiate " + className, e);
    }
  }

  /** The Java simple class name for a toolkit type name (the rules of the native class search). */
  public static String javaSimpleNameOf(String toolkitTypeName) {
    String name = toolkitTypeName;
    if (!name.startsWith("So") && !name.startsWith("Po")) name = "So" + name;
    int at = name.indexOf("Int32");
    if (at >= 0) name = name.substring(0, at + 3);
    at = name.indexOf("i32");
    if (at >= 0) name = name.substring(0, at + 1);
    if ((name.startsWith("SoSFU") || name.startsWith("SoMFU")) && name.length() > 5
        && name.charAt(5) >= 'A' && name.charAt(5) <= 'Z') {
      name = name.substring(0, 4) + name.substring(5);
    }
    return name;
  }

  private static <T extends Orvex> Class<? extends T> mostSpecificClass(Class<T> requested, String typeName) {
    if (typeName == null) return requested;
    Class<?> registered = REGISTERED_CLASSES.get(typeName);
    if (registered != null && requested.isAssignableFrom(registered)) return registered.asSubclass(requested);
    String simpleName = javaSimpleNameOf(typeName);
    Class<?> found = FOUND_CLASSES.computeIfAbsent(requested.getPackageName() + "|" + simpleName,
        key -> Optional.ofNullable(searchClass(requested.getPackageName(), simpleName))).orElse(null);
    if (found != null && requested.isAssignableFrom(found) && !Modifier.isAbstract(found.getModifiers())) {
      return found.asSubclass(requested);
    }
    return requested;
  }

  private static Class<?> searchClass(String firstPackage, String simpleName) {
    Class<?> cls = tryLoad(firstPackage.isEmpty() ? simpleName : firstPackage + "." + simpleName);
    for (int i = 0; cls == null && i < SEARCH_PATH.length; i++) cls = tryLoad(SEARCH_PATH[i] + simpleName);
    return cls != null && Orvex.class.isAssignableFrom(cls) ? cls : null;
  }

  /** The (NativeResourceHandle) constructor of each wrapper class, looked up once. */
  private static final ClassValue<Constructor<?>> HANDLE_CONSTRUCTORS = new ClassValue<>() {
    @Override
    protected Constructor<?> computeValue(Class<?> cls) {
      try {
        Constructor<?> ctor = cls.getDeclaredConstructor(NativeResourceHandle.class);
        ctor.setAccessible(true);
        return ctor;
      } catch (ReflectiveOperationException | RuntimeException e) {
        return null;
      }
    }
  };

  private static Orvex instantiate(Class<? extends Orvex> cls, NativeResourceHandle handle) {
    Constructor<?> ctor = HANDLE_CONSTRUCTORS.get(cls);
    if (ctor == null) {
      handle.release();
      throw new IllegalArgumentException(cls.getName() + " has no usable (NativeResourceHandle) constructor");
    }
    boolean outer = !instantiating;
    instantiating = true;
    try {
      Orvex made = (Orvex) ctor.newInstance(handle);
      Entry entry = OBJECTS.get(handle.getAddress());
      if (entry != null && entry.get() == made) entry.published = true;
      return made;
    } catch (InvocationTargetException e) {
      handle.release();
      throw rethrow(e);
    } catch (ReflectiveOperationException e) {
      handle.release();
      throw new IllegalArgumentException(cls.getName() + " has no usable (NativeResourceHandle) constructor", e);
    } finally {
      if (outer) instantiating = false;
    }
  }


  private static Family familyOf(Class<?> cls) {
    synchronized (FAMILIES) {
      for (Family family : FAMILIES) {
        for (Class<?> c = cls; c != null; c = c.getSuperclass()) {
          if (c.getName().equals(family.rootClassName)) return family;
        }
      }
    }
    return null;
  }

  private static Class<? extends Orvex> asWrapperClass(Class<?> cls) {
    if (!Orvex.class.isAssignableFrom(cls)) {
      throw new IllegalArgumentException(cls.getName() + " is not a wrapper class");
    }
    return cls.asSubclass(Orvex.class);
  }

  private static Map<Integer, Enum<?>> valueTable(Class<?> enumClass) {
    Map<Integer, Enum<?>> table = new HashMap<>();
    try {
      Method getValue = enumClass.getMethod("getValue");
      getValue.setAccessible(true);
      for (Object constant : enumClass.getEnumConstants()) {
        // The first constant of a value wins, as for aliases in the toolkit.
        table.putIfAbsent((Integer) getValue.invoke(constant), (Enum<?>) constant);
      }
    } catch (InvocationTargetException e) {
      throw rethrow(e);
    } catch (ReflectiveOperationException | ClassCastException e) {
      throw new IllegalArgumentException(enumClass.getName() + " has no int getValue()", e);
    }
    return table;
  }

  private static void expungeCollected() {
    for (Entry e; (e = (Entry) COLLECTED.poll()) != null; ) {
      OBJECTS.remove(e.address, e);
    }
  }

  private static Class<?> loadClass(String className) {
    Class<?> cls = tryLoad(className.replace('/', '.'));
    if (cls == null) throw new IllegalArgumentException("unknown class " + className);
    return cls;
  }

  private static Class<?> tryLoad(String name) {
    ClassLoader context = Thread.currentThread().getContextClassLoader();
    for (ClassLoader loader : new ClassLoader[] {context, ObjectManager.class.getClassLoader()}) {
      if (loader == null) continue;
      try {
        return Class.forName(name, false, loader);
      } catch (ClassNotFoundException | LinkageError e) {
        // not in this loader
      }
    }
    return null;
  }

  private static RuntimeException rethrow(InvocationTargetException e) {
    Throwable cause = e.getCause();
    if (cause instanceof RuntimeException) return (RuntimeException) cause;
    if (cause instanceof Error) throw (Error) cause;
    return new IllegalArgumentException(cause);
  }

  private static native String getSoBaseNativeTypeName(long address);

  private static native String getSoFieldNativeTypeName(long address);

  private static native String getSoErrorNativeTypeName(long address);

  private static native String getSoActionNativeTypeName(long address);

  private static native String getSoEventNativeTypeName(long address);

  private static native String getSoDetailNativeTypeName(long address);
}
