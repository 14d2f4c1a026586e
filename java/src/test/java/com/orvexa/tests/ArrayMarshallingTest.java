package com.orvexa.tests;

import static com.orvexa.testsupport.RuntimeProbe.COMMIT;
import static com.orvexa.testsupport.RuntimeProbe.READ_ONLY;
import static com.orvexa.testsupport.RuntimeProbe.READ_WRITE;
import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.testsupport.RuntimeProbe;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

class ArrayMarshallingTest {
  @BeforeAll
  static void load() {
    RuntimeProbe.init();
  }

  @Test
  void readWriteAndCommitCopyBackForEveryElementType() {
    for (int mode : new int[] {READ_WRITE, COMMIT}) {
      float[] f = {1, 2};
      assertTrue(RuntimeProbe.fillFloats(f, mode, 2.5f));
      assertArrayEquals(new float[] {2.5f, 2.5f}, f);
      double[] d = {1, 2};
      assertTrue(RuntimeProbe.fillDoubles(d, mode, -0.125));
      assertArrayEquals(new double[] {-0.125, -0.125}, d);
      long[] l = {1, 2};
      assertTrue(RuntimeProbe.fillLongs(l, mode, Long.MIN_VALUE));
      assertArrayEquals(new long[] {Long.MIN_VALUE, Long.MIN_VALUE}, l);
      int[] i = {1, 2};
      assertTrue(RuntimeProbe.fillInts(i, mode, -7));
      assertArrayEquals(new int[] {-7, -7}, i);
      short[] s = {1, 2};
      assertTrue(RuntimeProbe.fillShorts(s, mode, (short) 300));
      assertArrayEquals(new short[] {300, 300}, s);
      byte[] b = {1, 2};
      assertTrue(RuntimeProbe.fillBytes(b, mode, (byte) -3));
      assertArrayEquals(new byte[] {-3, -3}, b);
    }
  }

  @Test
  void readOnlyLeavesEveryArrayUnchanged() {
    float[] f = {1, 2};
    assertTrue(RuntimeProbe.fillFloats(f, READ_ONLY, 9));
    assertArrayEquals(new float[] {1, 2}, f);
    double[] d = {1, 2};
    assertTrue(RuntimeProbe.fillDoubles(d, READ_ONLY, 9));
    assertArrayEquals(new double[] {1, 2}, d);
    long[] l = {1, 2};
    assertTrue(RuntimeProbe.fillLongs(l, READ_ONLY, 9));
    assertArrayEquals(new long[] {1, 2}, l);
    int[] i = {1, 2};
    assertTrue(RuntimeProbe.fillInts(i, READ_ONLY, 9));
    assertArrayEquals(new int[] {1, 2}, i);
    short[] s = {1, 2};
    assertTrue(RuntimeProbe.fillShorts(s, READ_ONLY, (short) 9));
    assertArrayEquals(new short[] {1, 2}, s);
    byte[] b = {1, 2};
    assertTrue(RuntimeProbe.fillBytes(b, READ_ONLY, (byte) 9));
    assertArrayEquals(new byte[] {1, 2}, b);
  }

  @Test
  void nullArrayAndModeMinusOneGiveNoView() {
    assertFalse(RuntimeProbe.fillInts(null, READ_WRITE, 1));
    int[] i = {4, 5};
    assertFalse(RuntimeProbe.fillInts(i, -1, 1));
    assertArrayEquals(new int[] {4, 5}, i);
    assertFalse(RuntimeProbe.fillFloats(new float[] {1}, -1, 1));
  }

  @Test
  void oneHelperServesOneArrayWithOnePointerPerMode() {
    assertTrue(RuntimeProbe.sameViewTwice(new int[] {1, 2, 3}, READ_WRITE));
    assertTrue(RuntimeProbe.sameViewTwice(new int[] {1, 2, 3}, READ_ONLY));
    assertTrue(RuntimeProbe.secondArrayRefused(new int[] {1}, new int[] {2}));
  }

  @Test
  void anotherModeReleasesTheFirstBorrowUnderItsOwnMode() {
    int[] a = {0, 0};
    RuntimeProbe.writeUnderTwoModes(a, 5, 6);
    assertArrayEquals(new int[] {0, 6}, a);
  }

