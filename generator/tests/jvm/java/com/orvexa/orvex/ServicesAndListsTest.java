package com.orvexa.orvex;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertInstanceOf;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNotSame;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.actions.SoGetMatrixAction;
import com.orvexa.orvex.actions.SoGetPrimitiveCountAction;
import com.orvexa.orvex.actions.SoRayPickAction;
import com.orvexa.orvex.actions.SoSearchAction;
import com.orvexa.orvex.actions.SoWriteAction;
import com.orvexa.orvex.caches.SoBoundingBoxCache;
import com.orvexa.orvex.details.SoCubeDetail;
import com.orvexa.orvex.events.SoButtonEvent;
import com.orvexa.orvex.events.SoControllerButtonEvent;
import com.orvexa.orvex.events.SoKeyboardEvent;
import com.orvexa.orvex.events.SoLocation2Event;
import com.orvexa.orvex.events.SoMotion3Event;
import com.orvexa.orvex.events.SoMouseButtonEvent;
import com.orvexa.orvex.events.SoMouseWheelEvent;
import com.orvexa.orvex.events.SoSpaceballButtonEvent;
import com.orvexa.orvex.events.SoTrackerEvent;
import com.orvexa.orvex.fields.SoField;
import com.orvexa.orvex.fields.SoSFFloat;
import com.orvexa.orvex.fields.SoSFInt;
import com.orvexa.orvex.fields.SoSFVec3f;
import com.orvexa.orvex.nodes.SoCube;
import com.orvexa.orvex.nodes.SoGroup;
import com.orvexa.orvex.nodes.SoNode;
import com.orvexa.orvex.nodes.SoPattern;
import com.orvexa.orvex.nodes.SoSeparator;
import com.orvexa.orvex.nodes.SoShape;
import com.orvexa.orvex.nodes.SoSphere;
import com.orvexa.orvex.nodes.SoTranslation;
import com.orvexa.orvex.nodes.SoUnknownNode;
import com.orvexa.orvex.SoPath;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Consumer;
import org.junit.jupiter.api.Nested;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

/**
 * The database and file services, toolkit lists as Java lists, identity of
 * the objects they hand back, actions and events, all from Java.
 */
class ServicesAndListsTest {
  /** Three spheres at x = -4, 0 and 4 (radius 1) under one separator. */
  private static final class Row {
    final SoSeparator root = new SoSeparator();
    final SoSphere[] balls = new SoSphere[3];

    Row() {
      for (int i = 0; i < 3; i++) {
        SoSeparator cell = new SoSeparator();
        SoTranslation move = new SoTranslation();
        move.translation.setValue(-4f + 4f * i, 0f, 0f);
        balls[i] = new SoSphere();
        cell.addChild(move);
        cell.addChild(balls[i]);
        root.addChild(cell);
      }
    }
  }

  private static SbViewportRegion viewport() {
    return new SbViewportRegion((short) 100, (short) 100);
  }

  /** The messages the toolkit reports while {@code body} runs. */
  private static List<String> errorsDuring(Runnable body) {
    List<String> errors = new ArrayList<>();
    Consumer<String> previous = Orvex.setErrorListener(errors::add);
    try {
      body.run();
    } finally {
      Orvex.setErrorListener(previous);
    }
    return errors;
  }

  @Nested
  class Identity {
    @Test
    void searchFirstLastAndAllFindTheJavaObjectsThatWereAdded() {
      Row row = new Row();
      SoSearchAction search = new SoSearchAction();
      search.setType(SoSphere.class);
      search.setInterest(SoSearchAction.Interest.FIRST);
      search.apply(row.root);
      assertSame(row.balls[0], search.getPath().getTail());
      search.setInterest(SoSearchAction.Interest.LAST);
      search.apply(row.root);
      assertSame(row.balls[2], search.getPath().getTail());
      search.setInterest(SoSearchAction.Interest.ALL);
      search.apply(row.root);
      List<SoPath> paths = search.getPaths();
      assertEquals(3, paths.size());
      for (int i = 0; i < 3; i++) {
        assertSame(row.balls[i], paths.get(i).getTail());
        assertSame(row.root, paths.get(i).getHead());
        assertEquals(3, paths.get(i).getLength());
      }
      // Asked twice, the same path objects.
      assertSame(paths.get(1), search.getPaths().get(1));
      assertThrows(UnsupportedOperationException.class, () -> paths.remove(0));
    }

    @Test
    void typesByClassAndByNameSearchAlike() {
      Row row = new Row();
      SoSearchAction byName = new SoSearchAction();
      byName.setType("Sphere");
      byName.setInterest(SoSearchAction.Interest.ALL);
      byName.apply(row.root);
      SoSearchAction byClass = new SoSearchAction();
      byClass.setType(SoSphere.class);
      byClass.setInterest(SoSearchAction.Interest.ALL);
      byClass.apply(row.root);
      assertEquals(byName.getPaths(), byClass.getPaths());
      boolean[] derived = new boolean[1];
      assertEquals("Sphere", byClass.getType(derived));
      assertTrue(derived[0]);
      // An abstract base class with derived types allowed finds every shape.
      SoSearchAction shapes = new SoSearchAction();
      shapes.setType(SoShape.class, true);
      shapes.setInterest(SoSearchAction.Interest.ALL);
      shapes.apply(row.root);
      assertEquals(3, shapes.getPaths().size());
      // Not derived: no node is exactly a group here but the separators are groups.
      shapes.setType(SoGroup.class, false);
      shapes.apply(row.root);
      assertEquals(0, shapes.getPaths().size());
      assertThrows(NullPointerException.class, () -> byName.setType((Class<SoNode>) null));
      assertThrows(IllegalArgumentException.class, () -> byName.setType(Orvex.class));
      assertEquals("Sphere", SoSphere.getClassTypeId());
    }

