package com.orvexa.orvex;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static org.junit.jupiter.api.Assertions.fail;

import com.orvexa.orvex.devices.SoCpuBufferObject;
import com.orvexa.orvex.fields.SoMFBool;
import com.orvexa.orvex.fields.SoMFFloat;
import com.orvexa.orvex.fields.SoMFInt;
import com.orvexa.orvex.fields.SoMFVec3f;
import com.orvexa.orvex.fields.SoSFImage;
import com.orvexa.orvex.fields.SoSFImage3;
import com.orvexa.orvex.fields.SoMField;
import com.orvexa.orvex.nodes.SoCoordinate3;
import com.orvexa.orvex.nodes.SoSeparator;
import java.io.File;
import java.lang.ref.WeakReference;
import java.lang.reflect.Array;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.FloatBuffer;
import java.nio.IntBuffer;
import java.util.ArrayList;
import java.util.Enumeration;
import java.util.List;
import java.util.jar.JarEntry;
import java.util.jar.JarFile;
import org.junit.jupiter.api.Nested;
import org.junit.jupiter.api.Test;

/**
 * Values of multiple-value fields in bulk: flat arrays, arrays of value
 * objects and direct buffers, checked against the generated per-value
 * getters (a separate path into the toolkit), and the Java exceptions that
 * misuse gives.
 */
class FieldValuesInBulkTest {
  private static final String FIELDS = "com.orvexa.orvex.fields.";

  /** Every public concrete class of the fields package, read from the jar, so that new classes are covered. */
  static List<Class<?>> fieldClasses() throws Exception {
    File jar = new File(SoMField.class.getProtectionDomain().getCodeSource().getLocation().toURI());
    List<Class<?>> classes = new ArrayList<>();
    try (JarFile file = new JarFile(jar)) {
      for (Enumeration<JarEntry> e = file.entries(); e.hasMoreElements(); ) {
        String name = e.nextElement().getName();
        if (!name.startsWith("com/orvexa/orvex/fields/So") || !name.endsWith(".class") || name.contains("$")) continue;
        Class<?> cls = Class.forName(name.substring(0, name.length() - ".class".length()).replace('/', '.'));
        if (Modifier.isPublic(cls.getModifiers()) && !Modifier.isAbstract(cls.getModifiers())) classes.add(cls);
      }
    }
    assertTrue(classes.size() > 80, "field classes found: " + classes.size());
    return classes;
  }

  static Object newField(Class<?> cls) throws Exception {
    return cls.getConstructor().newInstance();
  }

  static Object call(Object target, String name, Class<?>[] types, Object... args) throws Throwable {
    try {
      return target.getClass().getMethod(name, types).invoke(target, args);
    } catch (InvocationTargetException e) {
      throw e.getCause();
    }
  }

  /** Numbers 1, 2, 3... (false, true, false... for booleans) as a primitive array of the component type. */
  static Object numbers(Class<?> component, int count, int first) {
    Object a = Array.newInstance(component, count);
    for (int i = 0; i < count; i++) {
      int v = first + i;
      if (component == boolean.class) Array.setBoolean(a, i, v % 2 == 1);
      else if (component == byte.class) Array.setByte(a, i, (byte) v);
      else if (component == short.class) Array.setShort(a, i, (short) v);
      else if (component == int.class) Array.setInt(a, i, v);
      else if (component == long.class) Array.setLong(a, i, v);
      else if (component == float.class) Array.setFloat(a, i, v);
      else Array.setDouble(a, i, v);
    }
    return a;
  }

  /**
   * The numbers of one value object: its array, or for a time its seconds
   * (SbTime is an object of its own, not an array of numbers).
   */
  static Object numbersOf(Object value) throws Exception {
    if (value instanceof SbTime) return new double[] {((SbTime) value).getValue()};
    return value.getClass().getField("array").get(value);
  }

  /** The numbers of values as the generated getValues(start) returns them, flattened. */
  static Object flattenGenerated(Object values, Class<?> component) throws Exception {
    if (values.getClass().getComponentType().isPrimitive()) return values;
    int n = Array.getLength(values);
    List<Object> parts = new ArrayList<>();
    int total = 0;
    for (int i = 0; i < n; i++) {
      Object array = numbersOf(Array.get(values, i));
      parts.add(array);
      total += Array.getLength(array);
    }
    Object flat = Array.newInstance(component, total);
    int at = 0;
    for (Object p : parts) {
      System.arraycopy(p, 0, flat, at, Array.getLength(p));
      at += Array.getLength(p);
    }
    return flat;
  }

