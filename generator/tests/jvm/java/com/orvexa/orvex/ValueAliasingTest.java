package com.orvexa.orvex;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.Array;
import java.lang.reflect.Field;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import org.junit.jupiter.api.Test;

/**
 * Every public method of the array-backed value types that takes two operands
 * of one class (the receiver and an argument, or two arguments) gives the
 * same result when the two are one object as when they are equal copies:
 * the toolkit computes alias-safely, so an operand that is only read must
 * not be copied back over the result when its pinned array is released.
 * Methods with two outputs of one class are left out: aliasing two outputs
 * has no meaning. So is the receiver of a const method passed as its own
 * output argument (rotation.decompose(axis, rotation, twist)): the receiver
 * is always pinned to be copied back, and released last, so it keeps its
 * value, and the toolkit's result for that call is not defined either.
 */
class ValueAliasingTest {
  static final List<Class<?>> VALUE_CLASSES = List.of(
      SbVec2f.class, SbVec3f.class, SbVec4f.class, SbVec2d.class, SbVec3d.class, SbVec4d.class,
      SbVec2i32.class, SbVec3i32.class, SbVec4i32.class, SbVec4ui32.class,
      SbVec2s.class, SbVec3s.class, SbVec4s.class, SbVec4us.class, SbVec4b.class, SbVec4ub.class,
      SbBox2f.class, SbBox3f.class, SbBox2d.class, SbBox3d.class, SbBox2i32.class, SbBox3i32.class,
      SbBox4i32.class, SbBox2s.class, SbBox3s.class, SbXfBox3f.class, SbXfBox3d.class,
      SbColor.class, SbColorRGBA.class, SbRotation.class, SbRotationd.class,
      SbMatrix.class, SbMatrix3.class, SbMatrixd.class, SbPlane.class, SbLine.class, SbLined.class,
      SbSphere.class, SbCylinder.class);

  @Test
  void aliasedOperandsGiveTheSameResultAsCopies() throws Exception {
    List<String> tried = new ArrayList<>();
    List<String> differing = new ArrayList<>();
    for (Class<?> cls : VALUE_CLASSES) {
      for (Method m : cls.getDeclaredMethods()) {
        if (!Modifier.isPublic(m.getModifiers()) || Modifier.isStatic(m.getModifiers())) continue;
        Class<?>[] types = m.getParameterTypes();
        if (!supported(types)) continue;
        for (int[] pair : aliasablePairs(cls, types)) {
          String name = cls.getSimpleName() + "." + m.getName() + Arrays.toString(types).replace("class ", "")
              + " aliasing " + (pair[0] < 0 ? "this" : "arg" + pair[0]) + " with arg" + pair[1];
          Outcome copies = run(cls, m, pair, false);
          Outcome aliased = run(cls, m, pair, true);
          if (copies == null || aliased == null) continue;  // refused its sample arguments
          if (copies.bothWritten) continue;                  // two outputs
          if (copies.constReceiverWritesArgument) continue;   // see the class comment
          tried.add(name);
          if (!copies.text.equals(aliased.text)) {
            differing.add(name + ": copies " + copies.text + " / aliased " + aliased.text);
          }
        }
      }
    }
    // The operations named by users must be among those tried.
    assertTrue(tried.stream().anyMatch(s -> s.startsWith("SbMatrix.multVecMatrix")), tried.toString());
    assertTrue(tried.stream().anyMatch(s -> s.startsWith("SbRotation.multVec")), tried.toString());
    assertTrue(tried.size() > 50, "only " + tried.size() + " aliasable methods found");
    assertEquals(List.of(), differing);
  }

  private static boolean supported(Class<?>[] types) {
    for (Class<?> t : types) {
      if (!t.isPrimitive() && !VALUE_CLASSES.contains(t) && !t.isEnum()) return false;
    }
    return true;
  }

  /** Pairs of positions (-1 for the receiver) holding the same value class. */
  private static List<int[]> aliasablePairs(Class<?> cls, Class<?>[] types) {
    List<int[]> pairs = new ArrayList<>();
    for (int i = -1; i < types.length; i++) {
      Class<?> a = i < 0 ? cls : types[i];
      if (!VALUE_CLASSES.contains(a)) continue;
      for (int j = i + 1; j < types.length; j++) {
        if (types[j] == a) pairs.add(new int[] {i, j});
      }
    }
    return pairs;
  }