  @Test
  void unsignedViewsKeepTheBits() {
    assertEquals(4294967295L, RuntimeProbe.unsignedIntAt(new int[] {-1}, 0));
    assertEquals(2147483648L, RuntimeProbe.unsignedIntAt(new int[] {0, Integer.MIN_VALUE}, 1));
    assertEquals(65535, RuntimeProbe.unsignedShortAt(new short[] {-1}, 0));
    assertEquals(128, RuntimeProbe.unsignedByteAt(new byte[] {(byte) 0x80}, 0));
  }

  @Test
  void booleanViewIsACopyWrittenBackByLowByteOnlyUnderReadWrite() {
    boolean[] a = {true, false, true, false};
    // Only the low byte is stored: 256 becomes false, 257 true.
    int[] written = {256, 1, 0, 257};
    assertArrayEquals(new int[] {1, 0, 1, 0}, RuntimeProbe.booleanView(a, READ_WRITE, written));
    assertArrayEquals(new boolean[] {false, true, false, true}, a);

    for (int mode : new int[] {READ_ONLY, COMMIT}) {
      boolean[] untouched = {true, false, true, false};
      assertArrayEquals(new int[] {1, 0, 1, 0}, RuntimeProbe.booleanView(untouched, mode, written));
      assertArrayEquals(new boolean[] {true, false, true, false}, untouched);
    }
  }

  @Test
  void fromNativeArrayCopiesEveryElementTypeKeepingUnsignedBits() {
    assertArrayEquals(new float[] {0f, 1.5f, 3f}, (float[]) RuntimeProbe.fromNativeArray(0, 3));
    assertArrayEquals(new double[] {0, 0.25, 0.5}, (double[]) RuntimeProbe.fromNativeArray(1, 3));
    assertArrayEquals(new long[] {-1, (1L << 40) + 1, (1L << 40) + 2}, (long[]) RuntimeProbe.fromNativeArray(2, 3));
    assertArrayEquals(new long[] {-1, 1, 2}, (long[]) RuntimeProbe.fromNativeArray(3, 3));
    assertArrayEquals(new int[] {0, -1, -2}, (int[]) RuntimeProbe.fromNativeArray(4, 3));
    assertArrayEquals(new int[] {-1, 1, 2}, (int[]) RuntimeProbe.fromNativeArray(5, 3));
    assertArrayEquals(new short[] {0, -1, -2}, (short[]) RuntimeProbe.fromNativeArray(6, 3));
    assertArrayEquals(new short[] {-1, 1, 2}, (short[]) RuntimeProbe.fromNativeArray(7, 3));
    assertArrayEquals(new byte[] {-1, 1, 2}, (byte[]) RuntimeProbe.fromNativeArray(8, 3));
  }

  @Test
  void fromNativeArrayOfNothingIsNullNotEmpty() {
    for (int kind = 0; kind <= 8; kind++) assertNull(RuntimeProbe.fromNativeArray(kind, 0), "kind " + kind);
    assertTrue(RuntimeProbe.fromNativeArrayOfNullDataIsNull());
  }

  @Test
  void freeCopyFunctionsRoundTrip() {
    int[] ints = {1, -2, Integer.MAX_VALUE, Integer.MIN_VALUE};
    assertArrayEquals(ints, RuntimeProbe.copyInts(ints));
    short[] shorts = {1, -2, Short.MAX_VALUE, Short.MIN_VALUE};
    assertArrayEquals(shorts, RuntimeProbe.copyShorts(shorts));
    float[] floats = {1.5f, -2f, Float.MAX_VALUE};
    assertArrayEquals(floats, RuntimeProbe.copyFloats(floats));
    assertArrayEquals(new int[0], RuntimeProbe.copyInts(new int[0]));
    assertNull(RuntimeProbe.copyInts(null));
    assertTrue(RuntimeProbe.emptyCopiesAreEmptyArrays());
  }

  @Test
  void longCopiesTruncateToThirtyTwoBitsAndWidenBySignExtension() {
    assertArrayEquals(new int[] {0, -1, 1}, RuntimeProbe.truncatedLongs(new long[] {4294967296L, -1L, 4294967297L}));
    assertArrayEquals(new long[] {-1L, 0L, Integer.MIN_VALUE, 5L},
        RuntimeProbe.copyLongs(new long[] {-1L, 4294967296L, 0x80000000L, 5L}));
    assertArrayEquals(new long[] {-1L, Integer.MIN_VALUE, 7L},
        RuntimeProbe.widenInts(new int[] {-1, Integer.MIN_VALUE, 7}));
  }
}