  static void assertSameNumbers(Object expected, Object actual, String what) {
    assertEquals(expected.getClass(), actual.getClass(), what);
    assertEquals(Array.getLength(expected), Array.getLength(actual), what + " length");
    for (int i = 0; i < Array.getLength(expected); i++)
      assertEquals(Array.get(expected, i), Array.get(actual, i), what + " [" + i + "]");
  }

  /** Numbers per value, from the generated getter: 1 for primitive values, else the length of a value's array. */
  static int componentsOf(Object field) throws Throwable {
    ((SoMField) field).setNum(1);
    Object values = call(field, "getValues", new Class<?>[] {int.class}, 0);
    ((SoMField) field).setNum(0);
    if (values.getClass().getComponentType().isPrimitive()) return 1;
    return Array.getLength(numbersOf(Array.get(values, 0)));
  }

  static boolean hasValueObjectSetter(Class<?> cls) {
    for (Method m : cls.getMethods())
      if (m.getName().equals("setValues") && m.getParameterCount() == 2 && !m.getParameterTypes()[1].getComponentType().isPrimitive())
        return true;
    return false;
  }

  @Nested
  class EveryClass {
    @Test
    void multipleValueFieldsRoundTripFlatArraysAgainstTheGeneratedGetters() throws Throwable {
      List<String> covered = new ArrayList<>();
      for (Class<?> cls : fieldClasses()) {
        if (!SoMField.class.isAssignableFrom(cls)) continue;
        Method getFlat;
        try {
          getFlat = cls.getMethod("getValuesFlat", int.class);
        } catch (NoSuchMethodException e) {
          continue;
        }
        String name = cls.getSimpleName();
        Class<?> flatClass = getFlat.getReturnType();
        Class<?> component = flatClass.getComponentType();
        Object field = newField(cls);
        int n = componentsOf(field);
        Object three = numbers(component, 3 * n, 1);
        call(field, "setValues", new Class<?>[] {int.class, int.class, flatClass}, 0, 3, three);
        assertEquals(3, ((SoMField) field).getNum(), name);
        assertSameNumbers(three, getFlat.invoke(field, 0), name + " flat");
        Object generated = call(field, "getValues", new Class<?>[] {int.class}, 0);
        assertSameNumbers(three, flattenGenerated(generated, component), name + " generated getter");
        Object tail = Array.newInstance(component, 2 * n);
        System.arraycopy(three, n, tail, 0, 2 * n);
        assertSameNumbers(tail, getFlat.invoke(field, 1), name + " from 1");
        assertEquals(0, Array.getLength(getFlat.invoke(field, 3)), name + " from getNum()");
        assertEquals(0, Array.getLength(call(field, "getValues", new Class<?>[] {int.class}, 3)),
            name + " generated from getNum()");

        // Past the end: the field grows, the gap holds default values.
        Object two = numbers(component, 2 * n, 10);
        call(field, "setValues", new Class<?>[] {int.class, flatClass}, 5, two);
        assertEquals(7, ((SoMField) field).getNum(), name);
        Object all = getFlat.invoke(field, 0);
        // The toolkit's default value (identity for matrices and rotations), as the generated getter gives it.
        SoMField fresh = (SoMField) newField(cls);
        fresh.setNum(2);
        Object defaults = flattenGenerated(call(fresh, "getValues", new Class<?>[] {int.class}, 0), component);
        Object expected = Array.newInstance(component, 7 * n);
        System.arraycopy(three, 0, expected, 0, 3 * n);
        System.arraycopy(defaults, 0, expected, 3 * n, 2 * n);
        System.arraycopy(two, 0, expected, 5 * n, 2 * n);
        assertSameNumbers(expected, all, name + " grown");

        // Value objects, where the class has them, give the same numbers.
        if (n > 1 || hasValueObjectSetter(cls)) {
          Object copies = call(field, "getValues", new Class<?>[] {int.class}, 5);
          Object other = newField(cls);
          call(other, "setValues", new Class<?>[] {int.class, copies.getClass()}, 0, copies);
          assertSameNumbers(two, call(other, "getValuesFlat", new Class<?>[] {int.class}, 0), name + " value objects");
        }
        covered.add(name);
      }
      assertTrue(covered.size() >= 30, "classes covered: " + covered);
    }