    @Test
    void picksAlongARayAreListedNearestFirstWithTheirPathsDetailsAndNormals() {
      SoSeparator root = new SoSeparator();
      SoSphere near = new SoSphere();
      SoTranslation back = new SoTranslation();
      back.translation.setValue(0f, 0f, -10f);
      SoCube far = new SoCube();
      root.addChild(near);
      root.addChild(back);
      root.addChild(far);
      SoRayPickAction pick = new SoRayPickAction(viewport());
      pick.setRay(new SbVec3f(0, 0, 20), new SbVec3f(0, 0, -1));
      pick.setPickAll(true);
      pick.apply(root);
      List<SoPickedPoint> points = pick.getPickedPointList();
      // Where the ray enters and leaves the sphere (radius 1 at the origin,
      // z = 1 and -1) and the cube (half size 1 around z = -10: z = -9 and
      // -11), nearest first; normals face outwards.
      assertEquals(4, points.size());
      float[][] where = {{0, 0, 1}, {0, 0, -1}, {0, 0, -9}, {0, 0, -11}};
      float[][] normals = {{0, 0, 1}, {0, 0, -1}, {0, 0, 1}, {0, 0, -1}};
      SoNode[] shapes = {near, near, far, far};
      for (int i = 0; i < 4; i++) {
        assertSame(shapes[i], points.get(i).getPath().getTail());
        assertSame(root, points.get(i).getPath().getHead());
        assertArrayEquals(where[i], points.get(i).getPoint().array, 1e-4f);
        assertArrayEquals(normals[i], points.get(i).getNormal().array, 1e-4f);
      }
      assertEquals(0, assertInstanceOf(SoCubeDetail.class, points.get(2).getDetail()).getPart());  // front
      assertEquals(1, assertInstanceOf(SoCubeDetail.class, points.get(3).getDetail()).getPart());  // back
      // The same point objects as the indexed accessor's.
      assertSame(points.get(1), pick.getPickedPoint(1));
      // A ray that misses everything: an empty list.
      pick.setRay(new SbVec3f(50, 50, 20), new SbVec3f(0, 0, -1));
      pick.apply(root);
      assertTrue(pick.getPickedPointList().isEmpty());
    }

    @Test
    void fieldsOfAContainerAreTheNodesOwnFieldObjectsOfTheirMostSpecificClass() {
      SoSphere ball = new SoSphere();
      List<SoField> fields = new ArrayList<>();
      assertEquals(1, ball.getFields(fields));
      assertSame(ball.radius, fields.get(0));
      List<SoField> all = new ArrayList<>();
      assertTrue(ball.getAllFields(all) >= 1);
      assertTrue(all.contains(ball.radius));
      String[] name = new String[1];
      assertTrue(ball.getFieldName(ball.radius, name));
      assertEquals("radius", name[0]);
      SoCube cube = new SoCube();
      assertFalse(cube.getFieldName(ball.radius, name));
      assertThrows(NullPointerException.class, () -> ball.getFields(null));
      assertThrows(IllegalArgumentException.class, () -> ball.getFieldName(ball.radius, new String[0]));
    }

    @Test
    void anUnsignedToolkitFieldArrivesAsTheSignedJavaClass() {
      SoField field = SoDB.createGlobalField("svcUnsignedCount", "SFUInt32");
      SoSFInt count = assertInstanceOf(SoSFInt.class, field);
      count.setValue(7);
      assertSame(count, SoDB.getGlobalField("svcUnsignedCount"));
      assertEquals(7, ((SoSFInt) SoDB.getGlobalField("svcUnsignedCount")).getValue());
    }

    @Test
    void namedNodesAndChildListsAreTheSameJavaObjects() {
      Row row = new Row();
      row.balls[0].setName("svcTwin");
      row.balls[2].setName("svcTwin");
      List<SoNode> named = new ArrayList<>();
      assertEquals(2, SoNode.getByName("svcTwin", named));
      assertEquals(2, named.size());
      assertTrue(named.contains(row.balls[0]) && named.contains(row.balls[2]), named.toString());
      assertEquals(0, SoNode.getByName("svcNobody", named));
      assertEquals(2, named.size());
      List<SoNode> children = row.root.getChildren();
      assertEquals(3, children.size());
      for (int i = 0; i < 3; i++) assertSame(row.root.getChild(i), children.get(i));
      assertThrows(NullPointerException.class, () -> SoNode.getByName("svcTwin", null));
    }

