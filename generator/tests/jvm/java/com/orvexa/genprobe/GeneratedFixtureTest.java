package com.orvexa.genprobe;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.Method;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.lang.reflect.Modifier;
import java.util.Arrays;
import java.util.Set;
import java.util.TreeSet;
import java.util.stream.Collectors;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Nested;
import org.junit.jupiter.api.Test;

/** The generated fixture classes, run in the JVM. */
class GeneratedFixtureTest {
  @BeforeAll
  static void loadFixtureLibrary() {
    GenProbeSupport.load();
  }

  private static Set<String> nativeNames(Class<?> cls) {
    return Arrays.stream(cls.getDeclaredMethods())
        .filter(m -> Modifier.isNative(m.getModifiers()))
        .map(Method::getName)
        .collect(Collectors.toCollection(TreeSet::new));
  }

  @Nested
  class Guards {
    @Test
    void plainObjectRunsItsOwnImplementation() {
      assertEquals("base", new GuardProbe().describe());
    }

    @Test
    void nativeSubclassIsDispatchedVirtually() {
      assertEquals("derived", GuardProbe.makeDerived().describe());
    }

    @Test
    void javaExtendedObjectGetsTheBaseImplementationNotItsOverride() {
      GuardProbe custom = GuardProbe.adopt(GenProbeSupport.makeCustom());
      assertEquals("base", custom.describe());
    }

    /** A Java subclass whose overrides the generated CustomGuardProbe calls. */
    static final class JavaGuardProbe extends GuardProbe {
      boolean fail;

      JavaGuardProbe(long handle) {
        super(new GuardProbe.NativeResourceHandle(handle));
      }

      @Override
      public String describe() {
        if (fail) throw new UnsupportedOperationException("override failed on purpose");
        return "java+" + super.describe();
      }

      @Override
      public float scaled(float factor) {
        return super.scaled(factor) + 0.5f;
      }

      @Override
      public GuardProbe.Mode preferredMode(GuardProbe.Mode given) {
        return given == GuardProbe.Mode.QUIET ? GuardProbe.Mode.LOUD_MODE : GuardProbe.Mode.QUIET;
      }
    }

    private JavaGuardProbe boundJavaProbe() {
      GenProbeSupport.initCustomGuardProbe();
      long handle = GenProbeSupport.makeCustom();
      JavaGuardProbe probe = new JavaGuardProbe(handle);
      GenProbeSupport.bindCustom(handle, probe);
      return probe;
    }

    @Test
    void generatedCustomClassForwardsVirtualsToTheJavaOverride() {
      JavaGuardProbe probe = boundJavaProbe();
      long handle = probe.getNativeResourceHandleInternal();
      // The override calls super, which runs the toolkit's base once: no recursion.
      assertEquals("java+base", GenProbeSupport.describeNatively(handle));
      assertEquals(2 * 3f + 0.5f, GenProbeSupport.scaledNatively(handle, 3f));
      assertEquals(GuardProbe.Mode.LOUD_MODE.getValue(),
          GenProbeSupport.preferredModeNatively(handle, GuardProbe.Mode.QUIET.getValue()));
      assertEquals(GuardProbe.Mode.QUIET.getValue(),
          GenProbeSupport.preferredModeNatively(handle, GuardProbe.Mode.LOUD_MODE.getValue()));
    }

    @Test
    void anOverrideThatThrowsBecomesTheNamedIllegalArgumentException() {
      JavaGuardProbe probe = boundJavaProbe();
      probe.fail = true;
      IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
          () -> GenProbeSupport.describeNatively(probe.getNativeResourceHandleInternal()));
      assertEquals("Exception raised during execution of CustomGuardProbe.describe.", e.getMessage());
      probe.fail = false;
      assertEquals("java+base", GenProbeSupport.describeNatively(probe.getNativeResourceHandleInternal()));
    }

    @Test
    void protectedMemberRefusedOnPlainObjects() {
      IllegalAccessException e = assertThrows(IllegalAccessException.class, () -> callSecret(new GuardProbe(), 3));
      assertEquals("Call of protected methods not allowed.", e.getMessage());
    }

    @Test
    void protectedMemberAllowedOnJavaExtendedObjects() throws Exception {
      GuardProbe custom = GuardProbe.adopt(GenProbeSupport.makeCustom());
      assertEquals(21, callSecret(custom, 3));
    }

