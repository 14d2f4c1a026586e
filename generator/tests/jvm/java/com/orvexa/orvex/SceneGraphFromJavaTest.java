package com.orvexa.orvex;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertInstanceOf;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNotSame;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.actions.SoGetBoundingBoxAction;
import com.orvexa.orvex.actions.SoRayPickAction;
import com.orvexa.orvex.actions.SoSearchAction;
import com.orvexa.orvex.details.SoCubeDetail;
import com.orvexa.orvex.engines.SoCalculator;
import com.orvexa.orvex.engines.SoEngineOutput;
import com.orvexa.orvex.details.SoDetail;
import com.orvexa.orvex.fields.SoSFFloat;
import com.orvexa.orvex.nodes.SoCube;
import com.orvexa.orvex.nodes.SoMaterial;
import com.orvexa.orvex.nodes.SoNode;
import com.orvexa.orvex.nodes.SoSeparator;
import com.orvexa.orvex.nodes.SoSphere;
import com.orvexa.orvex.nodes.SoTranslation;
import java.lang.ref.WeakReference;
import org.junit.jupiter.api.Nested;
import org.junit.jupiter.api.Test;

/** A scene graph built, bounded, searched and picked from Java with the toolkit's own names. */
class SceneGraphFromJavaTest {
  private static SoSeparator redBall(SoSphere ball) {
    SoSeparator root = new SoSeparator();
    SoMaterial red = new SoMaterial();
    red.diffuseColor.setValue(1f, 0f, 0f);
    ball.radius.setValue(2f);
    root.addChild(red);
    root.addChild(ball);
    return root;
  }

  @Nested
  class Building {
    @Test
    void nodeFieldsAreJavaFieldsOfTheirFieldClass() {
      SoSphere ball = new SoSphere();
      assertInstanceOf(SoSFFloat.class, ball.radius);
      assertEquals(1f, ball.radius.getValue());
      ball.radius.setValue(2.5f);
      assertEquals(2.5f, ball.radius.getValue());
      // The same field object, found by name.
      assertSame(ball.radius, ball.getField("radius"));
      assertNull(ball.getField("noSuchField"));
    }

    @Test
    void engineOutputsAreJavaFieldsThatDriveConnectedFields() {
      SoCalculator calc = new SoCalculator();
      calc.a.setValue(2f);
      calc.expression.setValue("oa = a * 3 + 1");
      assertSame(calc.oa, calc.getOutput("oa"));
      SoSphere ball = new SoSphere();
      assertTrue(ball.radius.connectFrom(calc.oa));
      assertEquals(7f, ball.radius.getValue(), 1e-6f);
      calc.a.setValue(0.5f);
      assertEquals(2.5f, ball.radius.getValue(), 1e-6f);
      // The engine names its output.
      SoEngineOutput output = calc.oa;
      String[] name = new String[1];
      assertTrue(calc.getOutputName(output, name));
      assertEquals("oa", name[0]);
    }

    @Test
    void childrenAreTheSameJavaObjects() {
      SoSphere ball = new SoSphere();
      SoSeparator root = redBall(ball);
      assertEquals(2, root.getNumChildren());
      assertSame(ball, root.getChild(1));
      assertInstanceOf(SoMaterial.class, root.getChild(0));
    }

    @Test
    void nullChildIsAJavaException() {
      SoSeparator root = new SoSeparator();
      assertThrows(NullPointerException.class, () -> root.addChild(null));
    }

    @Test
    void aFieldKeptAfterItsNodeWrapperIsDroppedStaysValid() throws Exception {
      SoSFFloat radius = keepRadiusOnly();
      for (int i = 0; i < 5; i++) {
        System.gc();
        Thread.sleep(20);
      }
      radius.setValue(4f);
      assertEquals(4f, radius.getValue());
    }

    private SoSFFloat keepRadiusOnly() {
      SoSphere ball = new SoSphere();
      ball.radius.setValue(3f);
      return ball.radius;
    }