    @Test
    void namedPathsAreFoundByNameAsTheSameObjectAndCompareByValue() {
      Row row = new Row();
      SoSearchAction search = new SoSearchAction();
      search.setNode(row.balls[1]);
      search.apply(row.root);
      SoPath path = search.getPath();
      path.setName("svcMiddleBall");
      assertSame(path, SoPath.getByName("svcMiddleBall"));
      List<SoPath> all = new ArrayList<>();
      assertEquals(1, SoPath.getByName("svcMiddleBall", all));
      assertSame(path, all.get(0));
      assertEquals(List.of(path), SoPath.getAllByName("svcMiddleBall"));
      assertNull(SoPath.getByName("svcNoSuchPath"));
      assertTrue(SoPath.getAllByName("svcNoSuchPath").isEmpty());
      // A path built step by step to the same node equals the one found.
      SoPath built = new SoPath(row.root);
      built.append(1);
      built.append(1);
      assertNotSame(path, built);
      assertEquals(path, built);
      assertEquals(path.hashCode(), built.hashCode());
      built.pop();
      assertNotEquals(path, built);
    }
  }

  @Nested
  class Files {
    @Test
    void readFromAFileWriteItAndReadItBackEqual(@TempDir Path dir) throws Exception {
      Path first = dir.resolve("first.ovx");
      java.nio.file.Files.writeString(first,
          "#Orvex V1.0 ascii\nSeparator { Translation { translation 1 2 3 } Cube { width 5 } }\n");
      SoInput in = new SoInput();
      assertTrue(in.openFile(first.toString()));
      SoSeparator read = SoDB.readAll(in);
      assertNotNull(read);
      String second = dir.resolve("second.ovx").toString();
      try (SoOutput out = new SoOutput()) {
        assertTrue(out.openFile(second));
        try (SoWriteAction write = new SoWriteAction(out)) {
          write.apply(read);
        }
        out.closeFile();
      }
      assertTrue(java.nio.file.Files.readString(Path.of(second)).startsWith("#Orvex V1.0 ascii"));
      SoInput again = new SoInput();
      assertTrue(again.openFile(second));
      SoSeparator back = SoDB.readAll(again);
      SoTranslation move = assertInstanceOf(SoTranslation.class, back.getChild(0));
      assertArrayEquals(new float[] {1, 2, 3}, move.translation.getValue().array);
      assertEquals(5f, assertInstanceOf(SoCube.class, back.getChild(1)).width.getValue());
      assertEquals(first.toString(), in.getCurFileName());
    }

    @Test
    void nodesAreReadOneAtATime() {
      SoInput in = new SoInput();
      in.setBuffer("#Orvex V1.0 ascii\nCube { width 2 }\nSphere { radius 3 }\n");
      assertEquals(2f, assertInstanceOf(SoCube.class, SoDB.readNode(in)).width.getValue());
      assertEquals(3f, assertInstanceOf(SoSphere.class, SoDB.read(in)).radius.getValue());
      assertNull(SoDB.readNode(in));
    }

    @Test
    void anUnknownNodeTypeWithItsFieldDeclarationsReadsAsAnUnknownNode() {
      SoInput in = new SoInput();
      in.setBuffer("#Orvex V1.0 ascii\nSeparator { Gadget { fields [ SFFloat size ] size 3.5 } }");
      SoSeparator read = SoDB.readAll(in);
      assertNotNull(read);
      SoUnknownNode gadget = assertInstanceOf(SoUnknownNode.class, read.getChild(0));
      SoSFFloat size = assertInstanceOf(SoSFFloat.class, gadget.getField("size"));
      assertEquals(3.5f, size.getValue());
    }

    @Test
    void aMalformedFileFailsWithItsErrorDeliveredToTheListener(@TempDir Path dir) throws Exception {
      Path bad = dir.resolve("bad.ovx");
      java.nio.file.Files.writeString(bad, "#Orvex V1.0 ascii\nSeparator { Cube { width } \n");
      List<String> errors = errorsDuring(() -> {
        SoInput in = new SoInput();
        assertTrue(in.openFile(bad.toString()));
        assertNull(SoDB.readAll(in));
      });
      assertFalse(errors.isEmpty());
      assertTrue(errors.stream().anyMatch(e -> e.contains("bad.ovx")), errors.toString());
      // A file that does not exist: an error, not an exception.
      List<String> missing = errorsDuring(() -> assertFalse(new SoInput().openFile(dir.resolve("none.ovx").toString())));
      assertEquals(1, missing.size());
    }

    @Test
    void headersAreRegisteredAndRecognised() {
      assertTrue(SoDB.getNumHeaders() >= 1);
      List<String> headers = new ArrayList<>();
      for (int i = 0; i < SoDB.getNumHeaders(); i++) headers.add(SoDB.getHeaderString(i));
      assertTrue(headers.contains("#Orvex V1.0 ascii"), headers.toString());
      assertTrue(SoDB.isValidHeader("#Orvex V1.0 ascii"));
      assertFalse(SoDB.isValidHeader("#VRML V2.0 utf8"));
      boolean[] binary = new boolean[1];
      float[] version = new float[1];
      assertTrue(SoDB.getHeaderData("#Orvex V1.0 ascii", binary, version));
      assertFalse(binary[0]);
      assertEquals(1.0f, version[0]);
    }

