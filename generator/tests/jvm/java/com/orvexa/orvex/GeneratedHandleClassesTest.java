package com.orvexa.orvex;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

/** The handle-backed Sb* classes: plain native objects owned by their Java wrapper. */
class GeneratedHandleClassesTest {
  @Test
  void timeArithmeticAndFormatting() {
    SbTime t = new SbTime(1.5);
    assertEquals(3.5, t.plus(new SbTime(2.0)).getValue(), 1e-12);
    assertEquals(-0.5, t.minus(new SbTime(2.0)).getValue(), 1e-12);
    assertEquals(3.0, t.times(2.0).getValue(), 1e-12);
    assertEquals(0.75, t.over(2.0).getValue(), 1e-12);
    assertEquals(0.75, t.over(new SbTime(2.0)), 1e-12);
    t.add(new SbTime(0.25));
    assertEquals(1.75, t.getValue(), 1e-12);
    long[] sec = new long[1];
    long[] usec = new long[1];
    new SbTime(3, 250000).getValue(sec, usec);
    assertEquals(3, sec[0]);
    assertEquals(250000, usec[0]);
    assertEquals(new SbTime(2.0), new SbTime(2.0));
    assertNotEquals(new SbTime(2.0), new SbTime(2.5));
    assertTrue(SbTime.getTimeOfDay().getValue() > 1.6e9);  // after 2020
    assertEquals(1500L, new SbTime(1.5).getMsecValue());
  }

  @Test
  void ownedWrapperReleasesItsObject() {
    SbTime t = new SbTime(1.0);
    assertTrue(t.getNativeResourceHandleInternal() != 0L);
    t.dispose();
    assertEquals(0L, t.getNativeResourceHandleInternal());
  }

  @Test
  void viewportRegionReturnsValuesHeldByTheObject() {
    SbViewportRegion vp = new SbViewportRegion((short) 200, (short) 100);
    assertArrayEquals(new short[] {200, 100}, vp.getWindowSize().array);  // reference result: copied by handle
    vp.setViewport(0.25f, 0, 0.5f, 1);
    assertArrayEquals(new short[] {100, 100}, vp.getViewportSizePixels().array);  // value result
    assertEquals(1f, vp.getViewportAspectRatio(), 1e-6f);
    SbViewportRegion same = new SbViewportRegion(new SbVec2s((short) 200, (short) 100));
    same.setViewport(new SbVec2f(0.25f, 0), new SbVec2f(0.5f, 1));
    assertEquals(vp, same);
  }

  @Test
  void viewVolumeProjectsLikeACamera() {
    SbViewVolume vv = new SbViewVolume();
    vv.perspective((float) (Math.PI / 2), 1, 1, 10);
    assertEquals(SbViewVolume.ProjectionType.PERSPECTIVE, vv.getProjectionType());
    SbVec3f s = new SbVec3f();
    vv.projectToScreen(new SbVec3f(0, 0, -5), s);
    // normalised depth at distance 5 for near 1, far 10: (1 + 7/9) / 2
    assertArrayEquals(new float[] {0.5f, 0.5f, 8f / 9}, s.array, 1e-5f);
    SbLine ray = new SbLine();
    vv.projectPointToLine(new SbVec2f(0.5f, 0.5f), ray);
    assertArrayEquals(new float[] {0, 0, -1}, ray.getDirection().array, 1e-6f);
  }

  @Test
  void dataTypeEnumAndQueries() {
    assertEquals(10, SbDataType.DataType.FLOAT.getValue());
    assertEquals(0xFFFF, SbDataType.DataType.UNKNOWN.getValue());
    SbDataType t = new SbDataType(SbDataType.DataType.SIGNED_SHORT);
    assertEquals(2, t.getSize());
    assertEquals(-32768.0, t.getMin());
    assertTrue(t.isSigned());
    assertEquals("SIGNED_SHORT", t.getString());
    assertEquals(SbDataType.DataType.FLOAT, new SbDataType("FLOAT").getType());
    assertEquals(SbDataType.DataType.UNKNOWN, new SbDataType("nonsense").getType());
    assertFalse(new SbDataType(SbDataType.DataType.DOUBLE).isInteger());
  }

  @Test
  void cpuReportsProcessors() {
    SbCPUID cpu = new SbCPUID();
    assertTrue(cpu.getNumLogicalProcessors() >= 1);
    assertFalse(cpu.getVendor().isEmpty());
  }
}