    @Test
    void aNodeInAGraphOutlivesItsWrapper() throws Exception {
      SoSeparator root = new SoSeparator();
      WeakReference<SoCube> dropped = addCube(root);
      for (int i = 0; i < 5 && dropped.get() != null; i++) {
        System.gc();
        Thread.sleep(20);
      }
      // The graph still references the native node: a new wrapper stands for it.
      SoNode child = root.getChild(0);
      assertInstanceOf(SoCube.class, child);
      assertEquals(6f, ((SoCube) child).width.getValue());
    }

    private WeakReference<SoCube> addCube(SoSeparator root) {
      SoCube cube = new SoCube();
      cube.width.setValue(6f);
      root.addChild(cube);
      return new WeakReference<>(cube);
    }
  }

  @Nested
  class Actions {
    @Test
    void boundingBoxOfASphere() {
      SoSeparator root = redBall(new SoSphere());
      SbViewportRegion viewport = new SbViewportRegion((short) 640, (short) 480);
      SoGetBoundingBoxAction bbox = new SoGetBoundingBoxAction(viewport);
      bbox.apply(root);
      SbBox3f box = bbox.getBoundingBox();
      assertArrayEquals(new float[] {-2, -2, -2, 2, 2, 2}, box.array, 1e-5f);
    }

    @Test
    void boundingBoxFollowsATranslation() {
      SoSeparator root = new SoSeparator();
      SoTranslation move = new SoTranslation();
      move.translation.setValue(10f, 0f, 0f);
      root.addChild(move);
      root.addChild(new SoCube());
      SoGetBoundingBoxAction bbox = new SoGetBoundingBoxAction(new SbViewportRegion((short) 100, (short) 100));
      bbox.apply(root);
      assertArrayEquals(new float[] {9, -1, -1, 11, 1, 1}, bbox.getBoundingBox().array, 1e-5f);
    }

    @Test
    void pickHitsTheSphereAndItsPathEndsInTheSameJavaObject() {
      SoSphere ball = new SoSphere();
      SoSeparator root = redBall(ball);
      SbViewportRegion viewport = new SbViewportRegion((short) 640, (short) 480);
      SoRayPickAction pick = new SoRayPickAction(viewport);
      pick.setRay(new SbVec3f(0, 0, 10), new SbVec3f(0, 0, -1));
      pick.apply(root);
      SoPickedPoint hit = pick.getPickedPoint();
      assertNotNull(hit);
      assertSame(ball, hit.getPath().getTail());
      assertSame(root, hit.getPath().getHead());
      // The ray from z = 10 meets the sphere of radius 2 at z = 2, normal +z.
      assertArrayEquals(new float[] {0, 0, 2}, hit.getPoint().array, 1e-4f);
      assertArrayEquals(new float[] {0, 0, 1}, hit.getNormal().array, 1e-4f);
    }

    @Test
    void aMissIsNull() {
      SoSeparator root = redBall(new SoSphere());
      SoRayPickAction pick = new SoRayPickAction(new SbViewportRegion((short) 64, (short) 64));
      pick.setRay(new SbVec3f(10, 10, 10), new SbVec3f(0, 0, -1));
      pick.apply(root);
      assertNull(pick.getPickedPoint());
    }

    @Test
    void searchByNameAndByNodeFindsTheJavaObjects() {
      SoSphere ball = new SoSphere();
      ball.setName("ball");
      SoSeparator root = redBall(ball);
      SoSearchAction search = new SoSearchAction();
      search.setName("ball");
      search.apply(root);
      assertSame(ball, search.getPath().getTail());
      SoSearchAction byNode = new SoSearchAction();
      byNode.setNode(ball);
      byNode.apply(root);
      assertSame(ball, byNode.getPath().getTail());
    }
  }

  @Nested
  class BulkValues {
    @Test
    void numericValuesInAndOutAsArrays() {
      com.orvexa.orvex.fields.SoMFFloat values = new com.orvexa.orvex.fields.SoMFFloat();
      values.setValues(0, 3, new float[] {1, 2, 3});
      assertArrayEquals(new float[] {1, 2, 3}, values.getValues(0));
      assertArrayEquals(new float[] {2, 3}, values.getValues(1));
      assertEquals(0, values.getValues(values.getNum()).length);
      assertThrows(IndexOutOfBoundsException.class, () -> values.getValues(4));
      assertThrows(IllegalArgumentException.class, () -> values.setValues(0, 5, new float[] {1, 2}));
      values.dispose();
    }