    @Test
    void inputParametersLimitWhatIsReadAndStayAliveWithTheirInput(@TempDir Path dir) throws Exception {
      Path big = dir.resolve("big.ovx");
      StringBuilder text = new StringBuilder("#Orvex V1.0 ascii\nSeparator {\n");
      for (int i = 0; i < 200; i++) text.append("Cube { width ").append(i + 1).append(" }\n");
      java.nio.file.Files.writeString(big, text.append("}\n"));
      SoInput in = new SoInput();
      setSmallLimit(in, 1000);
      for (int i = 0; i < 5; i++) {
        System.gc();
        Thread.sleep(10);
      }
      assertEquals(1000L, in.getInputParameters().getMaxInputBytes());
      List<String> errors = errorsDuring(() -> assertFalse(in.openFile(big.toString())));
      assertFalse(errors.isEmpty());
      in.setInputParameters(null);
      assertTrue(in.openFile(big.toString()));
      assertEquals(200, SoDB.readAll(in).getNumChildren());
    }

    private void setSmallLimit(SoInput in, long bytes) {
      SoInputParameters parameters = new SoInputParameters();
      parameters.setMaxInputBytes(bytes);
      in.setInputParameters(parameters);
    }

    @Test
    void patternNamesOfAPatternFile(@TempDir Path dir) throws Exception {
      StringBuilder rows = new StringBuilder();
      for (int i = 0; i < 32; i++) rows.append(i == 0 ? "" : ", ").append(i % 2 == 0 ? "0xFFFFFFFF" : "0x0");
      Path file = dir.resolve("hatches.pat");
      java.nio.file.Files.writeString(file, "#Orvex Pattern V1.0\nCategory Hatch\nPattern Stripes [ " + rows
          + " ]\nPattern Blank [ " + rows.toString().replace("0xFFFFFFFF", "0x0") + " ]\n");
      assertArrayEquals(new String[] {"Stripes", "Blank"}, SoPattern.getPatternNames(file.toString()));
      Path empty = dir.resolve("empty.pat");
      java.nio.file.Files.writeString(empty, "#Orvex Pattern V1.0\n");
      assertArrayEquals(new String[0], SoPattern.getPatternNames(empty.toString()));
      List<String> errors = errorsDuring(() -> {
        assertArrayEquals(new String[0], SoPattern.getPatternNames(dir.resolve("none.pat").toString()));
        assertArrayEquals(new String[0], SoPattern.getPatternNames(null));
      });
      assertEquals(2, errors.size(), errors.toString());
    }
  }

  @Nested
  class Patterns {
    @Test
    void patternsAreThirtyTwoRowsOfThirtyTwoBits() {
      byte[] bits = new byte[128];
      for (int i = 0; i < bits.length; i++) bits[i] = (byte) (i * 7);
      SoPattern.addPattern("SvcHatch", "Diagonal", bits);
      assertArrayEquals(bits, SoPattern.getPattern("SvcHatch", "Diagonal"));
      SoPattern node = new SoPattern();
      node.category.setValue("SvcHatch");
      node.name.setValue("Diagonal");
      assertArrayEquals(bits, node.getPattern());
      // An unknown pattern: no bytes.
      assertEquals(0, SoPattern.getPattern("SvcHatch", "NoSuchPattern").length);
      assertThrows(IllegalArgumentException.class, () -> SoPattern.addPattern("SvcHatch", "Short", new byte[127]));
      assertThrows(NullPointerException.class, () -> SoPattern.addPattern("SvcHatch", "Null", null));
    }

    @Test
    void binaryArraysMustHoldTheirCount() {
      SoInput in = new SoInput();
      in.setBuffer("#Orvex V1.0 ascii\n");
      assertThrows(IllegalArgumentException.class, () -> in.readBinaryArray(new float[2], 3));
      assertThrows(IllegalArgumentException.class, () -> in.readBinaryArray(new byte[4], -1));
      assertThrows(NullPointerException.class, () -> in.readBinaryArray((int[]) null, 0));
    }
  }

  @Nested
  class Database {
    @Test
    void globalFieldsAreCreatedFoundAndRenamed() {
      SoSFVec3f where = assertInstanceOf(SoSFVec3f.class, SoDB.createGlobalField("svcWhere", SoSFVec3f.class));
      where.setValue(1f, 2f, 3f);
      assertSame(where, SoDB.getGlobalField("svcWhere"));
      SoDB.renameGlobalField("svcWhere", "svcThere");
      assertNull(SoDB.getGlobalField("svcWhere"));
      assertSame(where, SoDB.getGlobalField("svcThere"));
      assertArrayEquals(new float[] {1, 2, 3}, where.getValue().array);
      // A rename onto a taken name deletes the field that had it; an empty
      // name deletes the renamed one: their wrappers are done with.
      SoSFFloat other = assertInstanceOf(SoSFFloat.class, SoDB.createGlobalField("svcOther", "SFFloat"));
      SoDB.renameGlobalField("svcThere", "svcOther");
      assertThrows(IllegalStateException.class, other::getValue);
      assertSame(where, SoDB.getGlobalField("svcOther"));
      SoDB.renameGlobalField("svcOther", "");
      assertNull(SoDB.getGlobalField("svcOther"));
      assertThrows(IllegalStateException.class, where::getValue);
      // Types that are no field types make no field.
      assertNull(SoDB.createGlobalField("svcNode", SoSphere.class));
      assertNull(SoDB.createGlobalField("svcNone", "NoSuchType"));
      assertNull(SoDB.getGlobalField("svcNode"));
    }