    @Test
    void everyMultipleValueGetterGivesAnEmptyArrayAtTheEnd() throws Throwable {
      int checked = 0;
      for (Class<?> cls : fieldClasses()) {
        if (!SoMField.class.isAssignableFrom(cls)) continue;
        Method getValues;
        try {
          getValues = cls.getMethod("getValues", int.class);
        } catch (NoSuchMethodException e) {
          continue;
        }
        SoMField field = (SoMField) newField(cls);
        field.setNum(2);
        Object values = getValues.invoke(field, field.getNum());
        assertNotNull(values, cls.getSimpleName());
        assertEquals(0, Array.getLength(values), cls.getSimpleName());
        assertEquals(2, Array.getLength(getValues.invoke(field, 0)), cls.getSimpleName());
        checked++;
      }
      assertTrue(checked >= 30, "checked " + checked);
    }

    @Test
    void singleValueFieldsRoundTripTheirValues() throws Throwable {
      List<String> covered = new ArrayList<>();
      for (Class<?> cls : fieldClasses()) {
        if (SoMField.class.isAssignableFrom(cls)) continue;
        Method getter;
        try {
          getter = cls.getMethod("getValue");
        } catch (NoSuchMethodException e) {
          continue;
        }
        Class<?> type = getter.getReturnType();
        Method setter;
        try {
          setter = cls.getMethod("setValue", type);
        } catch (NoSuchMethodException e) {
          continue;
        }
        Object field = newField(cls);
        Object value;
        if (type.isPrimitive()) {
          value = Array.get(numbers(type, 1, 7), 0);
        } else {
          java.lang.reflect.Field arrayField;
          try {
            arrayField = type.getField("array");
          } catch (NoSuchFieldException e) {
            continue;  // not a value of numbers
          }
          value = type.getConstructor().newInstance();
          Object array = arrayField.get(value);
          System.arraycopy(numbers(array.getClass().getComponentType(), Array.getLength(array), 2), 0, array, 0,
              Array.getLength(array));
        }
        setter.invoke(field, value);
        Object back = getter.invoke(field);
        if (type.isPrimitive()) {
          assertEquals(value, back, cls.getSimpleName());
        } else {
          java.lang.reflect.Field arrayField = type.getField("array");
          assertSameNumbers(arrayField.get(value), arrayField.get(back), cls.getSimpleName());
        }
        covered.add(cls.getSimpleName());
      }
      assertTrue(covered.size() >= 30, "classes covered: " + covered);
    }
  }

  @Nested
  class FlatArrays {
    @Test
    void valueObjectsAndFlatNumbersAreTheSameValues() {
      SoMFVec3f field = new SoMFVec3f();
      field.setValues(0, new SbVec3f[] {new SbVec3f(1, 2, 3), new SbVec3f(4, 5, 6)});
      assertArrayEquals(new float[] {1, 2, 3, 4, 5, 6}, field.getValuesFlat(0));
      field.setValues(1, new float[] {7, 8, 9});
      SbVec3f[] values = field.getValues(0);
      assertEquals(2, values.length);
      assertArrayEquals(new float[] {7, 8, 9}, values[1].getValue());
      field.setValues(0, 1, new float[] {0, 0, 0, 99, 99, 99});  // only num values are taken
      assertArrayEquals(new float[] {0, 0, 0, 7, 8, 9}, field.getValuesFlat(0));
    }

    @Test
    void unsignedValuesKeepTheirBits() {
      SoMFInt field = new SoMFInt();
      field.setValues(0, new int[] {-1, Integer.MIN_VALUE});
      assertArrayEquals(new int[] {-1, Integer.MIN_VALUE}, field.getValues(0));
      SoMFBool flags = new SoMFBool();
      flags.setValues(0, new boolean[] {true, false, true});
      assertArrayEquals(new boolean[] {true, false, true}, flags.getValuesFlat(0));
    }