    @Test
    void vectorValuesFromFlatArraysAndBackAsValues() {
      com.orvexa.orvex.nodes.SoCoordinate3 coords = new com.orvexa.orvex.nodes.SoCoordinate3();
      coords.point.setValues(0, 2, new float[] {1, 2, 3, 4, 5, 6});
      SbVec3f[] points = coords.point.getValues(0);
      assertEquals(2, points.length);
      assertArrayEquals(new float[] {4, 5, 6}, points[1].array);
      // Two values need six floats.
      assertThrows(IllegalArgumentException.class, () -> coords.point.setValues(0, 2, new float[5]));
    }

    @Test
    void actionsAreAutoCloseable() {
      SoSphere ball = new SoSphere();
      SoSeparator root = redBall(ball);
      SoSearchAction kept;
      try (SoSearchAction search = new SoSearchAction()) {
        search.setNode(ball);
        search.apply(root);
        assertSame(ball, search.getPath().getTail());
        kept = search;
      }
      assertThrows(IllegalStateException.class, () -> kept.apply(root));
    }
  }

  @Nested
  class Reading {
    @Test
    void readAllFromABuffer() {
      SoInput in = new SoInput();
      in.setBuffer("#Orvex V1.0 ascii\nSeparator { Cube { width 4 } }");
      SoSeparator read = SoDB.readAll(in);
      assertNotNull(read);
      // A file whose one root is a separator reads as that separator.
      assertEquals(1, read.getNumChildren());
      SoCube cube = assertInstanceOf(SoCube.class, read.getChild(0));
      assertEquals(4f, cube.width.getValue());
    }

    @Test
    void writtenToAFileAndReadBackEqual(@org.junit.jupiter.api.io.TempDir java.nio.file.Path dir) {
      SoSeparator root = redBall(new SoSphere());
      String file = dir.resolve("ball.ovx").toString();
      try (SoOutput out = new SoOutput()) {
        assertEquals(true, out.openFile(file));
        try (com.orvexa.orvex.actions.SoWriteAction write = new com.orvexa.orvex.actions.SoWriteAction(out)) {
          write.apply(root);
        }
        out.closeFile();
        assertEquals(false, out.hasWriteError());
      }
      SoInput in = new SoInput();
      assertEquals(true, in.openFile(file));
      SoSeparator read = SoDB.readAll(in);
      assertNotNull(read);
      assertEquals(2, read.getNumChildren());
      SoMaterial material = assertInstanceOf(SoMaterial.class, read.getChild(0));
      assertArrayEquals(new float[] {1, 0, 0}, material.diffuseColor.getValues(0)[0].array, 0f);
      SoSphere sphere = assertInstanceOf(SoSphere.class, read.getChild(1));
      assertEquals(2f, sphere.radius.getValue());
    }

    @Test
    void aMalformedSceneIsNullWithItsErrorDeliveredNotThrown() {
      java.util.List<String> errors = new java.util.ArrayList<>();
      java.util.function.Consumer<String> previous = Orvex.setErrorListener(errors::add);
      try {
        SoInput in = new SoInput();
        in.setBuffer("#Orvex V1.0 ascii\nSeparator { Cube { width } ");
        assertNull(SoDB.readAll(in));
      } finally {
        Orvex.setErrorListener(previous);
      }
      assertEquals(false, errors.isEmpty());
    }

    @Test
    void bufferSizeBeyondTheTextIsAJavaException() {
      SoInput in = new SoInput();
      assertThrows(IndexOutOfBoundsException.class, () -> in.setBuffer("abc", 4));
      assertThrows(NullPointerException.class, () -> in.setBuffer((String) null));
    }

    @Test
    void theBufferOfTheTextIsCutToTheGivenSize() {
      SoInput in = new SoInput();
      String text = "#Orvex V1.0 ascii\nCube { width 3 } Sphere { radius 5 }";
      in.setBuffer(text, text.indexOf(" Sphere"));
      SoSeparator read = SoDB.readAll(in);
      assertEquals(1, read.getNumChildren());
    }
  }