    @Test
    void theApplicationLockCannotBeGivenBackUnheldOrTakenIntoADeadlock() {
      assertThrows(IllegalStateException.class, SoDB::readunlock);
      assertThrows(IllegalStateException.class, SoDB::writeunlock);
      SoDB.readlock();
      SoDB.readlock();
      assertThrows(IllegalStateException.class, SoDB::writelock);
      SoDB.readunlock();
      SoDB.readunlock();
      assertThrows(IllegalStateException.class, SoDB::readunlock);
      SoDB.writelock();
      assertThrows(IllegalStateException.class, SoDB::readlock);
      assertThrows(IllegalStateException.class, SoDB::writelock);
      SoDB.writeunlock();
      assertThrows(IllegalStateException.class, SoDB::writeunlock);
    }

    @Test
    void outsideATraversalThePathCodeIsNoPathWithoutIndices() {
      SoSearchAction search = new SoSearchAction();
      java.nio.ByteBuffer[] indices = {java.nio.ByteBuffer.allocate(1)};
      assertEquals(com.orvexa.orvex.actions.SoAction.PathCode.NO_PATH, search.getPathCode(indices));
      assertNull(indices[0]);
      assertThrows(IllegalArgumentException.class, () -> search.getPathCode(new java.nio.ByteBuffer[0]));
    }

    @Test
    void inATraversalOfAPathThePathCodeGivesTheIndicesOnThePathAndTheyOutliveTheAction() {
      SoSeparator root = new SoSeparator();
      SoSeparator inner = new SoSeparator();
      SoSphere ball = new SoSphere();
      root.addChild(new SoCube());
      root.addChild(inner);
      inner.addChild(new SoCube());
      inner.addChild(new SoCube());
      inner.addChild(ball);
      SoPath path = new SoPath(root);
      path.append(inner);
      path.append(ball);
      com.orvexa.orvex.actions.SoCallbackAction action = new com.orvexa.orvex.actions.SoCallbackAction();
      java.util.Map<SoNode, java.nio.ByteBuffer> seen = new java.util.IdentityHashMap<>();
      java.util.Map<SoNode, com.orvexa.orvex.actions.SoAction.PathCode> codes = new java.util.IdentityHashMap<>();
      action.addPreCallback(SoSeparator.class, new com.orvexa.orvex.misc.callbacks.SoCallbackActionCB((a, node, data) -> {
        java.nio.ByteBuffer[] indices = new java.nio.ByteBuffer[1];
        codes.put(node, a.getPathCode(indices));
        seen.put(node, indices[0]);
        return com.orvexa.orvex.actions.SoCallbackAction.Response.CONTINUE;
      }), null);
      action.apply(path);
      action.dispose();
      assertEquals(com.orvexa.orvex.actions.SoAction.PathCode.IN_PATH, codes.get(root));
      assertEquals(com.orvexa.orvex.actions.SoAction.PathCode.IN_PATH, codes.get(inner));
      // Each group's indices name its child on the path; read after the
      // action is gone, from the caller's own copy.
      assertEquals(4, seen.get(root).capacity());
      assertEquals(1, seen.get(root).getInt(0));
      assertEquals(2, seen.get(inner).getInt(0));
    }

    @Test
    void routesPassChangesUntilRemoved() {
      SoTranslation from = new SoTranslation();
      SoTranslation to = new SoTranslation();
      from.translation.setValue(1f, 2f, 3f);
      SoDB.createRoute(from, "translation", to, "translation");
      assertArrayEquals(new float[] {1, 2, 3}, to.translation.getValue().array);
      from.translation.setValue(4f, 5f, 6f);
      assertArrayEquals(new float[] {4, 5, 6}, to.translation.getValue().array);
      SoDB.removeRoute(from, "translation", to, "translation");
      from.translation.setValue(7f, 8f, 9f);
      assertArrayEquals(new float[] {4, 5, 6}, to.translation.getValue().array);
      assertFalse(to.translation.isConnected());
      // A route to a field that does not exist connects nothing.
      SoDB.createRoute(from, "noSuchField", to, "translation");
      assertFalse(to.translation.isConnected());
    }

    @Test
    void convertersAreRegisteredByTypeClassOrName() {
      assertEquals("", badName(SoDB.getConverter("SFFloat", "SFVec3f")));
      SoDB.addConverter(SoSFFloat.class, SoSFVec3f.class, com.orvexa.orvex.engines.SoComposeVec3f.class);
      assertEquals(com.orvexa.orvex.engines.SoComposeVec3f.getClassTypeId(),
          SoDB.getConverter("SFFloat", "SFVec3f"));
      SoDB.removeConverter("SFFloat", "SFVec3f");
      assertEquals("", badName(SoDB.getConverter(SoSFFloat.class, SoSFVec3f.class)));
    }

    /** The name of the toolkit's bad type reads as empty here. */
    private String badName(String typeName) {
      return typeName == null ? "" : typeName;
    }

