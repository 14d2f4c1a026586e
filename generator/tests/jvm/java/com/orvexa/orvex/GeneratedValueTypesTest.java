package com.orvexa.orvex;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.genprobe.GenProbeSupport;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import org.junit.jupiter.api.Nested;
import org.junit.jupiter.api.Test;

/**
 * The generated array-backed value classes through the JVM. Expected values
 * are worked out by hand, not with the toolkit's formulas.
 */
class GeneratedValueTypesTest {
  private static final float EPS = 1e-5f;
  private static final float HALF_PI = (float) (Math.PI / 2);

  private static void assertVec(SbVec3f v, float x, float y, float z) {
    assertArrayEquals(new float[] {x, y, z}, v.array, EPS, v.toString());
  }

  @Nested
  class Storage {
    @Test
    void arraysHoldTheToolkitBytes() {
      assertEquals(3, new SbVec3f().array.length);
      assertEquals(4, new SbRotation().array.length);
      assertEquals(16, new SbMatrix().array.length);
      assertEquals(9, new SbMatrix3().array.length);
      assertEquals(16, new SbMatrixd().array.length);
      assertEquals(38, new SbXfBox3f().array.length);
      assertEquals(8, new SbBox4i32().array.length);
      assertEquals(4, new SbVec4ub().array.length);
      assertEquals(7, new SbCylinder().array.length);
    }

    @Test
    void nativeConstructorsFillTheArray() {
      assertArrayEquals(new float[] {0, 0, 0, 1}, new SbRotation().array);  // identity quaternion
      SbMatrix identity = new SbMatrix();
      for (int i = 0; i < 16; i++) assertEquals(i % 5 == 0 ? 1f : 0f, identity.array[i]);
      SbBox3f empty = new SbBox3f();
      assertTrue(empty.isEmpty());
      assertTrue(empty.array[0] > empty.array[3]);
    }

    @Test
    void wrapChecksTheLength() {
      assertThrows(IllegalArgumentException.class, () -> SbVec3f.wrap(new float[4]));
      float[] storage = {1, 2, 3};
      assertSame(storage, SbVec3f.wrap(storage).array);
    }
  }

  @Nested
  class Vectors {
    @Test
    void javaSideAndNativeSetters() {
      SbVec3f v = new SbVec3f(1, 2, 3);
      assertVec(v, 1, 2, 3);
      v.setValue(new SbVec3d(0.5, -1, 4));  // setValueImpl3
      assertVec(v, 0.5f, -1, 4);
      // setValueImpl2: barycentric (0.5, 0.25, 0.25) of (0,0,0), (4,0,0), (0,8,0) is (1, 2, 0).
      v.setValue(new SbVec3f(0.5f, 0.25f, 0.25f), new SbVec3f(), new SbVec3f(4, 0, 0), new SbVec3f(0, 8, 0));
      assertVec(v, 1, 2, 0);
    }

    @Test
    void planeIntersectionConstructor() {
      // x = 1, y = 2, z = 3 (ctorImpl3).
      SbVec3f p = new SbVec3f(new SbPlane(new SbVec3f(1, 0, 0), 1), new SbPlane(new SbVec3f(0, 1, 0), 2),
          new SbPlane(new SbVec3f(0, 0, 1), 3));
      assertVec(p, 1, 2, 3);
    }

    @Test
    void addingItselfDoubles() {
      SbVec3f v = new SbVec3f(1, -2, 3.5f);
      assertSame(v, v.add(v));
      assertVec(v, 2, -4, 7);
    }

    @Test
    void operatorsAsMethods() {
      SbVec3f a = new SbVec3f(1, 2, 3);
      SbVec3f b = new SbVec3f(4, 5, 6);
      assertVec(a.plus(b), 5, 7, 9);
      assertVec(b.minus(a), 3, 3, 3);
      assertVec(a.times(b), 4, 10, 18);       // component-wise
      assertVec(a.times(2f), 2, 4, 6);
      assertVec(b.over(2f), 2, 2.5f, 3);
      assertVec(a, 1, 2, 3);                  // the receiver of a result-producing operator is unchanged
      SbVec3f c = new SbVec3f(1, 1, 1);
      c.multiply(3f).substract(new SbVec3f(1, 0, 0)).divide(2f);
      assertVec(c, 1, 1.5f, 1.5f);
      c.negate();
      assertVec(c, -1, -1.5f, -1.5f);
    }

    @Test
    void namedMembers() {
      SbVec3f a = new SbVec3f(1, 2, 3);
      assertEquals(32f, a.dot(new SbVec3f(4, 5, 6)), EPS);
      assertVec(a.cross(new SbVec3f(4, 5, 6)), -3, 6, -3);
      assertEquals(5f, new SbVec3f(3, 4, 0).length(), EPS);
      assertEquals(25f, new SbVec3f(3, 4, 0).lengthSquared(), EPS);
      SbVec3f n = new SbVec3f(0, 3, 4);
      assertEquals(5f, n.normalize(), EPS);
      assertVec(n, 0, 0.6f, 0.8f);
      assertVec(new SbVec3f(0.2f, -0.9f, 0.3f).getClosestAxis(), 0, -1, 0);
      float[] x = new float[1], y = new float[1], z = new float[1];
      a.getValue(x, y, z);
      assertArrayEquals(new float[] {1, 2, 3}, new float[] {x[0], y[0], z[0]});
    }