  /** What a call did: its effects on every value operand and its result, and whether it wrote both of a pair. */
  record Outcome(String text, boolean bothWritten, boolean constReceiverWritesArgument) {}

  /** The method's effects on all its value operands and its result, or null if it refused the sample. */
  private static Outcome run(Class<?> cls, Method m, int[] pair, boolean aliased) throws Exception {
    Object receiver = sample(cls, 0);
    Class<?>[] types = m.getParameterTypes();
    Object[] args = new Object[types.length];
    for (int k = 0; k < types.length; k++) args[k] = sample(types[k], k + 1);
    if (aliased) {
      if (pair[0] < 0) {
        args[pair[1]] = receiver;
      } else {
        args[pair[1]] = args[pair[0]];
      }
    } else {
      // Equal, separate copies in the aliased positions.
      args[pair[1]] = copyOf(pair[0] < 0 ? receiver : args[pair[0]]);
    }
    Object first = pair[0] < 0 ? receiver : args[pair[0]];
    String firstBefore = show(first);
    String secondBefore = show(args[pair[1]]);
    Object result;
    try {
      result = m.invoke(receiver, args);
    } catch (InvocationTargetException e) {
      if (e.getCause() instanceof IllegalArgumentException) return null;
      throw e;
    }
    // The two aliased positions are one object in one run and two in the
    // other: their state is the one the method wrote (the other is only read).
    boolean firstWritten = !show(first).equals(firstBefore);
    boolean secondWritten = !show(args[pair[1]]).equals(secondBefore);
    StringBuilder sb = new StringBuilder();
    if (pair[0] != -1) sb.append("this=").append(show(receiver));
    for (int k = 0; k < args.length; k++) {
      if (k != pair[0] && k != pair[1]) sb.append(" arg").append(k).append('=').append(show(args[k]));
    }
    sb.append(" pair=").append(show(secondWritten ? args[pair[1]] : first));
    sb.append(" result=").append(show(result));
    boolean both = !aliased && firstWritten && secondWritten;
    boolean constReceiver = !aliased && pair[0] == -1 && !firstWritten && secondWritten;
    return new Outcome(sb.toString(), both, constReceiver);
  }

  private static Object sample(Class<?> t, int seed) throws Exception {
    if (t == float.class) return 0.5f + seed;
    if (t == double.class) return 0.5 + seed;
    if (t == int.class) return 1 + seed;
    if (t == short.class) return (short) (1 + seed);
    if (t == byte.class) return (byte) (1 + seed);
    if (t == long.class) return 1L + seed;
    if (t == boolean.class) return Boolean.TRUE;
    if (t.isEnum()) return t.getEnumConstants()[0];
    Object value = t.getConstructor().newInstance();
    Object array = arrayOf(value);
    for (int i = 0; i < Array.getLength(array); i++) {
      double x = 0.25 + ((seed * 7 + i * 3) % 11) * 0.5;
      Class<?> e = array.getClass().getComponentType();
      if (e == float.class) Array.setFloat(array, i, (float) x);
      else if (e == double.class) Array.setDouble(array, i, x);
      else if (e == int.class) Array.setInt(array, i, (int) (x * 2));
      else if (e == short.class) Array.setShort(array, i, (short) (x * 2));
      else if (e == byte.class) Array.setByte(array, i, (byte) (x * 2));
    }
    return value;
  }

  private static Object copyOf(Object value) throws Exception {
    Object copy = value.getClass().getConstructor().newInstance();
    Object from = arrayOf(value);
    System.arraycopy(from, 0, arrayOf(copy), 0, Array.getLength(from));
    return copy;
  }

  private static Object arrayOf(Object value) throws Exception {
    Field f = value.getClass().getField("array");
    return f.get(value);
  }

  private static String show(Object o) throws Exception {
    if (o == null) return "null";
    if (VALUE_CLASSES.contains(o.getClass())) {
      Object a = arrayOf(o);
      if (a instanceof float[]) return Arrays.toString((float[]) a);
      if (a instanceof double[]) return Arrays.toString((double[]) a);
      if (a instanceof int[]) return Arrays.toString((int[]) a);
      if (a instanceof short[]) return Arrays.toString((short[]) a);
      if (a instanceof byte[]) return Arrays.toString((byte[]) a);
    }
    if (o instanceof float[]) return Arrays.toString((float[]) o);
    return String.valueOf(o);
  }
}