    @Test
    void timesCacheSettingsLocksAndFlags() {
      SbTime now = SoDB.getCurrentTime();
      double seconds = now.getValue();
      assertTrue(Math.abs(seconds - System.currentTimeMillis() / 1000.0) < 60.0, Double.toString(seconds));

      SbTime oldTimeout = new SbTime(SoDB.getDelaySensorTimeout().getValue());
      SoDB.setDelaySensorTimeout(new SbTime(0.25));
      assertEquals(0.25, SoDB.getDelaySensorTimeout().getValue(), 1e-9);
      SoDB.setDelaySensorTimeout(oldTimeout);
      SbTime oldInterval = new SbTime(SoDB.getRealTimeInterval().getValue());
      SoDB.setRealTimeInterval(new SbTime(0.5));
      assertEquals(0.5, SoDB.getRealTimeInterval().getValue(), 1e-9);
      SoDB.setRealTimeInterval(oldInterval);

      int caches = SoDB.getNumRenderCaches();
      SoDB.setNumRenderCaches(caches + 3);
      assertEquals(caches + 3, SoDB.getNumRenderCaches());
      SoDB.setNumRenderCaches(caches);
      SoDB.RenderCacheModes mode = SoDB.getRenderCacheMode();
      SoDB.setRenderCacheMode(SoDB.RenderCacheModes.COMPILE);
      assertEquals(SoDB.RenderCacheModes.COMPILE, SoDB.getRenderCacheMode());
      SoDB.setRenderCacheMode(mode);
      boolean prioritized = SoDB.isPrioritizedChildrenCaching();
      SoDB.prioritizeChildrenCaching(!prioritized);
      assertEquals(!prioritized, SoDB.isPrioritizedChildrenCaching());
      SoDB.prioritizeChildrenCaching(prioritized);

      boolean tuneLux = SoDB.getTuneLuxAllowed();
      SoDB.setTuneLuxAllowed(!tuneLux);
      assertEquals(!tuneLux, SoDB.getTuneLuxAllowed());
      SoDB.setTuneLuxAllowed(tuneLux);

      assertTrue(SoDB.isMultiThread());
      SoDB.processEvents();
      assertTrue(SoDB.isInitialized());
      assertTrue(SoDB.getVersion().length() > 0);
    }

    @Test
    void preferencesSetFromJavaAreAlsoEnvironmentVariables() {
      SoPreferences.setValue("SVC_TEST_PREFERENCE", "yes");
      assertEquals("yes", SoPreferences.getValue("SVC_TEST_PREFERENCE"));
      assertTrue(SoPreferences.getBool("SVC_TEST_PREFERENCE", false));
      SoPreferences.setInt("SVC_TEST_NUMBER", -42);
      assertEquals(-42, SoPreferences.getInt("SVC_TEST_NUMBER", 0));
      SoPreferences.setFloat("SVC_TEST_NUMBER", 0.1f);
      assertEquals(0.1f, SoPreferences.getFloat("SVC_TEST_NUMBER", 0f));
      SoPreferences.setDouble("SVC_TEST_NUMBER", 1e-300);
      assertEquals(1e-300, SoPreferences.getDouble("SVC_TEST_NUMBER", 0.0));
      SoPreferences.setBool("SVC_TEST_NUMBER", false);
      assertFalse(SoPreferences.getBool("SVC_TEST_NUMBER", true));
      SoPreferences.setValue("SVC_TEST_PREFERENCE", null);
      assertNull(SoPreferences.getValue("SVC_TEST_PREFERENCE"));

      // The input's directory list reads environment variables itself.
      SoPreferences.setString("SVC_TEST_DIRS", "/svc/one:/svc/two");
      int before = SoInput.getNumDirectories();
      SoInput.addEnvDirectoriesLast("SVC_TEST_DIRS");
      try {
        assertEquals(before + 2, SoInput.getNumDirectories());
        assertEquals("/svc/two", SoInput.getDirectory(before + 1));
      } finally {
        SoInput.removeDirectory("/svc/one");
        SoInput.removeDirectory("/svc/two");
      }
      assertEquals(before, SoInput.getNumDirectories());
      assertThrows(IllegalArgumentException.class, () -> SoPreferences.setValue("A=B", "x"));
      assertThrows(IllegalArgumentException.class, () -> SoPreferences.setValue("", "x"));
      assertThrows(NullPointerException.class, () -> SoPreferences.getValue(null));
    }

    @Test
    void filesAreFoundThroughTheDirectoryList(@TempDir Path dir) throws Exception {
      java.nio.file.Files.writeString(dir.resolve("found.ovx"), "#Orvex V1.0 ascii\nCube {}\n");
      SoInput.addDirectoryFirst(dir.toString());
      try {
        String[] full = new String[1];
        assertTrue(SoInput.findAbsolutePath("found.ovx", full));
        assertEquals(dir.resolve("found.ovx").toString(), full[0]);
        assertEquals(full[0], SoInput.findAbsolutePath("found.ovx"));
        assertFalse(SoInput.findAbsolutePath("lost.ovx", full));
      } finally {
        SoInput.removeDirectory(dir.toString());
      }
    }
  }

  @Nested
  class Actions {
    @Test
    void matrixAlongAPath() {
      Row row = new Row();
      SoSearchAction search = new SoSearchAction();
      search.setNode(row.balls[2]);
      search.apply(row.root);
      SoGetMatrixAction matrix = new SoGetMatrixAction(viewport());
      matrix.apply(search.getPath());
      SbVec3f origin = new SbVec3f(0, 0, 0);
      SbVec3f moved = new SbVec3f(0, 0, 0);
      matrix.getMatrix().multVecMatrix(origin, moved);
      assertArrayEquals(new float[] {4, 0, 0}, moved.array, 1e-6f);
      matrix.getInverse().multVecMatrix(new SbVec3f(4, 0, 0), moved);
      assertArrayEquals(new float[] {0, 0, 0}, moved.array, 1e-6f);
    }