    @Test
    void equalityFollowsTheToolkitAndHashCodeAgrees() {
      SbVec3f a = new SbVec3f(1, 0, 2);
      SbVec3f b = new SbVec3f(1, -0f, 2);
      assertEquals(a, b);  // the toolkit compares values: 0 == -0
      assertEquals(a.hashCode(), b.hashCode());
      assertNotEquals(a, new SbVec3f(1, 0, 2.5f));
      assertNotEquals(a, new SbColor(1, 0, 2));  // another class
      assertTrue(a.equals(new SbVec3f(1.1f, 0, 2), 0.011f));   // squared distance 0.01
      assertFalse(a.equals(new SbVec3f(1.1f, 0, 2), 0.009f));
      assertEquals("SbVec3f[1.0, 0.0, 2.0]", a.toString());
    }

    @Test
    void integerAndByteVectors() {
      SbVec3s s = new SbVec3s((short) 1, (short) 2, (short) 3);
      s.multiply(2.5);  // rounded to nearest: 3, 5, 8
      assertArrayEquals(new short[] {3, 5, 8}, s.array);
      SbVec4ub u = new SbVec4ub((byte) 250, (byte) 1, (byte) 2, (byte) 3);
      u.add(new SbVec4ub((byte) 10, (byte) 1, (byte) 1, (byte) 1));
      assertEquals(4, u.array[0] & 0xff);  // 260 wraps modulo 256
      assertEquals(430, new SbVec2s((short) 3, (short) 4).dot(new SbVec2s((short) 10, (short) 100)));
    }
  }

  @Nested
  class RotationsAndMatrices {
    @Test
    void rotationAboutZTurnsXIntoY() {
      SbRotation r = new SbRotation(new SbVec3f(0, 0, 2), HALF_PI);
      float s = (float) Math.sqrt(0.5);
      assertArrayEquals(new float[] {0, 0, s, s}, r.array, EPS);
      SbVec3f out = new SbVec3f();
      r.multVec(new SbVec3f(1, 0, 0), out);
      assertVec(out, 0, 1, 0);
      SbMatrix m = r.getMatrix();
      assertEquals(1f, m.array[1], EPS);   // first row (0, 1, 0)
      assertEquals(-1f, m.array[4], EPS);  // second row (-1, 0, 0)
      assertEquals(9, r.getMatrix3().array.length);
      assertEquals(1.0, r.getMatrixd().array[1], 1e-6);
    }

    @Test
    void compositionSlerpInverse() {
      SbRotation aboutZ = new SbRotation(new SbVec3f(0, 0, 1), HALF_PI);
      SbRotation aboutX = new SbRotation(new SbVec3f(1, 0, 0), HALF_PI);
      SbVec3f out = new SbVec3f();
      aboutZ.times(aboutX).multVec(new SbVec3f(1, 0, 0), out);  // x -> y -> z
      assertVec(out, 0, 0, 1);
      SbRotation half = SbRotation.slerp(new SbRotation(), aboutZ, 0.5f);
      half.multVec(new SbVec3f(1, 0, 0), out);
      float s = (float) Math.sqrt(0.5);
      assertVec(out, s, s, 0);
      SbRotation r = new SbRotation(new SbVec3f(1, 2, 3), 0.8f);
      assertTrue(r.times(r.inverse()).equals(SbRotation.identity(), EPS));
      SbRotation fromTo = new SbRotation(new SbVec3f(1, 0, 0), new SbVec3f(0, 5, 0));
      assertTrue(fromTo.equals(aboutZ, EPS));
      SbRotation q = new SbRotation().setValue(new float[] {0, 0, 2, 2});  // Java-side setValue: normalised
      assertArrayEquals(new float[] {0, 0, s, s}, q.array, EPS);
    }

    @Test
    void matrixOperations() {
      SbMatrix m = new SbMatrix(2, 0, 0, 0, 0, 4, 0, 0, 0, 0, 8, 0, 1, 2, 3, 1);
      SbVec3f p = new SbVec3f();
      m.multVecMatrix(new SbVec3f(1, 1, 1), p);
      assertVec(p, 3, 6, 11);
      m.multDirMatrix(new SbVec3f(1, 1, 1), p);
      assertVec(p, 2, 4, 8);
      assertEquals(64f, m.det4(), EPS);
      SbMatrix inv = m.inverse();
      assertArrayEquals(new float[] {0.5f, 0, 0, 0, 0, 0.25f, 0, 0, 0, 0, 0.125f, 0, -0.5f, -0.5f, -0.375f, 1},
          inv.array, EPS);
      assertTrue(m.times(inv).equals(SbMatrix.identity(), EPS));
      assertEquals(1f, m.transpose().array[3]);
    }

