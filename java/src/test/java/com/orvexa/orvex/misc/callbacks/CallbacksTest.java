package com.orvexa.orvex.misc.callbacks;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.SoPrimitiveVertex;
import com.orvexa.orvex.actions.SoAction;
import com.orvexa.orvex.actions.SoCallbackAction;
import com.orvexa.orvex.nodes.SoCallback;
import com.orvexa.orvex.nodes.SoCube;
import com.orvexa.orvex.nodes.SoNode;
import com.orvexa.orvex.nodes.SoSeparator;
import com.orvexa.orvex.nodes.SoSphere;
import com.orvexa.orvex.nodes.SoTranslation;
import java.lang.ref.WeakReference;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.function.BooleanSupplier;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Nested;
import org.junit.jupiter.api.Test;

/**
 * Java callbacks registered with toolkit objects on a Java thread: what
 * they receive, their native objects' life cycle (one native object per
 * callback, holds taken and given back by registrations, removals and the
 * end of the holders), and exceptions thrown by them.
 */
class CallbacksTest {
  @BeforeAll
  static void load() {
    CallbackProbe.init();
  }

  /** A cube of the given size under a translation, so that object space differs from world space. */
  static SoSeparator cubeScene(float width, float height, float depth) {
    SoSeparator root = new SoSeparator();
    SoTranslation move = new SoTranslation();
    move.translation.setValue(5f, -3f, 2f);
    root.addChild(move);
    SoCube cube = new SoCube();
    cube.width.setValue(width);
    cube.height.setValue(height);
    cube.depth.setValue(depth);
    root.addChild(cube);
    return root;
  }

  static float[] point(SoPrimitiveVertex v) {
    return v.getPoint().array.clone();
  }

  static double triangleArea(float[] a, float[] b, float[] c) {
    double ux = b[0] - a[0], uy = b[1] - a[1], uz = b[2] - a[2];
    double vx = c[0] - a[0], vy = c[1] - a[1], vz = c[2] - a[2];
    double cx = uy * vz - uz * vy, cy = uz * vx - ux * vz, cz = ux * vy - uy * vx;
    return 0.5 * Math.sqrt(cx * cx + cy * cy + cz * cz);
  }

  /**
   * Runs the collector until the callbacks that earlier tests dropped are
   * gone (the counts stop changing), so that the counts can serve as a
   * baseline.
   */
  static void settle() throws InterruptedException {
    long live = -1, references = -1;
    for (int steady = 0, i = 0; steady < 5 && i < 150; i++) {
      System.gc();
      Thread.sleep(20);
      long nowLive = NCallback.liveNativeCallbacks(), nowReferences = NCallback.heldReferences();
      steady = nowLive == live && nowReferences == references ? steady + 1 : 0;
      live = nowLive;
      references = nowReferences;
    }
  }

  /** Runs the collector until {@code condition} holds (at most a few seconds). */
  static boolean collectUntil(BooleanSupplier condition) throws InterruptedException {
    for (int i = 0; i < 200 && !condition.getAsBoolean(); i++) {
      System.gc();
      Thread.sleep(20);
    }
    return condition.getAsBoolean();
  }

  @Nested
  class Primitives {
    @Test
    void aCubeDeliversTwelveTrianglesCoveringItsSurface() {
      float w = 2f, h = 4f, d = 6f;
      List<float[][]> triangles = new ArrayList<>();
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.addTriangleCallback("Cube", new SoTriangleCB((a, v1, v2, v3, data) -> {
          triangles.add(new float[][] {point(v1), point(v2), point(v3)});
        }), null);
        action.apply(cubeScene(w, h, d));
      }
      assertEquals(12, triangles.size());
      double area = 0;
      for (float[][] t : triangles) {
        area += triangleArea(t[0], t[1], t[2]);
        // Object space: every corner is a corner of the box centred at the origin.
        for (float[] p : t) {
          assertEquals(w / 2, Math.abs(p[0]), 1e-5, "x");
          assertEquals(h / 2, Math.abs(p[1]), 1e-5, "y");
          assertEquals(d / 2, Math.abs(p[2]), 1e-5, "z");
        }
      }
      assertEquals(2 * (w * h + h * d + w * d), area, 1e-3);
    }

