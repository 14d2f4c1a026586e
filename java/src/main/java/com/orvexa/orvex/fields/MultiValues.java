package com.orvexa.orvex.fields;

import com.orvexa.internal.NativeCalls;
import java.lang.reflect.Array;
import java.nio.Buffer;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.DoubleBuffer;
import java.nio.FloatBuffer;
import java.nio.IntBuffer;
import java.nio.LongBuffer;
import java.nio.ShortBuffer;
import java.util.function.Function;

/**
 * Values in bulk for one multiple-value field class whose values are numbers
 * or fixed runs of numbers: flat primitive arrays ({@code A}, three floats per
 * {@code SbVec3f}), arrays of value objects, and direct buffers ({@code B}).
 * Each such class holds one instance, made with the class's native methods,
 * and its public bulk methods delegate here; this class checks every
 * argument, so the natives can trust what they receive.
 *
 * <h2>Buffers and the field's memory</h2>
 * A buffer that a field hands out ({@code startEditing}, {@code
 * getDirectValues}) is a view of memory that Java owns: the first time, the
 * field's values move into a new direct buffer, which the field then uses as
 * its storage. The field keeps using that memory until it needs more room (or
 * gets other memory through {@code setValuesBuffer}); from then on its values
 * live elsewhere and the old view, still valid memory, no longer shows them.
 * Ask for a new view after any call that may grow the field. A buffer given to
 * {@code setValuesBuffer} becomes the field's storage the same way, and stays
 * reachable while the field uses it, whatever becomes of the Java objects.
 * Buffers must be direct and in the platform's byte order; a read-only buffer
 * is copied by the field before its first change.
 */
final class MultiValues<A, B extends Buffer> {
  interface Setter<A> {
    void set(long field, int start, int num, A values);
  }

  interface FlatGetter<A> {
    A get(long field, int start);
  }

  interface Storage {
    Buffer get(long field);
  }

  interface BufferUser {
    void use(long field, int num, Buffer buffer, boolean readOnly);
  }

  private static final ByteOrder NATIVE = ByteOrder.nativeOrder();

  private final int components;
  private final int valueBytes;
  private final Class<A> arrayClass;
  private final Class<B> bufferClass;
  private final Setter<A> setter;
  private final FlatGetter<A> flatGetter;
  private final Storage editing;
  private final Storage direct;
  private final BufferUser bufferUser;

  /**
   * @param components numbers per value
   * @param arrayClass the flat array class ({@code float[].class})
   * @param bufferClass the buffer class of the numbers ({@code FloatBuffer.class}; {@code ByteBuffer.class} for booleans)
   */
  MultiValues(int components, Class<A> arrayClass, Class<B> bufferClass, Setter<A> setter, FlatGetter<A> flatGetter,
      Storage editing, Storage direct, BufferUser bufferUser) {
    this.components = components;
    this.valueBytes = components * componentBytes(arrayClass.getComponentType());
    this.arrayClass = arrayClass;
    this.bufferClass = bufferClass;
    this.setter = setter;
    this.flatGetter = flatGetter;
    this.editing = editing;
    this.direct = direct;
    this.bufferUser = bufferUser;
  }

  /** Numbers per value. */
  int components() {
    return components;
  }

  /** Sets {@code num} values from {@code start}, taken from the first {@code num * components} numbers of {@code values}. */
  void set(SoMField field, int start, int num, A values, String parameter) {
    if (values == null) throw NativeCalls.nullArgument(parameter);
    if (start < 0) throw new IndexOutOfBoundsException("start " + start + " is negative");
    if (num < 0) throw new IllegalArgumentException("num " + num + " is negative");
    if ((long) start + num > Integer.MAX_VALUE) throw new IndexOutOfBoundsException("start + num beyond the largest index");
    long needed = (long) num * components;
    int length = Array.getLength(values);
    if (length < needed) throw NativeCalls.tooShort(parameter, needed, length);
    final long self = NativeCalls.begin(field, "this");
    try {
      setter.set(self, start, num, values);
    } finally {
      NativeCalls.end(field);
    }
  }

  /** Sets the values from {@code start} to the numbers of {@code flat}, whose length must be a multiple of the components. */
  void setFlat(SoMField field, int start, A flat, String parameter) {
    if (flat == null) throw NativeCalls.nullArgument(parameter);
    int length = Array.getLength(flat);
    if (length % components != 0)
      throw new IllegalArgumentException(parameter + " has " + length + " numbers, not a multiple of " + components);
    set(field, start, length / components, flat, parameter);
  }

  /** Sets the values from {@code start} to copies of {@code values}; {@code numbers} gives a value's numbers. */
  <V> void setValues(SoMField field, int start, V[] values, Function<V, A> numbers, String parameter) {
    if (values == null) throw NativeCalls.nullArgument(parameter);
    @SuppressWarnings("unchecked")
    A flat = (A) Array.newInstance(arrayClass.getComponentType(), values.length * components);
    for (int i = 0; i < values.length; i++) {
      if (values[i] == null) throw NativeCalls.nullArgument(parameter + "[" + i + "]");
      System.arraycopy(numbers.apply(values[i]), 0, flat, i * components, components);
    }
    set(field, start, values.length, flat, parameter);
  }