    @Test
    void misuseGivesJavaExceptions() {
      SoMFVec3f field = new SoMFVec3f();
      field.setValues(0, new float[] {1, 2, 3});
      assertTrue(assertThrows(NullPointerException.class, () -> field.setValues(0, (float[]) null)).getMessage()
          .contains("flat"));
      assertTrue(assertThrows(NullPointerException.class, () -> field.setValues(0, 1, null)).getMessage()
          .contains("newValues"));
      assertTrue(assertThrows(NullPointerException.class, () -> field.setValues(0, (SbVec3f[]) null)).getMessage()
          .contains("values"));
      assertTrue(assertThrows(NullPointerException.class,
          () -> field.setValues(0, new SbVec3f[] {new SbVec3f(), null})).getMessage().contains("values[1]"));
      assertThrows(IllegalArgumentException.class, () -> field.setValues(0, new float[4]));
      assertThrows(IllegalArgumentException.class, () -> field.setValues(0, 2, new float[5]));
      assertThrows(IllegalArgumentException.class, () -> field.setValues(0, -1, new float[3]));
      assertThrows(IllegalArgumentException.class, () -> field.setValues(0, Integer.MAX_VALUE, new float[3]));
      assertThrows(IndexOutOfBoundsException.class, () -> field.setValues(-1, new float[3]));
      assertThrows(IndexOutOfBoundsException.class, () -> field.setValues(-1, 1, new float[3]));
      assertThrows(IndexOutOfBoundsException.class, () -> field.setValues(Integer.MAX_VALUE, 1, new float[3]));
      assertThrows(IndexOutOfBoundsException.class, () -> field.getValuesFlat(-1));
      assertThrows(IndexOutOfBoundsException.class, () -> field.getValuesFlat(2));
      assertThrows(IndexOutOfBoundsException.class, () -> field.getDirectValues(2));
      assertArrayEquals(new float[] {1, 2, 3}, field.getValuesFlat(0), "misuse changed nothing");

      field.dispose();
      assertThrows(IllegalStateException.class, () -> field.setValues(0, new float[3]));
      assertThrows(IllegalStateException.class, () -> field.getValuesFlat(0));
      assertThrows(IllegalStateException.class, () -> field.startEditing());
      assertThrows(IllegalStateException.class,
          () -> field.setValuesBuffer(ByteBuffer.allocateDirect(12).order(ByteOrder.nativeOrder())));
    }

    @Test
    void aFieldTooLargeForMemoryIsAToolkitErrorNotACrash() {
      List<String> errors = new ArrayList<>();
      var previous = Orvex.setErrorListener(errors::add);
      try {
        SoMFVec3f field = new SoMFVec3f();
        field.setValues(0, new float[] {1, 2, 3});
        field.setValues(Integer.MAX_VALUE - 1, 1, new float[3]);
        assertEquals(1, field.getNum(), "the field kept its values");
        assertFalse(errors.isEmpty(), "a memory error was posted");
      } finally {
        Orvex.setErrorListener(previous);
      }
    }
  }

  @Nested
  class Buffers {
    @Test
    void editingWritesShowInTheFieldAndTheFieldsWritesInTheBuffer() {
      SoMFVec3f field = new SoMFVec3f();
      field.setValues(0, new float[] {1, 2, 3, 4, 5, 6});
      FloatBuffer view = field.startEditing();
      assertEquals(6, view.remaining());
      assertEquals(5f, view.get(4));
      view.put(4, 50f);
      assertArrayEquals(new float[] {4, 50, 6}, field.getValues(1)[0].getValue(), "no further call needed");
      field.finishEditing();
      field.set1Value(0, new SbVec3f(7, 8, 9));
      assertEquals(8f, view.get(1), "the field's own write lands in the view");
      FloatBuffer again = field.startEditing();
      again.put(0, 70f);
      assertEquals(70f, view.get(0), "both views share the field's storage");
      field.finishEditing();

      FloatBuffer fromOne = field.getDirectValues(1);
      assertEquals(3, fromOne.remaining());
      assertEquals(4f, fromOne.get(0));
    }