    @Test
    void onlyShapesOfTheRegisteredTypeDeliverTriangles() {
      AtomicInteger count = new AtomicInteger();
      SoSeparator root = cubeScene(1, 1, 1);
      root.addChild(new SoSphere());
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.addTriangleCallback("Cube", new SoTriangleCB((a, v1, v2, v3, data) -> count.incrementAndGet()), null);
        action.apply(root);
      }
      assertEquals(12, count.get());
    }

    @Test
    void theVerticesAreReleasedWhenTheCallbackReturns() {
      List<SoPrimitiveVertex> kept = new ArrayList<>();
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.addTriangleCallback("Cube", new SoTriangleCB((a, v1, v2, v3, data) -> {
          assertNotEquals(0L, v1.getNativeResourceHandleInternal());
          kept.add(v1);
        }), null);
        action.apply(cubeScene(1, 1, 1));
      }
      assertEquals(12, kept.size());
      for (SoPrimitiveVertex v : kept) assertThrows(IllegalStateException.class, v::getPoint);
    }

    @Test
    void theCallbackReceivesTheActionThatWasApplied() {
      List<SoCallbackAction> seen = new ArrayList<>();
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.addPointCallback("Cube", new SoPointCB((a, v, data) -> seen.add(a)), null);
        action.addTriangleCallback("Cube", new SoTriangleCB((a, v1, v2, v3, data) -> seen.add(a)), null);
        action.apply(cubeScene(1, 1, 1));
        assertEquals(12, seen.size());
        for (SoCallbackAction a : seen) assertSame(action, a);
      }
    }
  }

  @Nested
  class Traversal {
    @Test
    void preAndPostCallbacksSeeEachNodeOfTheirTypeInOrder() {
      List<String> events = new ArrayList<>();
      SoSeparator root = cubeScene(1, 1, 1);
      SoCallbackActionCB pre = new SoCallbackActionCB((a, node, data) -> {
        events.add(data + " " + node.getClass().getSimpleName());
        return SoCallbackAction.Response.CONTINUE;
      });
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.addPreCallback("Node", pre, "pre");
        action.addPostCallback("Separator", new SoCallbackActionCB((a, node, data) -> {
          events.add(data + " " + node.getClass().getSimpleName());
          return SoCallbackAction.Response.CONTINUE;
        }), "post");
        action.apply(root);
      }
      assertEquals(List.of("pre SoSeparator", "pre SoTranslation", "pre SoCube", "post SoSeparator"), events);
    }

    @Test
    void pruneSkipsWhatIsBelowAndAbortStops() {
      SoSeparator root = new SoSeparator();
      SoSeparator pruned = cubeScene(1, 1, 1);
      root.addChild(pruned);
      root.addChild(cubeScene(1, 1, 1));
      AtomicInteger triangles = new AtomicInteger();
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.addTriangleCallback("Cube", new SoTriangleCB((a, v1, v2, v3, data) -> triangles.incrementAndGet()), null);
        SoCallbackActionCB prune = new SoCallbackActionCB((a, node, data) ->
            node == pruned ? SoCallbackAction.Response.PRUNE : SoCallbackAction.Response.CONTINUE);
        action.addPreCallback("Separator", prune, null);
        action.apply(root);
        assertEquals(12, triangles.get(), "the first cube is pruned");

        action.removePreCallback("Separator", prune);
        action.addPreCallback("Cube", new SoCallbackActionCB((a, node, data) -> SoCallbackAction.Response.ABORT), null);
        triangles.set(0);
        action.apply(root);
        assertEquals(0, triangles.get(), "aborted at the first cube");
      }
    }

    @Test
    void aCopyOfACallbackNodeKeepsTheFunctionAliveAfterTheOriginalIsGone() throws InterruptedException {
      AtomicInteger calls = new AtomicInteger();
      SoSeparator root = new SoSeparator();
      SoCallback original = new SoCallback();
      original.setCallback(new SoCallbackCB((action, data) -> calls.incrementAndGet()), null);
      SoNode copy = original.copy();
      root.addChild(copy);
      // Without its wrapper the original node is destroyed, and lets its
      // callback go: only the copy can keep the callback alive.
      WeakReference<SoCallback> gone = new WeakReference<>(original);
      original = null;
      assertTrue(collectUntil(() -> gone.get() == null));
      settle();
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.apply(root);
      }
      assertEquals(1, calls.get(), "the copy still calls the function");
    }

    @Test
    void aCallbackNodeCallsItsFunctionForEveryAction() {
      List<String> actions = new ArrayList<>();
      SoCallback node = new SoCallback();
      node.setCallback(new SoCallbackCB((action, data) -> actions.add(data + ":" + action.getClass().getSimpleName())),
          "first");
      SoSeparator root = new SoSeparator();
      root.addChild(node);
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.apply(root);
      }
      node.setCallback(new SoCallbackCB((action, data) -> actions.add(data + ":" + (action instanceof SoAction))),
          "second");
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.apply(root);
      }
      node.setCallback(null, null);
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.apply(root);
      }
      assertEquals(List.of("first:SoCallbackAction", "second:true"), actions);
    }

    @Test
    void unknownTypeNamesAndNullsAreRefusedBeforeNativeCode() {
      try (SoCallbackAction action = new SoCallbackAction()) {
        SoTriangleCB cb = new SoTriangleCB((a, v1, v2, v3, data) -> {});
        long references = NCallback.heldReferences();
        IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
            () -> action.addTriangleCallback("NoSuchShapeAnywhere", cb, null));
        assertTrue(e.getMessage().contains("type"), e.getMessage());
        assertEquals(references, NCallback.heldReferences(), "the failed registration holds nothing");
        assertThrows(NullPointerException.class, () -> action.addTriangleCallback((String) null, cb, null));
        NullPointerException noClass = assertThrows(NullPointerException.class,
            () -> action.addTriangleCallback((Class<SoNode>) null, cb, null));
        assertTrue(noClass.getMessage().contains("type"), noClass.getMessage());
        assertEquals(references, NCallback.heldReferences(), "the failed registrations hold nothing");
        assertThrows(NullPointerException.class, () -> action.addTriangleCallback("Cube", null, null));
        assertThrows(NullPointerException.class, () -> action.removeTriangleCallback("Cube", null));
        assertThrows(NullPointerException.class, () -> new SoTriangleCB(null));
        action.dispose();
        assertThrows(IllegalStateException.class, () -> action.addTriangleCallback("Cube", cb, null));
      }
    }
  }

  @Nested
  class LifeCycle {
    @Test
    void registerRemoveRegisterHandsTheToolkitTheSameNativeObject() {
      AtomicInteger triangles = new AtomicInteger();
      SoTriangleCB cb = new SoTriangleCB((a, v1, v2, v3, data) -> triangles.incrementAndGet());
      assertEquals(0L, cb.nativeAddress(), "no native object before the first registration");
      SoSeparator root = cubeScene(1, 1, 1);
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.addTriangleCallback("Cube", cb, "first");
        long address = cb.nativeAddress();
        assertNotEquals(0L, address);
        assertEquals(1, NCallback.holdCount(address));
        action.apply(root);
        assertEquals(12, triangles.get());

        action.removeTriangleCallback("Cube", cb);
        assertEquals(0, NCallback.holdCount(address));
        action.apply(root);
        assertEquals(12, triangles.get(), "removed: not called");

        action.addTriangleCallback("Cube", cb, "second");
        assertEquals(address, cb.nativeAddress());
        assertEquals(1, NCallback.holdCount(address));
        assertEquals("second", cb.getUserData());
        action.apply(root);
        assertEquals(24, triangles.get());
      }
    }

    @Test
    void theUserDataOfTheLatestRegistrationReachesTheFunction() {
      List<Object> data = new ArrayList<>();
      SoCallbackActionCB cb = new SoCallbackActionCB((a, node, userData) -> {
        data.add(userData);
        return SoCallbackAction.Response.CONTINUE;
      });
      Object first = new Object();
      try (SoCallbackAction one = new SoCallbackAction(); SoCallbackAction two = new SoCallbackAction()) {
        one.addPreCallback("Cube", cb, first);
        one.apply(cubeScene(1, 1, 1));
        two.addPreCallback("Cube", cb, "two");
        one.apply(cubeScene(1, 1, 1));
        assertEquals(2, NCallback.holdCount(cb.nativeAddress()));
      }
      assertEquals(List.of(first, "two"), data);
    }

    @Test
    void deleteNativeCallbackOfACallbackWithoutNativeObjectDoesNothing() {
      long live = NCallback.liveNativeCallbacks();
      SoPointCB cb = new SoPointCB((a, v, data) -> {});
      assertEquals(0L, cb.nativeAddress());
      cb.deleteNativeCallback();
      cb.deleteNativeCallback();
      assertEquals(live, NCallback.liveNativeCallbacks());
      assertEquals(0L, cb.nativeAddress());
    }

    @Test
    void anActionWrapperOwnsItsHandleAndABorrowedHandleDoesNot() {
      try (SoCallbackAction action = new SoCallbackAction()) {
        assertTrue(action.getNativeResourceHandle().isOwned());
      }
      assertFalse(com.orvexa.internal.NativeResourceHandle.borrowed(1L).isOwned());
    }

    @Test
    void deleteNativeCallbackDeletesOnceAndTheCleanUpNotAgain() throws InterruptedException {
      settle();
      long live = NCallback.liveNativeCallbacks();
      SoPointCB cb = new SoPointCB((a, v, data) -> {});
      com.orvexa.internal.CallbackAccess.prepare(cb);  // the native object, held by nothing
      assertEquals(live + 1, NCallback.liveNativeCallbacks());
      cb.deleteNativeCallback();
      assertEquals(0L, cb.nativeAddress());
      assertEquals(live, NCallback.liveNativeCallbacks());
      cb.deleteNativeCallback();
      assertEquals(live, NCallback.liveNativeCallbacks());
      // Once the Java object is gone its clean-up has run already: a second
      // delete would show as one native object fewer than were ever made.
      cb = null;
      settle();
      assertEquals(live, NCallback.liveNativeCallbacks());
    }

    @Test
    void tenThousandRegistrationCyclesLeaveNoReferenceAndNoNativeObjectBehind() throws InterruptedException {
      settle();
      long references = NCallback.heldReferences();
      long live = NCallback.liveNativeCallbacks();
      SoTriangleCB reused = new SoTriangleCB((a, v1, v2, v3, data) -> {});
      try (SoCallbackAction action = new SoCallbackAction()) {
        for (int i = 0; i < 10_000; i++) {
          action.addTriangleCallback("Cube", reused, i);
          SoTriangleCB fresh = new SoTriangleCB((a, v1, v2, v3, data) -> {});
          action.addTriangleCallback("Shape", fresh, i);
          assertEquals(references + 2, NCallback.heldReferences());
          action.removeTriangleCallback("Shape", fresh);
          action.removeTriangleCallback("Cube", reused);
          assertEquals(references, NCallback.heldReferences());
        }
      }
      // The dropped callbacks' clean-up deletes their native objects; the one
      // still referenced here keeps its own.
      assertTrue(collectUntil(() -> NCallback.liveNativeCallbacks() == live + 1),
          () -> "live native callbacks: " + NCallback.liveNativeCallbacks() + ", expected " + (live + 1));
      assertNotEquals(0L, reused.nativeAddress());
    }

    @Test
    void droppingTheActionGivesItsCallbacksBack() throws InterruptedException {
      settle();
      long references = NCallback.heldReferences();
      long live = NCallback.liveNativeCallbacks();
      WeakReference<SoTriangleCB> callback = registerOnADroppedAction();
      assertTrue(collectUntil(() -> callback.get() == null && NCallback.liveNativeCallbacks() == live),
          () -> "live native callbacks: " + NCallback.liveNativeCallbacks() + ", expected " + live);
      assertEquals(references, NCallback.heldReferences());
    }

    private WeakReference<SoTriangleCB> registerOnADroppedAction() {
      SoCallbackAction action = new SoCallbackAction();
      SoTriangleCB cb = new SoTriangleCB((a, v1, v2, v3, data) -> {});
      action.addTriangleCallback("Cube", cb, null);
      action.addPointCallback("Cube", new SoPointCB((a, v, data) -> {}), null);
      return new WeakReference<>(cb);
    }

    @Test
    void clearCallbacksGivesEveryHoldBack() {
      long references = NCallback.heldReferences();
      AtomicInteger calls = new AtomicInteger();
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.addTriangleCallback("Cube", new SoTriangleCB((a, v1, v2, v3, data) -> calls.incrementAndGet()), null);
        action.addPreCallback("Node", new SoCallbackActionCB((a, n, data) -> {
          calls.incrementAndGet();
          return SoCallbackAction.Response.CONTINUE;
        }), null);
        assertEquals(references + 2, NCallback.heldReferences());
        action.clearCallbacks();
        assertEquals(references, NCallback.heldReferences());
        action.apply(cubeScene(1, 1, 1));
      }
      assertEquals(0, calls.get());
    }

    @Test
    void aNodeKeepsItsCallbackWithoutItsWrapperAndGivesItBackWhenItDies() throws InterruptedException {
      settle();
      long references = NCallback.heldReferences();
      AtomicInteger calls = new AtomicInteger();
      SoCallbackCB cb = new SoCallbackCB((action, data) -> calls.incrementAndGet());
      SoSeparator root = new SoSeparator();
      WeakReference<SoCallback> wrapper = addCallbackNode(root, cb);
      assertTrue(collectUntil(() -> wrapper.get() == null), "the node's wrapper is collected");
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.apply(root);
      }
      assertEquals(1, calls.get(), "the node still calls the callback");
      assertEquals(references + 1, NCallback.heldReferences());
      // The parent's reference is the last one once the collected wrapper's
      // clean-up has run: the node dies then, and gives the callback back.
      root.removeAllChildren();
      assertTrue(collectUntil(() -> NCallback.heldReferences() == references), "the hold is given back");
      assertEquals(0, NCallback.holdCount(cb.nativeAddress()));
    }

    private WeakReference<SoCallback> addCallbackNode(SoSeparator root, SoCallbackCB cb) {
      SoCallback node = new SoCallback();
      node.setCallback(cb, null);
      root.addChild(node);
      return new WeakReference<>(node);
    }

    @Test
    void settingTheSameFunctionTwiceKeepsOneHold() {
      SoCallbackCB cb = new SoCallbackCB((action, data) -> {});
      SoCallback node = new SoCallback();
      node.setCallback(cb, null);
      node.setCallback(cb, null);
      assertEquals(1, NCallback.holdCount(cb.nativeAddress()));
      node.setCallback(null, null);
      assertEquals(0, NCallback.holdCount(cb.nativeAddress()));
    }
  }

  @Nested
  class Exceptions {
    @Test
    void anExceptionOfATriangleCallbackReachesTheCallerOfApply() {
      AtomicInteger calls = new AtomicInteger();
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.addTriangleCallback("Cube", new SoTriangleCB((a, v1, v2, v3, data) -> {
          calls.incrementAndGet();
          throw new IllegalStateException("triangle refused");
        }), null);
        IllegalStateException e = assertThrows(IllegalStateException.class, () -> action.apply(cubeScene(1, 1, 1)));
        assertEquals("triangle refused", e.getMessage());
        // Once it is pending, no further triangle reaches Java.
        assertEquals(1, calls.get());

        // The thread is clean again for the next traversal.
        action.clearCallbacks();
        AtomicInteger triangles = new AtomicInteger();
        action.addTriangleCallback("Cube", new SoTriangleCB((a, v1, v2, v3, data) -> triangles.incrementAndGet()), null);
        action.apply(cubeScene(1, 1, 1));
        assertEquals(12, triangles.get());
      }
    }

    @Test
    void anExceptionOfAPreCallbackStopsTheTraversal() {
      List<SoNode> visited = new ArrayList<>();
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.addPreCallback("Node", new SoCallbackActionCB((a, node, data) -> {
          visited.add(node);
          if (node instanceof SoTranslation) throw new UnsupportedOperationException("no translations");
          return SoCallbackAction.Response.CONTINUE;
        }), null);
        assertThrows(UnsupportedOperationException.class, () -> action.apply(cubeScene(1, 1, 1)));
      }
      assertEquals(2, visited.size(), "the separator and the translation, not the cube");
    }

    @Test
    void aNullResponseIsAnException() {
      try (SoCallbackAction action = new SoCallbackAction()) {
        action.addPreCallback("Cube", new SoCallbackActionCB((a, node, data) -> null), null);
        NullPointerException e = assertThrows(NullPointerException.class, () -> action.apply(cubeScene(1, 1, 1)));
        assertTrue(e.getMessage().contains("response"), e.getMessage());
      }
    }
  }
}