  @Nested
  class Events {
    @Test
    void keysHaveTheToolkitValues() {
      assertEquals(97, com.orvexa.orvex.events.SoKeyboardEvent.Keys.A.getValue());
      assertEquals(65307, com.orvexa.orvex.events.SoKeyboardEvent.Keys.ESCAPE.getValue());
    }

    @Test
    void aKeyboardEventCarriesItsKeyStateAndPosition() {
      try (com.orvexa.orvex.events.SoKeyboardEvent key = new com.orvexa.orvex.events.SoKeyboardEvent()) {
        key.setKey(com.orvexa.orvex.events.SoKeyboardEvent.Keys.Q);
        key.setState(com.orvexa.orvex.events.SoButtonEvent.States.DOWN);
        key.setPosition(new SbVec2s((short) 12, (short) 34));
        assertEquals(com.orvexa.orvex.events.SoKeyboardEvent.Keys.Q, key.getKey());
        assertEquals(com.orvexa.orvex.events.SoButtonEvent.States.DOWN, key.getState());
        assertArrayEquals(new short[] {12, 34}, key.getPosition().array);
        assertEquals("SoKeyboardEvent", key.getTypeId());
        assertEquals(true, com.orvexa.orvex.events.SoKeyboardEvent.isKeyPressEvent(key,
            com.orvexa.orvex.events.SoKeyboardEvent.Keys.Q));
      }
    }
  }

  @Nested
  class Misuse {
    @Test
    void aFieldOfADisposedNodeIsAJavaException() {
      SoSphere ball = new SoSphere();
      SoSFFloat radius = ball.radius;
      ball.dispose();
      assertThrows(IllegalStateException.class, () -> ball.getField("radius"));
      // The field lived inside the node, which is gone.
      assertThrows(IllegalStateException.class, radius::getValue);
    }

    @Test
    void aValueIndexNoMemoryCanHoldIsAToolkitErrorNotACrash() {
      java.util.List<String> errors = new java.util.ArrayList<>();
      java.util.function.Consumer<String> previous = Orvex.setErrorListener(errors::add);
      try {
        com.orvexa.orvex.fields.SoMFFloat values = new com.orvexa.orvex.fields.SoMFFloat();
        values.setValues(0, 2, new float[] {1, 2});
        values.set1Value(Integer.MAX_VALUE - 1, 3f);
        values.setNum(Integer.MAX_VALUE / 2);
        assertEquals(2, values.getNum());
        assertArrayEquals(new float[] {1, 2}, values.getValues(0));
        values.dispose();
      } finally {
        Orvex.setErrorListener(previous);
      }
      assertEquals(2, errors.size(), errors.toString());
    }

    @Test
    void childIndexOutOfRangeIsAJavaException() {
      SoSeparator root = redBall(new SoSphere());
      assertThrows(IndexOutOfBoundsException.class, () -> root.getChild(99));
      assertThrows(IndexOutOfBoundsException.class, () -> root.getChild(-1));
      assertThrows(IndexOutOfBoundsException.class, () -> root.removeChild(2));
      assertThrows(IndexOutOfBoundsException.class, () -> root.insertChild(new SoCube(), 3));
      root.insertChild(new SoCube(), 2);  // the end is a valid insertion position
      assertEquals(3, root.getNumChildren());
    }

    @Test
    void aPickedPointOfADisposedActionIsAJavaException() {
      SoSeparator root = redBall(new SoSphere());
      SoRayPickAction pick = new SoRayPickAction(new SbViewportRegion((short) 64, (short) 64));
      pick.setRay(new SbVec3f(0, 0, 10), new SbVec3f(0, 0, -1));
      pick.apply(root);
      SoPickedPoint hit = pick.getPickedPoint();
      assertArrayEquals(new float[] {0, 0, 2}, hit.getPoint().array, 1e-4f);
      pick.dispose();
      assertThrows(IllegalStateException.class, hit::getPoint);
    }