    @Test
    void aViewTheFieldOutgrewKeepsItsOldValuesAndIsNoLongerTheFields() {
      SoMFFloat field = new SoMFFloat();
      field.setValues(0, new float[] {1, 2});
      FloatBuffer old = field.startEditing();
      field.finishEditing();
      field.setValues(2, new float[] {3, 4, 5});  // grows beyond the storage the view shows
      old.put(0, 100f);                            // still memory Java owns: no crash
      assertEquals(1f, field.getValues(0)[0], "the field's values moved elsewhere");
      assertEquals(2, old.remaining());
      FloatBuffer fresh = field.startEditing();
      assertEquals(5, fresh.remaining());
      fresh.put(4, 500f);
      field.finishEditing();
      assertEquals(500f, field.getValues(4)[0]);
    }

    @Test
    void aBufferGivenToTheFieldIsItsStorage() {
      FloatBuffer buffer = ByteBuffer.allocateDirect(4 * 7).order(ByteOrder.nativeOrder()).asFloatBuffer();
      buffer.put(new float[] {0, 1, 2, 3, 4, 5, 6});
      buffer.position(1);  // values start at the position
      SoMFVec3f field = new SoMFVec3f();
      field.setValuesBuffer(buffer);
      assertEquals(2, field.getNum(), "room for two vectors");
      assertArrayEquals(new float[] {1, 2, 3, 4, 5, 6}, field.getValuesFlat(0));
      buffer.put(5, 40f);  // absolute index: the second component of the second vector
      assertArrayEquals(new float[] {4, 40, 6}, field.getValues(1)[0].getValue(), "buffer writes show at once");
      field.set1Value(0, new SbVec3f(10, 20, 30));
      assertEquals(20f, buffer.get(2), "field writes land in the buffer");

      ByteBuffer bytes = ByteBuffer.allocateDirect(8).order(ByteOrder.nativeOrder());
      bytes.putFloat(0, 1.5f).putFloat(4, 2.5f);
      SoMFFloat floats = new SoMFFloat();
      floats.setValuesBuffer(1, bytes);
      assertArrayEquals(new float[] {1.5f}, floats.getValues(0));
      assertEquals(1.5f, floats.startEditing().get(0), "the view is the given buffer");
      floats.finishEditing();
    }

    @Test
    void aReadOnlyBufferIsCopiedBeforeTheFieldChanges() {
      ByteBuffer bytes = ByteBuffer.allocateDirect(8).order(ByteOrder.nativeOrder());
      bytes.asIntBuffer().put(new int[] {3, 4});
      SoMFInt field = new SoMFInt();
      field.setValuesBuffer(bytes.asReadOnlyBuffer().order(ByteOrder.nativeOrder()));
      assertArrayEquals(new int[] {3, 4}, field.getValues(0));
      field.set1Value(0, 30);
      assertArrayEquals(new int[] {30, 4}, field.getValues(0));
      assertEquals(3, bytes.asIntBuffer().get(0), "the read-only memory was never written");
    }

    @Test
    void theFieldKeepsItsBufferAliveAfterEveryJavaObjectIsGone() throws Exception {
      SoSeparator root = new SoSeparator();
      fillCoordinatesFromAForgottenBuffer(root, 10_000);
      for (int round = 0; round < 5; round++) {
        System.gc();
        byte[][] garbage = new byte[64][];
        for (int i = 0; i < garbage.length; i++) garbage[i] = new byte[1 << 16];
        Thread.sleep(20);
      }
      SoCoordinate3 coordinates = (SoCoordinate3) root.getChild(0);
      float[] flat = coordinates.point.getValuesFlat(0);
      assertEquals(30_000, flat.length);
      for (int i = 0; i < flat.length; i++)
        if (flat[i] != i) fail("value " + i + " is " + flat[i]);
    }

    @Test
    void theFieldLetsItsBufferGoWhenItGrowsOrDies() throws Exception {
      SoMFFloat growing = new SoMFFloat();
      WeakReference<ByteBuffer> first = lendForgottenBuffer(growing);
      SoMFFloat dying = new SoMFFloat();
      WeakReference<ByteBuffer> third = lendForgottenBuffer(dying);
      collectGarbage();
      assertNotNull(first.get(), "used by the field: kept");
      assertNotNull(third.get(), "used by the field: kept");
      growing.set1Value(100, 1f);  // beyond the buffer: the values move out
      dying.dispose();
      for (int i = 0; i < 20 && (first.get() != null || third.get() != null); i++) collectGarbage();
      assertEquals(null, first.get(), "let go once the field outgrew it");
      assertEquals(null, third.get(), "let go once the field died");
      assertEquals(4f, growing.getValues(3)[0], "the values moved with the field");
      assertEquals(101, growing.getNum());
    }

