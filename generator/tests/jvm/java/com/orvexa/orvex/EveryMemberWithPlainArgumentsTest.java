package com.orvexa.orvex;

import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.Array;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.Collections;
import java.util.Enumeration;
import java.util.List;
import java.util.jar.JarEntry;
import java.util.jar.JarFile;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.ValueSource;

/**
 * Every public member of every wrapper class that Java can construct without
 * arguments, called on a fresh object with plain arguments: zero, -1, the
 * extreme ints, empty text, arrays of 64 elements, fresh objects. Each call
 * works or throws a Java exception; none may end the process (which would
 * fail the suite).
 */
class EveryMemberWithPlainArgumentsTest {
  private static List<Class<?>> wrapperClasses() throws Exception {
    String jar = Orvex.class.getProtectionDomain().getCodeSource().getLocation().getPath();
    List<Class<?>> classes = new ArrayList<>();
    try (JarFile file = new JarFile(jar)) {
      for (Enumeration<JarEntry> e = file.entries(); e.hasMoreElements(); ) {
        String name = e.nextElement().getName();
        if (!name.startsWith("com/orvexa/orvex/") || !name.endsWith(".class") || name.contains("$")
            || name.startsWith("com/orvexa/orvex/errors/")) {
          continue;
        }
        classes.add(Class.forName(name.replace('/', '.').substring(0, name.length() - ".class".length())));
      }
    }
    classes.sort((a, b) -> a.getName().compareTo(b.getName()));
    return classes;
  }

  private static Object plain(Class<?> t, int number) {
    if (t == int.class) return number;
    if (t == long.class) return (long) number;
    if (t == short.class) return (short) number;
    if (t == byte.class) return (byte) number;
    if (t == float.class) return (float) number;
    if (t == double.class) return (double) number;
    if (t == boolean.class) return number != 0;
    if (t == char.class) return 'a';
    if (t == String.class) return "";
    if (t.isArray()) return Array.newInstance(t.getComponentType(), 64);
    if (t.isEnum()) return t.getEnumConstants()[0];
    try {
      return t.getConstructor().newInstance();
    } catch (ReflectiveOperationException | RuntimeException e) {
      return null;
    }
  }

  @ParameterizedTest
  @ValueSource(ints = {0, -1, Integer.MAX_VALUE, Integer.MIN_VALUE})
  void everyCallWorksOrThrowsAJavaException(int number) throws Exception {
    int calls = 0;
    for (Class<?> cls : wrapperClasses()) {
      if (Modifier.isAbstract(cls.getModifiers())) continue;
      Object object = plain(cls, number);
      if (object == null || !cls.isInstance(object)) continue;
      for (Method m : cls.getMethods()) {
        if (Modifier.isStatic(m.getModifiers()) || m.getDeclaringClass() == Object.class) continue;
        if (m.getName().equals("dispose") || m.getName().equals("close")) continue;
        Object[] arguments = new Object[m.getParameterCount()];
        boolean plain = true;
        for (int i = 0; i < arguments.length && plain; i++) {
          arguments[i] = plain(m.getParameterTypes()[i], number);
          plain = arguments[i] != null;
        }
        if (!plain) continue;
        calls++;
        try {
          m.invoke(object, arguments);
        } catch (InvocationTargetException e) {
          if (!(e.getCause() instanceof RuntimeException)) throw new AssertionError(m + " threw " + e.getCause(), e);
        }
      }
    }
    assertTrue(calls > 1000, "only " + calls + " calls");
  }
}