    @Test
    void primitiveCountOfACube() {
      SoSeparator root = new SoSeparator();
      root.addChild(new SoCube());
      root.addChild(new SoCube());
      SoGetPrimitiveCountAction count = new SoGetPrimitiveCountAction();
      count.apply(root);
      // Six faces of two triangles each, twice.
      assertEquals(24L, count.getTriangleCount());
      assertEquals(0L, count.getLineCount());
      assertEquals(0L, count.getPointCount());
    }

    @Test
    void actionsApplyToAListOfPathsInItsOrder() {
      Row row = new Row();
      SoCube cube = new SoCube();
      row.root.addChild(cube);
      SoSearchAction search = new SoSearchAction();
      search.setType(SoShape.class, true);
      search.setInterest(SoSearchAction.Interest.ALL);
      search.apply(row.root);
      List<SoPath> paths = search.getPaths();
      assertEquals(4, paths.size());
      assertSame(cube, paths.get(3).getTail());
      // The count starts again with each path: what remains is the last path's.
      SoGetPrimitiveCountAction count = new SoGetPrimitiveCountAction();
      count.apply(List.of(paths.get(0), paths.get(3)), false);
      assertEquals(12L, count.getTriangleCount());
      SoGetPrimitiveCountAction sphere = new SoGetPrimitiveCountAction();
      sphere.apply(paths.get(0));
      assertTrue(sphere.getTriangleCount() > 12L);
      count.apply(List.of(paths.get(3), paths.get(0)), false);
      assertEquals(sphere.getTriangleCount(), count.getTriangleCount());
      List<SoPath> withNull = new ArrayList<>(paths);
      withNull.add(null);
      assertThrows(NullPointerException.class, () -> count.apply(withNull, false));
      assertThrows(NullPointerException.class, () -> count.apply((List<SoPath>) null, false));
      // Unchecked code can put other wrappers into a list of paths: refused, not passed on.
      @SuppressWarnings({"unchecked", "rawtypes"})
      List<SoPath> polluted = (List) List.of(paths.get(0), new SoCube());
      assertThrows(IllegalArgumentException.class, () -> count.apply(polluted, false));
    }

    @Test
    void aBoundingBoxCacheMadeFromJavaHoldsItsBox() {
      SoBoundingBoxCache cache = new SoBoundingBoxCache(null);
      SbXfBox3f box = new SbXfBox3f(new SbVec3f(-1, -2, -3), new SbVec3f(1, 2, 3));
      cache.set(box, true, new SbVec3f(0.5f, 0, 0));
      assertArrayEquals(new float[] {-1, -2, -3, 1, 2, 3}, cache.getProjectedBox().array, 1e-6f);
      assertTrue(cache.isCenterSet());
      assertArrayEquals(new float[] {0.5f, 0, 0}, cache.getCenter().array);
      assertEquals(0, cache.getDepth());
      // Validity is judged against a traversal state, which Java never holds.
      assertThrows(NullPointerException.class, () -> cache.isValid(null));
      cache.invalidate();
      cache.dispose();
      assertThrows(IllegalStateException.class, cache::isCenterSet);
    }
  }

  @Nested
  class IdleActions {
    /** A plain value for a parameter of type t, or null when there is none. */
    private Object plainArgument(Class<?> t) throws Exception {
      if (t == int.class) return 0;
      if (t == float.class) return 0f;
      if (t == double.class) return 0.0;
      if (t == long.class) return 0L;
      if (t == short.class) return (short) 0;
      if (t == boolean.class) return false;
      if (t == String.class) return "x";
      if (t.isArray()) return java.lang.reflect.Array.newInstance(t.getComponentType(), 64);
      if (t.isEnum()) return t.getEnumConstants()[0];
      try {
        return t.getConstructor().newInstance();
      } catch (NoSuchMethodException e) {
        return null;
      }
    }

    @Test
    void everyMemberOfAnIdleActionWorksOrThrowsAJavaException() throws Exception {
      SbViewportRegion region = viewport();
      com.orvexa.orvex.actions.SoAction[] actions = {
        new com.orvexa.orvex.actions.SoCallbackAction(), new com.orvexa.orvex.actions.SoGetBoundingBoxAction(region),
        new SoGetMatrixAction(region), new SoGetPrimitiveCountAction(),
        new com.orvexa.orvex.actions.SoHandleEventAction(region), new SoRayPickAction(region),
        new SoSearchAction(), new SoWriteAction()};
      int calls = 0;
      List<String> refused = new ArrayList<>();
      for (com.orvexa.orvex.actions.SoAction action : actions) {
        for (java.lang.reflect.Method m : action.getClass().getMethods()) {
          if (java.lang.reflect.Modifier.isStatic(m.getModifiers()) || m.getDeclaringClass() == Object.class) continue;
          if (m.getName().startsWith("apply") || m.getName().equals("dispose") || m.getName().equals("close")) continue;
          Object[] arguments = new Object[m.getParameterCount()];
          boolean plain = true;
          for (int i = 0; i < arguments.length && plain; i++) {
            arguments[i] = plainArgument(m.getParameterTypes()[i]);
            plain = arguments[i] != null;
          }
          if (!plain) continue;
          calls++;
          try {
            m.invoke(action, arguments);
          } catch (java.lang.reflect.InvocationTargetException e) {
            assertInstanceOf(RuntimeException.class, e.getCause(), m.toString());
            if (e.getCause() instanceof IllegalStateException) {
              refused.add(action.getClass().getSimpleName() + "." + m.getName());
            }
          }
        }
      }
      assertTrue(calls > 200, "only " + calls + " calls");
      // Members that need the traversal state refuse; the process is still here.
      assertTrue(refused.contains("SoCallbackAction.getComplexity"), refused.toString());
      assertTrue(refused.contains("SoGetBoundingBoxAction.popCurPath"), refused.toString());
      assertTrue(refused.contains("SoRayPickAction.computeWorldSpaceRay"), refused.toString());
      SoSeparator root = new SoSeparator();
      root.addChild(new SoCube());
      assertThrows(IllegalStateException.class, () -> actions[1].traverse(root));
    }
  }