    private WeakReference<ByteBuffer> lendForgottenBuffer(SoMFFloat field) {
      ByteBuffer buffer = ByteBuffer.allocateDirect(16).order(ByteOrder.nativeOrder());
      buffer.asFloatBuffer().put(new float[] {1, 2, 3, 4});
      field.setValuesBuffer(buffer);
      return new WeakReference<>(buffer);
    }

    private void collectGarbage() throws InterruptedException {
      System.gc();
      Thread.sleep(20);
    }

    private void fillCoordinatesFromAForgottenBuffer(SoSeparator root, int count) {
      FloatBuffer buffer = ByteBuffer.allocateDirect(12 * count).order(ByteOrder.nativeOrder()).asFloatBuffer();
      for (int i = 0; i < 3 * count; i++) buffer.put(i, i);
      SoCoordinate3 coordinates = new SoCoordinate3();
      coordinates.point.setValuesBuffer(count, buffer);
      root.addChild(coordinates);
    }

    @Test
    void misuseGivesJavaExceptions() {
      SoMFVec3f field = new SoMFVec3f();
      field.setValues(0, new float[] {1, 2, 3});
      assertTrue(assertThrows(NullPointerException.class, () -> field.setValuesBuffer(1, null)).getMessage()
          .contains("buffer"));
      assertThrows(NullPointerException.class, () -> field.setValuesBuffer(null));
      assertThrows(IllegalArgumentException.class, () -> field.setValuesBuffer(FloatBuffer.allocate(3)),
          "not direct");
      assertThrows(IllegalArgumentException.class,
          () -> field.setValuesBuffer(ByteBuffer.allocateDirect(12).order(ByteOrder.nativeOrder()).asIntBuffer()),
          "int buffer for float values");
      ByteOrder other = ByteOrder.nativeOrder() == ByteOrder.BIG_ENDIAN ? ByteOrder.LITTLE_ENDIAN : ByteOrder.BIG_ENDIAN;
      assertThrows(IllegalArgumentException.class,
          () -> field.setValuesBuffer(ByteBuffer.allocateDirect(12).order(other)), "foreign byte order");
      assertThrows(IllegalArgumentException.class,
          () -> field.setValuesBuffer(2, ByteBuffer.allocateDirect(23).order(ByteOrder.nativeOrder())), "too small");
      assertThrows(IllegalArgumentException.class,
          () -> field.setValuesBuffer(-1, ByteBuffer.allocateDirect(12).order(ByteOrder.nativeOrder())));
      IntBuffer misaligned = ByteBuffer.allocateDirect(64).order(ByteOrder.nativeOrder()).position(1).slice()
          .order(ByteOrder.nativeOrder()).asIntBuffer();
      assertThrows(IllegalArgumentException.class, () -> new SoMFInt().setValuesBuffer(misaligned), "misaligned");
      assertArrayEquals(new float[] {1, 2, 3}, field.getValuesFlat(0), "misuse changed nothing");
    }
  }
  @Nested
  class Images {
    private final byte[] rgb2x3 = {
        1, 2, 3, 4, 5, 6,
        7, 8, 9, 10, 11, 12,
        (byte) 0xFF, (byte) 0x80, 0, 127, (byte) 0xFE, 13};

    @Test
    void bytePixelsRoundTripAsACopy() {
      SoSFImage image = new SoSFImage();
      byte[] pixels = rgb2x3.clone();
      image.setValue(new SbVec2s((short) 2, (short) 3), 3, pixels);
      pixels[0] = 99;  // the field took a copy
      SbVec2i32 size = new SbVec2i32();
      int[] nc = new int[1];
      byte[] back = image.getValue(size, nc);
      assertArrayEquals(new int[] {2, 3}, size.array);
      assertEquals(3, nc[0]);
      assertArrayEquals(rgb2x3, back);
      assertArrayEquals(new int[] {2, 3}, image.getSize().array, "the generated getter agrees");
      assertEquals(3, image.getNumComponents());
      assertEquals(18L, image.getValueSize());
      assertEquals(SoSFImage.DataTypes.UNSIGNED_BYTE, image.getDataType());
      back[1] = 42;  // and gave one
      assertArrayEquals(rgb2x3, image.getPixels());

      ByteBuffer out = ByteBuffer.allocateDirect(20);
      out.position(1);
      image.getPixels(out);
      assertEquals(19, out.position());
      byte[] copied = new byte[18];
      out.position(1);
      out.get(copied);
      assertArrayEquals(rgb2x3, copied);

      image.setValue(new SbVec2s((short) 0, (short) 0), 0, new byte[0]);
      byte[] none = image.getValue(size, nc);
      assertNotNull(none);
      assertEquals(0, none.length);
    }