    @Test
    void transformRoundTrip() {
      SbMatrix m = new SbMatrix();
      m.setTransform(new SbVec3f(1, 2, 3), new SbRotation(new SbVec3f(0, 0, 1), HALF_PI), new SbVec3f(2, 3, 4));
      SbVec3f p = new SbVec3f();
      m.multVecMatrix(new SbVec3f(1, 0, 0), p);  // scaled (2,0,0), turned (0,2,0), moved (1,4,3)
      assertVec(p, 1, 4, 3);
      SbVec3f t = new SbVec3f();
      SbVec3f s = new SbVec3f();
      SbRotation r = new SbRotation();
      SbRotation so = new SbRotation();
      m.getTransform(t, r, s, so);
      assertVec(t, 1, 2, 3);
      SbMatrix rebuilt = new SbMatrix();
      rebuilt.setTransform(t, r, s, so);
      assertTrue(rebuilt.equals(m, 1e-4f));
    }
  }

  @Nested
  class Geometry {
    @Test
    void boxesAndTransformedBoxes() {
      SbBox3f b = new SbBox3f(new SbVec3f(0, 0, 0), new SbVec3f(1, 2, 3));
      assertVec(b.getCenter(), 0.5f, 1, 1.5f);
      assertVec(b.getMax(), 1, 2, 3);  // a reference into the receiver: copied out
      assertEquals(6f, b.getVolume(), EPS);
      SbMatrix rot = new SbMatrix();
      rot.setRotate(new SbRotation(new SbVec3f(0, 0, 1), HALF_PI));
      b.transform(rot);
      assertVec(b.getMin(), -2, 0, 0);
      assertVec(b.getMax(), 0, 1, 3);
      SbXfBox3f xf = new SbXfBox3f(new SbVec3f(-1, -1, -1), new SbVec3f(1, 1, 1));
      SbMatrix scale = new SbMatrix();
      scale.setScale(2f);
      xf.setTransform(scale);
      assertEquals(64f, xf.getVolume(), EPS);       // the subclass's own getVolume
      assertTrue(xf.intersect(new SbVec3f(1.9f, 0, 0)));
      assertFalse(xf.isEmpty());                    // inherited from SbBox3f
    }

    @Test
    void linesPlanesSpheres() {
      SbLine line = new SbLine(new SbVec3f(-5, 0, 0), new SbVec3f(5, 0, 0));
      SbVec3f enter = new SbVec3f();
      SbVec3f exit = new SbVec3f();
      assertTrue(new SbSphere(new SbVec3f(), 1).intersect(line, enter, exit));
      assertVec(enter, -1, 0, 0);
      assertVec(exit, 1, 0, 0);
      SbPlane plane = new SbPlane(new SbVec3f(0, 0, 1), new SbVec3f(1, 0, 1), new SbVec3f(0, 1, 1));
      SbVec3f hit = new SbVec3f();
      assertTrue(plane.intersect(new SbLine(new SbVec3f(2, 3, -4), new SbVec3f(2, 3, 0)), hit));
      assertVec(hit, 2, 3, 1);
      assertEquals(1f, plane.getDistanceFromOrigin(), EPS);
      assertTrue(new SbCylinder().isInside(new SbVec3f(0.5f, 100, 0)));
    }

    @Test
    void colours() {
      SbColor c = new SbColor();
      c.setHSVValue(1f / 3, 1, 1);
      assertArrayEquals(new float[] {0, 1, 0}, c.array, EPS);
      float[] transparency = new float[1];
      c.setPackedValue(0xFF8000FF, transparency);
      assertArrayEquals(new float[] {1, 128f / 255, 0}, c.array, EPS);
      assertEquals(0f, transparency[0]);
      assertEquals(0xFF800080, c.getPackedValue(0.5f));
      assertEquals(2f, c.plus(c).array[0], EPS);  // SbVec3f's operators on a colour
    }
  }

  @Nested
  class NativeArrays {
    @Test
    void toArrayCopiesContiguousValues() {
      GenProbeSupport.load();
      ByteBuffer memory = ByteBuffer.allocateDirect(6 * 4).order(ByteOrder.nativeOrder());
      for (int i = 0; i < 6; i++) memory.putFloat(4 * i, i + 0.5f);
      long address = GenProbeSupport.addressOf(memory);
      SbVec3f[] values = SbVec3f.copies(address, 2);
      assertVec(values[0], 0.5f, 1.5f, 2.5f);
      assertVec(values[1], 3.5f, 4.5f, 5.5f);
      SbVec3f v = new SbVec3f();
      SbVec3f.setValueFromHandle(v.array, address + 12);
      assertVec(v, 3.5f, 4.5f, 5.5f);
    }

    @Test
    void toArrayWithNothingToDoLeavesEverythingUntouched() {
      SbVec3f[] values = {new SbVec3f(7, 8, 9)};
      SbVec3f.toArrayImpl(values, 0L);             // address 0
      assertVec(values[0], 7, 8, 9);
      SbVec3f.toArrayImpl(new SbVec3f[0], 12345L);  // no elements: the address is never read
      SbVec3f.toArrayImpl(null, 12345L);
      assertEquals(0, SbVec3f.copies(0L, 0).length);
    }
  }
}