    // The JNI exception is a checked one that the Java signature does not
    // declare; rethrow it as what it is.
    private int callSecret(GuardProbe probe, int x) throws IllegalAccessException {
      try {
        return probe.secret(x);
      } catch (Throwable t) {
        if (t instanceof IllegalAccessException) throw (IllegalAccessException) t;
        throw t;
      }
    }
  }

  @Nested
  class Enums {
    @Test
    void constantsReadTheirValuesFromNative() {
      assertEquals(0, GuardProbe.Mode.QUIET.getValue());
      assertEquals(3, GuardProbe.Mode.LOUD_MODE.getValue());
    }

    @Test
    void enumArgumentsAndResultsCrossAsInt() {
      GuardProbe p = new GuardProbe();
      assertEquals(GuardProbe.Mode.QUIET, p.getMode());
      p.setMode(GuardProbe.Mode.LOUD_MODE);
      assertEquals(GuardProbe.Mode.LOUD_MODE, p.getMode());
    }
  }

  @Nested
  class Numbering {
    @Test
    void nativeMethodsCarryTheOverloadNumbers() {
      Set<String> names = nativeNames(ProbeValue.class);
      assertTrue(names.containsAll(Set.of("ctorImpl", "ctorImpl1", "ctorImpl2", "setValueImpl1", "setValueImpl2",
          "multiplyImpl", "multiplyImpl1", "addImpl", "equalsImpl", "equalsImpl1", "timesImpl", "sumImpl2",
          "getImpl", "checkSize", "setValueFromHandle", "toArrayImpl")), names.toString());
      assertFalse(names.contains("setValueImpl"), "number 0 is done in Java");
      assertFalse(names.contains("sumImpl"), "numbers 0 and 1 of sum are reserved");
      assertFalse(names.contains("timesImpl1"), "operator*(float, v) is not a member of the class's Java form");
    }

    @Test
    void nestedHandleClassHasTheDeleteEntry() {
      assertEquals(Set.of("deleteNativeHandleImpl"), nativeNames(GuardProbe.NativeResourceHandle.class));
    }
  }

  @Nested
  class Values {
    @Test
    void javaSideOverloadAndNativeOverloadsAgree() {
      ProbeValue a = new ProbeValue().setValue(new float[] {1, 2});
      ProbeValue b = new ProbeValue(1, 2);
      assertEquals(a, b);
      assertEquals(3f, b.sum());
    }

    @Test
    void receiverAsItsOwnArgumentDoubles() {
      ProbeValue v = new ProbeValue(1.5f, -2f);
      v.add(v);
      assertArrayEquals(new float[] {3f, -4f}, v.array);
    }

    @Test
    void readOnlyOperandIsNotCopiedBack() {
      ProbeValue a = new ProbeValue(1, 2);
      ProbeValue b = new ProbeValue(1, 2);
      assertTrue(a.equals(b, 0.01f));
      // The native side wrote -1 into its view of b; READ_ONLY drops that view.
      assertArrayEquals(new float[] {1, 2}, b.array);
    }

    @Test
    void readWriteOperandIsCopiedBack() {
      ProbeValue a = new ProbeValue(1, 2);
      ProbeValue b = new ProbeValue(1, 2);
      a.scribble(b);
      assertEquals(99f, b.array[0]);
    }

    @Test
    void outParametersArriveInOneElementArrays() {
      float[] x = new float[1];
      float[] y = new float[1];
      new ProbeValue(4, 5).get(x, y);
      assertEquals(4f, x[0]);
      assertEquals(5f, y[0]);
    }

    @Test
    void operatorResultsAreNewValues() {
      ProbeValue v = new ProbeValue(1, 2);
      ProbeValue w = v.times(3f);
      assertArrayEquals(new float[] {3, 6}, w.array);
      assertArrayEquals(new float[] {1, 2}, v.array);
      v.multiply(new ProbeValue(2, 10));
      assertArrayEquals(new float[] {2, 20}, v.array);
    }
  }

  @Nested
  class NestedClasses {
    @Test
    void nestedHandleClassHasItsOwnEntryPointsAndDeleteEntry() {
      assertEquals(Set.of("deleteNativeHandleImpl"), nativeNames(ProbeNest.Item.NativeResourceHandle.class));
      assertTrue(nativeNames(ProbeNest.Item.class).containsAll(Set.of("ctorImpl", "setValueImpl", "getIdImpl",
          "getLabelImpl", "equalsImpl", "toArrayImpl")));
      assertFalse(nativeNames(ProbeNest.Item.class).contains("ctorImpl1"), "the full constructor is done in Java");
      assertEquals("com.orvexa.genprobe.ProbeNest$Item", ProbeNest.Item.class.getName());
    }

    @Test
    void nestedObjectConstructSetCompareDispose() {
      ProbeNest.Item a = new ProbeNest.Item(7, "seven");
      ProbeNest.Item b = new ProbeNest.Item();
      assertEquals(0, b.getId());
      assertEquals("", b.getLabel());
      assertFalse(a.equals(b));
      b.setValue(7, "seven");
      assertEquals(a, b);
      b.setColor(ProbeNest.Item.Color.DEEP_BLUE);
      assertEquals(ProbeNest.Item.Color.DEEP_BLUE, b.getColor());
      assertFalse(a.equals(b), "the toolkit's equality compares the colour too");
      b.dispose();
      assertEquals(0L, b.getNativeResourceHandleInternal());
      assertEquals(7, a.getId());
    }

    @Test
    void enumOfANestedClassReadsItsValuesFromNative() {
      assertEquals(1, ProbeNest.Item.Color.RED.getValue());
      assertEquals(4, ProbeNest.Item.Color.DEEP_BLUE.getValue());
    }

    @Test
    void arrayResultOfHandleObjectsArrivesAsIndependentCopies() {
      ProbeNest nest = new ProbeNest();
      assertEquals(0, nest.getItems().length);
      nest.addItem(new ProbeNest.Item(1, "one"));
      ProbeNest.Item two = new ProbeNest.Item(2, "two");
      two.setColor(ProbeNest.Item.Color.DEEP_BLUE);
      nest.addItem(two);
      ProbeNest.Item[] items = nest.getItems();
      assertEquals(2, items.length);
      assertEquals(1, items[0].getId());
      assertEquals("one", items[0].getLabel());
      assertEquals(two, items[1]);
      assertTrue(items[0].getNativeResourceHandleInternal() != items[1].getNativeResourceHandleInternal());
      // Copies: changing one leaves the toolkit's item alone, and they outlive
      // the toolkit's storage moving.
      items[0].setValue(10, "ten");
      assertEquals("one", nest.findItem(1).getLabel());
      for (int i = 3; i < 40; i++) nest.addItem(new ProbeNest.Item(i, "x"));
      assertEquals("two", items[1].getLabel());
      assertEquals(39, nest.getItems().length);
      assertNull(nest.findItem(99));
    }

    @Test
    void toArrayImplIgnoresNullZeroAndEmptyAndSkipsDisposedObjects() {
      ProbeNest nest = new ProbeNest();
      nest.addItem(new ProbeNest.Item(5, "five"));
      nest.addItem(new ProbeNest.Item(6, "six"));
      long address = ProbeNest.getItemsImpl(nest.getNativeResourceHandleInternal());
      ProbeNest.Item target = new ProbeNest.Item(1, "keep");
      ProbeNest.Item.toArrayImpl(new ProbeNest.Item[] {target}, 0L);
      ProbeNest.Item.toArrayImpl(null, address);
      ProbeNest.Item.toArrayImpl(new ProbeNest.Item[0], address);
      assertEquals("keep", target.getLabel());
      ProbeNest.Item disposed = new ProbeNest.Item();
      disposed.dispose();
      ProbeNest.Item.toArrayImpl(new ProbeNest.Item[] {disposed, target}, address);
      assertEquals(6, target.getId(), "element 1 of the native array");
      assertEquals("six", target.getLabel());
    }

    @Test
    void nestedValueTypeAndArraysOfIt() {
      ProbeNest nest = new ProbeNest();
      ProbeNest.Span span = ProbeNest.Span.wrap(new float[] {1.5f, 4f});
      assertEquals(2.5f, span.width());
      nest.setSpan(1, span);
      assertArrayEquals(new float[] {1.5f, 4f}, nest.getSpan(1).array);
      ProbeNest.Span[] spans = nest.getSpans();
      assertEquals(2, spans.length);
      assertArrayEquals(new float[] {0f, 0f}, spans[0].array);
      assertEquals(span, spans[1]);
    }
  }

  @Nested
  class Collections {
    @Test
    void objectArraysGoInAsHandlesAndPointerListsComeBackAsAddresses() {
      GuardProbe a = new GuardProbe();
      GuardProbe b = new GuardProbe();
      ProbeList list = new ProbeList();
      list.setProbes(new GuardProbe[] {a, b, null}, 3);
      assertArrayEquals(new long[] {a.getNativeResourceHandleInternal(), b.getNativeResourceHandleInternal(), 0L},
          list.getProbes());
      assertEquals(3, list.findProbes(false).length);
      assertNull(list.findProbes(true), "no list from the toolkit: null, not an empty array");
      list.setProbes(new GuardProbe[0], 0);
      assertEquals(0, list.getProbes().length);
    }

    @Test
    void stringArraysAsUtf8AndAsToolkitStrings() {
      ProbeList list = new ProbeList();
      assertEquals(5, list.joinLength(new String[] {"ab", "cde"}, 2));
      assertEquals("x,\u00e9\ud83d\ude00,z", list.joinNames(new String[] {"x", "\u00e9\ud83d\ude00", "z"}, 3));
    }

    @Test
    void toolkitOwnedIntsArriveAsADirectBufferOfTheCallersOwn() {
      ProbeList list = new ProbeList();
      list.setCodes(7, 8, 9);
      ByteBuffer[] codes = new ByteBuffer[1];
      list.getCodes(codes);
      assertTrue(codes[0].isDirect());
      // The count is the buffer's capacity; the ints are in the platform's order.
      assertEquals(12, codes[0].capacity());
      assertEquals(ByteOrder.nativeOrder(), codes[0].order());
      ByteBuffer copy = codes[0];
      assertEquals(8, copy.getInt(4));
      // The toolkit's memory changes and goes; the caller's copy stays.
      list.setCodes(1, 2, 3);
      assertEquals(8, copy.getInt(4), "a copy, not a view of memory the toolkit may free");
      list.dispose();
      assertEquals(9, copy.getInt(8));
    }
  }
}