    @Test
    void typedPixelsFromADirectBuffer() {
      FloatBuffer floats = ByteBuffer.allocateDirect(4 * 5).order(ByteOrder.nativeOrder()).asFloatBuffer();
      floats.put(new float[] {9, 0.5f, -1, 2, 1e6f});
      floats.position(1);
      SoSFImage image = new SoSFImage();
      image.setValue(new SbVec2i32(2, 2), 1, SoSFImage.DataTypes.FLOAT, floats);
      assertEquals(SoSFImage.DataTypes.FLOAT, image.getDataType());
      assertEquals(16L, image.getValueSize());
      floats.put(1, 7f);  // copied: the field does not see it
      FloatBuffer back = ByteBuffer.wrap(image.getPixels()).order(ByteOrder.nativeOrder()).asFloatBuffer();
      float[] values = new float[4];
      back.get(values);
      assertArrayEquals(new float[] {0.5f, -1, 2, 1e6f}, values);
    }

    @Test
    void pixelsOfABufferObjectCopiedOrUsedInPlace() {
      SoCpuBufferObject buffer = new SoCpuBufferObject(new byte[] {1, 2, 3, 4, 5, 6, 7, 8, 9});
      SoSFImage copied = new SoSFImage();
      SoSFImage inPlace = new SoSFImage();
      SbVec2s size = new SbVec2s((short) 2, (short) 2);
      copied.setValue(size, 2, SoSFImage.DataTypes.UNSIGNED_BYTE, buffer, SoSFImage.CopyPolicies.COPY);
      inPlace.setValue(size, 2, SoSFImage.DataTypes.UNSIGNED_BYTE, buffer, SoSFImage.CopyPolicies.NO_COPY);
      assertArrayEquals(new byte[] {1, 2, 3, 4, 5, 6, 7, 8}, copied.getPixels());
      assertArrayEquals(new byte[] {1, 2, 3, 4, 5, 6, 7, 8}, inPlace.getPixels());
      buffer.write(0, new byte[] {10});
      assertEquals(10, inPlace.getPixels()[0], "the field uses the buffer's memory");
      assertEquals(1, copied.getPixels()[0], "the copy does not");
      assertFalse(buffer.setSize(100), "the buffer keeps its size while the field uses it");
      buffer.dispose();  // the field's own reference keeps the buffer
      for (int i = 0; i < 3; i++) System.gc();
      assertEquals(10, inPlace.getPixels()[0]);

      SoCpuBufferObject small = new SoCpuBufferObject(new byte[3]);
      assertThrows(IllegalArgumentException.class, () -> copied.setValue(size, 1, SoSFImage.DataTypes.UNSIGNED_BYTE,
          small, SoSFImage.CopyPolicies.COPY), "too small");
      assertThrows(IllegalArgumentException.class, () -> copied.setValue(new SbVec2s((short) 1, (short) 1), 1,
          SoSFImage.DataTypes.FLOAT, small, SoSFImage.CopyPolicies.COPY), "not bytes");
      assertThrows(NullPointerException.class, () -> copied.setValue(size, 1, SoSFImage.DataTypes.UNSIGNED_BYTE,
          null, SoSFImage.CopyPolicies.COPY));
      assertThrows(IndexOutOfBoundsException.class, () -> small.write(1, new byte[3]));
      assertThrows(IndexOutOfBoundsException.class, () -> small.read(-1, new byte[1]));
      small.dispose();
      assertThrows(IllegalStateException.class, () -> copied.setValue(size, 1, SoSFImage.DataTypes.UNSIGNED_BYTE,
          small, SoSFImage.CopyPolicies.COPY), "disposed buffer");
      assertArrayEquals(new byte[] {1, 2, 3, 4, 5, 6, 7, 8}, copied.getPixels(), "misuse changed nothing");
    }