  /** The numbers of the values from {@code start} to the end, in a new array; empty for {@code getNum()}. */
  A getFlat(SoMField field, int start) {
    final long self = NativeCalls.begin(field, "this");
    try {
      checkStart(field, start);
      return flatGetter.get(self, start);
    } finally {
      NativeCalls.end(field);
    }
  }

  /** The field's values as a buffer to change in place; the field's {@code finishEditing()} tells of the changes. */
  B startEditing(SoMField field) {
    final long self = NativeCalls.begin(field, "this");
    try {
      Buffer storage = editing.get(self);
      return view(storage, 0, field.getNum());
    } finally {
      NativeCalls.end(field);
    }
  }

  /** The values from {@code start} on as a buffer over the field's storage (see the class comment). */
  B getDirectValues(SoMField field, int start) {
    final long self = NativeCalls.begin(field, "this");
    try {
      checkStart(field, start);
      Buffer storage = direct.get(self);
      return view(storage, start, field.getNum());
    } finally {
      NativeCalls.end(field);
    }
  }

  /** Makes the field hold the {@code num} values at the start of the buffer's remaining content, in place. */
  void setValuesBuffer(SoMField field, int num, Buffer buffer) {
    if (buffer == null) throw NativeCalls.nullArgument("buffer");
    if (num < 0) throw new IllegalArgumentException("num " + num + " is negative");
    checkBuffer(buffer);
    long bytes = (long) buffer.remaining() * elementBytes(buffer);
    if (bytes < (long) num * valueBytes)
      throw new IllegalArgumentException("buffer holds " + bytes + " bytes, " + num + " values need " + (long) num * valueBytes);
    final long self = NativeCalls.begin(field, "this");
    try {
      bufferUser.use(self, num, buffer.slice(), buffer.isReadOnly());
    } finally {
      NativeCalls.end(field);
    }
  }

  /** Makes the field hold as many values as the buffer's remaining content has room for, in place. */
  void setValuesBuffer(SoMField field, Buffer buffer) {
    if (buffer == null) throw NativeCalls.nullArgument("buffer");
    checkBuffer(buffer);
    long values = (long) buffer.remaining() * elementBytes(buffer) / valueBytes;
    setValuesBuffer(field, (int) Math.min(values, Integer.MAX_VALUE), buffer);
  }

  private static void checkStart(SoMField field, int start) {
    int num = field.getNum();
    if (start < 0 || start > num) throw new IndexOutOfBoundsException("start " + start + " outside 0.." + num);
  }

  private void checkBuffer(Buffer buffer) {
    if (!buffer.isDirect()) throw new IllegalArgumentException("buffer must be a direct buffer");
    if (!(buffer instanceof ByteBuffer) && !bufferClass.isInstance(buffer))
      throw new IllegalArgumentException("buffer must be a ByteBuffer or a " + bufferClass.getSimpleName() + ", not a "
          + buffer.getClass().getName());
    if (orderOf(buffer) != NATIVE)
      throw new IllegalArgumentException("buffer must be in the platform's byte order (ByteOrder.nativeOrder())");
  }

  /** A view of the values first..num of storage, whose position 0 is value 0. */
  private B view(Buffer storage, int first, int num) {
    int perElement = elementBytes(storage);
    int from = (int) ((long) first * valueBytes / perElement);
    int to = (int) ((long) num * valueBytes / perElement);
    Buffer window = storage.duplicate().limit(to).position(from).slice();
    if (window instanceof ByteBuffer) {
      ByteBuffer bytes = ((ByteBuffer) window).order(NATIVE);
      return bufferClass.cast(asNumbers(bytes));
    }
    return bufferClass.cast(window);
  }

  private Buffer asNumbers(ByteBuffer bytes) {
    if (bufferClass == FloatBuffer.class) return bytes.asFloatBuffer();
    if (bufferClass == DoubleBuffer.class) return bytes.asDoubleBuffer();
    if (bufferClass == IntBuffer.class) return bytes.asIntBuffer();
    if (bufferClass == LongBuffer.class) return bytes.asLongBuffer();
    if (bufferClass == ShortBuffer.class) return bytes.asShortBuffer();
    return bytes;
  }

  /** The byte order of a buffer of numbers. */
  static ByteOrder orderOf(Buffer buffer) {
    if (buffer instanceof ByteBuffer) return ((ByteBuffer) buffer).order();
    if (buffer instanceof FloatBuffer) return ((FloatBuffer) buffer).order();
    if (buffer instanceof DoubleBuffer) return ((DoubleBuffer) buffer).order();
    if (buffer instanceof IntBuffer) return ((IntBuffer) buffer).order();
    if (buffer instanceof LongBuffer) return ((LongBuffer) buffer).order();
    if (buffer instanceof ShortBuffer) return ((ShortBuffer) buffer).order();
    return null;
  }

  /** Bytes per element of a buffer of numbers. */
  static int elementBytes(Buffer buffer) {
    if (buffer instanceof ByteBuffer) return 1;
    if (buffer instanceof ShortBuffer) return 2;
    if (buffer instanceof FloatBuffer || buffer instanceof IntBuffer) return 4;
    return 8;
  }

  private static int componentBytes(Class<?> component) {
    if (component == double.class || component == long.class) return 8;
    if (component == float.class || component == int.class) return 4;
    if (component == short.class) return 2;
    return 1;
  }
}