    @Test
    void copiesOfAPickedPointAndItsDetailAreTheCallersOwnOfTheirMostSpecificClass() {
      SoSeparator root = new SoSeparator();
      SoCube cube = new SoCube();
      root.addChild(cube);
      SoRayPickAction pick = new SoRayPickAction(new SbViewportRegion((short) 64, (short) 64));
      pick.setRay(new SbVec3f(0, 0, 10), new SbVec3f(0, 0, -1));
      pick.apply(root);
      SoPickedPoint hit = pick.getPickedPoint();
      SoDetail lent = hit.getDetail();
      assertInstanceOf(SoCubeDetail.class, lent);
      SoDetail detailCopy = lent.copy();
      SoPickedPoint pointCopy = hit.copy();
      assertInstanceOf(SoCubeDetail.class, detailCopy);
      assertNotSame(lent, detailCopy);
      assertEquals(((SoCubeDetail) lent).getPart(), ((SoCubeDetail) detailCopy).getPart());
      pick.dispose();
      // Neither copy depends on the action: both outlive it, and dispose frees them.
      assertArrayEquals(new float[] {0, 0, 1}, pointCopy.getPoint().array, 1e-4f);
      assertSame(cube, pointCopy.getPath().getTail());
      assertInstanceOf(SoCubeDetail.class, pointCopy.getDetail());
      assertEquals(((SoCubeDetail) detailCopy).getPart(), ((SoCubeDetail) pointCopy.getDetail()).getPart());
      detailCopy.dispose();
      pointCopy.dispose();
      assertThrows(IllegalStateException.class, pointCopy::getPoint);
    }

    @Test
    void aPickedPointKeptAcrossTheNextApplyIsAJavaExceptionAndTheNewOneIsFresh() {
      SoSphere ball = new SoSphere();
      SoSeparator root = redBall(ball);
      SoRayPickAction pick = new SoRayPickAction(new SbViewportRegion((short) 64, (short) 64));
      pick.setPickAll(true);
      pick.setRay(new SbVec3f(0, 0, 10), new SbVec3f(0, 0, -1));
      pick.apply(root);
      SoPickedPoint first = pick.getPickedPoint();
      SoPickedPoint fromList = pick.getPickedPointList().get(1);   // the far side, z = -2
      assertArrayEquals(new float[] {0, 0, -2}, fromList.getPoint().array, 1e-4f);
      SoDetail detail = first.getDetail();
      // The second traversal frees the first one's points before it makes its
      // own, which may take the same addresses.
      pick.setRay(new SbVec3f(0, 0, -10), new SbVec3f(0, 0, 1));
      pick.apply(root);
      assertThrows(IllegalStateException.class, first::getPoint);
      assertThrows(IllegalStateException.class, fromList::getPoint);
      assertThrows(IllegalStateException.class, first::getPath);
      if (detail != null) assertThrows(IllegalStateException.class, detail::copy);
      SoPickedPoint second = pick.getPickedPoint();
      assertNotSame(first, second);
      assertArrayEquals(new float[] {0, 0, -2}, second.getPoint().array, 1e-4f);
      assertSame(second, pick.getPickedPoint(), "within one traversal a point keeps its wrapper");
      assertSame(ball, second.getPath().getTail());
      // A copy is the caller's own and outlives any number of applies.
      SoPickedPoint kept = second.copy();
      pick.apply(root);
      assertArrayEquals(new float[] {0, 0, -2}, kept.getPoint().array, 1e-4f);
    }

    @Test
    void aTraversalMethodCalledWithAnIdleActionIsAJavaException() {
      SoRayPickAction idle = new SoRayPickAction(new SbViewportRegion((short) 10, (short) 10));
      assertThrows(IllegalStateException.class, () -> new SoSphere().rayPick(idle));
    }

    @Test
    void nullActionArgumentIsAJavaException() {
      SoGetBoundingBoxAction bbox = new SoGetBoundingBoxAction(new SbViewportRegion((short) 10, (short) 10));
      assertThrows(NullPointerException.class, () -> bbox.apply((SoNode) null));
    }
  }
}