    @Test
    void threeDimensionalPixelsRoundTrip() {
      SoSFImage3 image = new SoSFImage3();
      byte[] pixels = {1, 2, 3, 4, 5, 6, 7, (byte) 200};
      image.setValue(new SbVec3s((short) 2, (short) 2, (short) 2), 1, pixels);
      SbVec3s size = new SbVec3s();
      int[] nc = new int[1];
      assertArrayEquals(pixels, image.getValue(size, nc));
      assertArrayEquals(new short[] {2, 2, 2}, size.array);
      assertEquals(1, nc[0]);
    }

    @Test
    void misuseGivesJavaExceptions() {
      SoSFImage image = new SoSFImage();
      SbVec2s two = new SbVec2s((short) 2, (short) 2);
      image.setValue(two, 1, new byte[] {1, 2, 3, 4});
      assertTrue(assertThrows(NullPointerException.class, () -> image.setValue(null, 1, new byte[4])).getMessage()
          .contains("size"));
      assertTrue(assertThrows(NullPointerException.class, () -> image.setValue(two, 1, (byte[]) null)).getMessage()
          .contains("pixels"));
      assertThrows(IllegalArgumentException.class, () -> image.setValue(two, 1, new byte[3]), "too few pixels");
      assertThrows(IllegalArgumentException.class, () -> image.setValue(two, 5, new byte[20]), "five components");
      assertThrows(IllegalArgumentException.class, () -> image.setValue(two, -1, new byte[4]));
      assertThrows(IllegalArgumentException.class,
          () -> image.setValue(new SbVec2s((short) -2, (short) 2), 1, new byte[4]), "negative size");
      SbVec2i32 big = new SbVec2i32(1 << 16, 1 << 16);
      assertThrows(IllegalArgumentException.class, () -> image.setValue(big, 4, SoSFImage.DataTypes.FLOAT,
          ByteBuffer.allocateDirect(64).order(ByteOrder.nativeOrder())), "a buffer far too small");
      assertThrows(IllegalArgumentException.class, () -> image.setValue(new SbVec2i32(2, 2), 1,
          SoSFImage.DataTypes.UNSIGNED_BYTE, ByteBuffer.allocate(4)), "not direct");
      ByteOrder other = ByteOrder.nativeOrder() == ByteOrder.BIG_ENDIAN ? ByteOrder.LITTLE_ENDIAN : ByteOrder.BIG_ENDIAN;
      assertThrows(IllegalArgumentException.class, () -> image.setValue(new SbVec2i32(1, 1), 1,
          SoSFImage.DataTypes.FLOAT, ByteBuffer.allocateDirect(4).order(other).asFloatBuffer()), "foreign order");
      assertThrows(NullPointerException.class, () -> image.setValue(new SbVec2i32(1, 1), 1, null,
          ByteBuffer.allocateDirect(4).order(ByteOrder.nativeOrder())));
      assertThrows(IllegalArgumentException.class, () -> image.getValue(new SbVec2i32(), new int[0]));
      assertThrows(NullPointerException.class, () -> image.getValue(null, new int[1]));
      assertThrows(IllegalArgumentException.class, () -> image.getPixels(ByteBuffer.allocateDirect(3)), "no room");
      assertThrows(IllegalArgumentException.class, () -> image.getPixels(ByteBuffer.allocate(4)), "not direct");
      assertArrayEquals(new byte[] {1, 2, 3, 4}, image.getPixels(), "misuse changed nothing");

      SoSFImage3 volume = new SoSFImage3();
      assertThrows(IllegalArgumentException.class,
          () -> volume.setValue(new SbVec3s((short) 2, (short) 2, (short) 2), 1, new byte[7]));
      assertThrows(IllegalArgumentException.class,
          () -> volume.setValue(new SbVec3s((short) 2, (short) 2, (short) -1), 1, new byte[8]));

      image.dispose();
      assertThrows(IllegalStateException.class, () -> image.getPixels());
      assertThrows(IllegalStateException.class, () -> image.setValue(two, 1, new byte[4]));
    }
  }
}
