package com.orvexa.internal;

import com.orvexa.orvex.Orvex;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;

/**
 * Toolkit type names of Java wrapper classes: {@code SoSphere.class} stands
 * for the toolkit type that its static {@code getClassTypeId()} names
 * ("Sphere"). A class that does not declare that method itself (an abstract
 * Java-side class, or a Java subclass of a toolkit class) stands for no
 * toolkit type.
 */
public final class TypeNames {
  private TypeNames() {}

  private static final ClassValue<String> NAMES = new ClassValue<>() {
    @Override
    protected String computeValue(Class<?> cls) {
      try {
        Method typeId = cls.getDeclaredMethod("getClassTypeId");
        if (!Modifier.isStatic(typeId.getModifiers()) || typeId.getReturnType() != String.class) return null;
        typeId.setAccessible(true);
        return (String) typeId.invoke(null);
      } catch (NoSuchMethodException e) {
        return null;
      } catch (ReflectiveOperationException e) {
        throw new IllegalStateException("cannot ask " + cls.getName() + " for its toolkit type", e);
      }
    }
  };

  /**
   * The toolkit type name of {@code cls}, the argument {@code parameter} of a
   * public method.
   *
   * @throws NullPointerException when cls is null
   * @throws IllegalArgumentException when cls stands for no toolkit type
   */
  public static String of(Class<? extends Orvex> cls, String parameter) {
    if (cls == null) throw NativeCalls.nullArgument(parameter);
    String name = NAMES.get(cls);
    if (name == null) {
      throw new IllegalArgumentException(parameter + ": " + cls.getName() + " stands for no toolkit type");
    }
    return name;
  }
}