  @Nested
  class Events {
    @Test
    void everyEventClassIsCreatedAndInspected() {
      try (SoMouseButtonEvent mouse = new SoMouseButtonEvent()) {
        mouse.setButton(SoMouseButtonEvent.Buttons.BUTTON2);
        mouse.setState(SoButtonEvent.States.UP);
        mouse.setShiftDown(true);
        mouse.setTime(new SbTime(12.5));
        assertEquals(SoMouseButtonEvent.Buttons.BUTTON2, mouse.getButton());
        assertTrue(SoMouseButtonEvent.isButtonReleaseEvent(mouse, SoMouseButtonEvent.Buttons.BUTTON2));
        assertFalse(SoMouseButtonEvent.isButtonPressEvent(mouse, SoMouseButtonEvent.Buttons.BUTTON2));
        assertTrue(mouse.wasShiftDown());
        assertFalse(mouse.wasCtrlDown());
        assertEquals(12.5, mouse.getTime().getValue(), 1e-9);
        assertEquals("SoMouseButtonEvent", mouse.getTypeId());
      }
      try (SoMouseWheelEvent wheel = new SoMouseWheelEvent()) {
        wheel.setDelta(-120);
        assertEquals(-120, wheel.getDelta());
      }
      try (SoLocation2Event move = new SoLocation2Event()) {
        move.setEventSource(SoLocation2Event.EventSources.MOUSEENTER);
        assertEquals(SoLocation2Event.EventSources.MOUSEENTER, move.getEventSource());
        move.setPosition(new SbVec2s((short) 50, (short) 25));
        assertArrayEquals(new float[] {0.5f, 0.25f},
            move.getNormalizedPosition(new SbViewportRegion((short) 100, (short) 100)).array, 1e-6f);
      }
      try (SoMotion3Event motion = new SoMotion3Event()) {
        motion.setTranslation(new SbVec3f(1, 2, 3));
        assertArrayEquals(new float[] {1, 2, 3}, motion.getTranslation().array);
        SbRotation turn = new SbRotation(new SbVec3f(0, 0, 1), 0.5f);
        motion.setRotation(turn);
        assertArrayEquals(turn.array, motion.getRotation().array, 1e-6f);
      }
      try (SoSpaceballButtonEvent spaceball = new SoSpaceballButtonEvent()) {
        spaceball.setButton(SoSpaceballButtonEvent.Buttons.PICK);
        spaceball.setState(SoButtonEvent.States.DOWN);
        assertTrue(SoSpaceballButtonEvent.isButtonPressEvent(spaceball, SoSpaceballButtonEvent.Buttons.PICK));
        assertEquals(9, SoSpaceballButtonEvent.Buttons.PICK.getValue());
        assertEquals(7, SoSpaceballButtonEvent.Buttons.BUTTON7.getValue());
      }
      try (SoControllerButtonEvent controller = new SoControllerButtonEvent()) {
        controller.setButton(SoControllerButtonEvent.Buttons.BUTTON3);
        controller.setPosition3(new SbVec3f(0, 1, 0));
        assertEquals(SoControllerButtonEvent.Buttons.BUTTON3, controller.getButton());
        assertArrayEquals(new float[] {0, 1, 0}, controller.getPosition3().array);
      }
      try (SoTrackerEvent tracker = new SoTrackerEvent()) {
        tracker.setPosition3(new SbVec3f(0, 0, 5));
        // No rotation: the ray starts at the tracker and looks down -z.
        SbLine ray = tracker.getRay();
        assertArrayEquals(new float[] {0, 0, 5}, ray.getPosition().array, 1e-6f);
        assertArrayEquals(new float[] {0, 0, -1}, ray.getDirection().array, 1e-6f);
      }
      try (SoKeyboardEvent key = new SoKeyboardEvent()) {
        key.setKey(SoKeyboardEvent.Keys.A);
        assertEquals('a', key.getPrintableCharacter());
      }
      assertEquals(97, SoKeyboardEvent.Keys.A.getValue());
      assertEquals(65307, SoKeyboardEvent.Keys.ESCAPE.getValue());
      assertEquals(0, SoMouseButtonEvent.Buttons.ANY.getValue());
      assertEquals(1, SoMouseButtonEvent.Buttons.BUTTON1.getValue());
    }
  }
}
