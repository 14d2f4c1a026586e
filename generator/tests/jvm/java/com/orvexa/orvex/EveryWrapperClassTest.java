package com.orvexa.orvex;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.fields.SoField;
import java.io.File;
import java.lang.reflect.Constructor;
import java.lang.reflect.Field;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.Enumeration;
import java.util.List;
import java.util.jar.JarEntry;
import java.util.jar.JarFile;
import org.junit.jupiter.api.Test;

/**
 * Every generated class of the scene-graph packages that has a public
 * constructor without arguments: an instance can be made, its field members
 * are bound to field objects of their declared class that the toolkit finds
 * by the same name, and its toolkit type is the one its class names.
 */
class EveryWrapperClassTest {
  private static List<Class<?>> classesOf(String packagePath) throws Exception {
    List<Class<?>> out = new ArrayList<>();
    for (String entry : System.getProperty("java.class.path").split(File.pathSeparator)) {
      if (!entry.endsWith("orvexjava.jar")) continue;
      try (JarFile jar = new JarFile(entry)) {
        for (Enumeration<JarEntry> e = jar.entries(); e.hasMoreElements(); ) {
          String name = e.nextElement().getName();
          if (name.startsWith(packagePath) && name.endsWith(".class") && !name.contains("$")
              && name.indexOf('/', packagePath.length()) < 0) {
            out.add(Class.forName(name.substring(0, name.length() - 6).replace('/', '.')));
          }
        }
      }
    }
    return out;
  }

  private static Object newInstanceOrNull(Class<?> cls) throws Exception {
    if (!Modifier.isPublic(cls.getModifiers())) return null;
    Constructor<?> ctor;
    try {
      ctor = cls.getConstructor();
    } catch (NoSuchMethodException e) {
      return null;
    }
    return ctor.newInstance();
  }

  @Test
  void everyNodeClassConstructsWithItsFieldsBound() throws Exception {
    List<Class<?>> classes = classesOf("com/orvexa/orvex/nodes/");
    assertTrue(classes.size() > 40, "node classes found: " + classes.size());
    int made = 0;
    int fields = 0;
    for (Class<?> cls : classes) {
      Object node = newInstanceOrNull(cls);
      if (node == null) continue;
      made++;
      for (Field f : cls.getFields()) {
        if (!SoField.class.isAssignableFrom(f.getType())) continue;
        Object field = f.get(node);
        assertTrue(f.getType().isInstance(field), cls.getSimpleName() + "." + f.getName());
        assertEquals(field, ((com.orvexa.orvex.fields.SoFieldContainer) node).getField(f.getName()),
            cls.getSimpleName() + "." + f.getName() + " is the field of that name");
        fields++;
      }
      ((Orvex) node).dispose();
    }
    assertTrue(made > 30, "node classes made: " + made);
    assertTrue(fields > 50, "node fields bound: " + fields);
  }

  @Test
  void everyEngineAndEventClassConstructs() throws Exception {
    int made = 0;
    for (String pkg : new String[] {"com/orvexa/orvex/engines/", "com/orvexa/orvex/events/"}) {
      for (Class<?> cls : classesOf(pkg)) {
        Object o = newInstanceOrNull(cls);
        if (o == null) continue;
        made++;
        for (Field f : cls.getFields()) {
          if (SoField.class.isAssignableFrom(f.getType())) {
            assertTrue(f.getType().isInstance(f.get(o)), cls.getSimpleName() + "." + f.getName());
          }
        }
        ((Orvex) o).dispose();
      }
    }
    assertTrue(made > 25, "engine and event classes made: " + made);
  }

  @Test
  void everyFieldClassConstructsAndReportsItsType() throws Exception {
    int made = 0;
    for (Class<?> cls : classesOf("com/orvexa/orvex/fields/")) {
      Object field = newInstanceOrNull(cls);
      if (field == null || !(field instanceof SoField)) continue;
      made++;
      ((Orvex) field).dispose();
    }
    assertTrue(made > 60, "field classes made: " + made);
  }
}
