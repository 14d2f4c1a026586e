package com.orvexa.orvex.misc.callbacks;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.SbViewportRegion;
import com.orvexa.orvex.SoOffscreenRenderer;
import com.orvexa.orvex.actions.SoGLRenderAction;
import com.orvexa.orvex.actions.SoGLRenderAction.AbortCode;
import com.orvexa.orvex.nodes.SoCube;
import com.orvexa.orvex.nodes.SoLightModel;
import com.orvexa.orvex.nodes.SoMaterial;
import com.orvexa.orvex.nodes.SoOrthographicCamera;
import com.orvexa.orvex.nodes.SoSeparator;
import java.util.concurrent.atomic.AtomicInteger;
import org.junit.jupiter.api.Test;

/** The pass and abort callbacks of the render action, from Java. */
class RenderCallbacksTest {
  private static final int SIZE = 32;

  /** An unlit red cube filling the middle half of the picture, seen face-on. */
  static SoSeparator redCube() {
    SoSeparator root = new SoSeparator();
    SoOrthographicCamera camera = new SoOrthographicCamera();
    camera.position.setValue(0f, 0f, 5f);
    camera.height.setValue(4f);
    SoLightModel unlit = new SoLightModel();
    unlit.model.setValue(SoLightModel.Model.BASE_COLOR.getValue());
    SoMaterial red = new SoMaterial();
    red.diffuseColor.setValue(1f, 0f, 0f);
    root.addChild(camera);
    root.addChild(unlit);
    root.addChild(red);
    root.addChild(new SoCube());
    return root;
  }

  /** Whether the middle pixel of an RGB picture of SIZE x SIZE is red. */
  static boolean middleIsRed(byte[] rgb) {
    int at = ((SIZE / 2) * SIZE + SIZE / 2) * 3;
    return (rgb[at] & 0xff) > 200 && (rgb[at + 1] & 0xff) < 50 && (rgb[at + 2] & 0xff) < 50;
  }

  static SbViewportRegion viewport() {
    return new SbViewportRegion((short) SIZE, (short) SIZE);
  }

  @Test
  void theAbortCallbackIsAskedForEachNodeAndItsAnswerIsObeyed() {
    SoSeparator scene = redCube();
    SoGLRenderAction action = new SoGLRenderAction(viewport());
    AtomicInteger asked = new AtomicInteger();
    AbortCode[] answer = {AbortCode.CONTINUE};
    Object data = new Object();
    Object[] seenData = new Object[1];
    action.setAbortCallback(new SoGLRenderAbortCB(userData -> {
      seenData[0] = userData;
      asked.incrementAndGet();
      return answer[0];
    }), data);
    try (SoOffscreenRenderer renderer = new SoOffscreenRenderer(action)) {
      assertTrue(renderer.render(scene));
      assertTrue(middleIsRed(renderer.getBuffer()));
      // The separator and its four children.
      assertEquals(5, asked.get());
      assertSame(data, seenData[0]);

      asked.set(0);
      answer[0] = AbortCode.ABORT;
      renderer.render(scene);
      assertFalse(middleIsRed(renderer.getBuffer()), "an aborted render draws nothing");
      assertEquals(1, asked.get(), "the first answer stops the traversal");

      asked.set(0);
      answer[0] = AbortCode.PRUNE;
      renderer.render(scene);
      assertFalse(middleIsRed(renderer.getBuffer()), "the pruned root draws nothing");
      assertEquals(1, asked.get(), "a pruned node's children are not visited");

      action.setAbortCallback(null, null);
      asked.set(0);
      renderer.render(scene);
      assertTrue(middleIsRed(renderer.getBuffer()));
      assertEquals(0, asked.get(), "removed");
    }
  }

  @Test
  void thePassCallbackRunsBeforeEveryPassAfterTheFirst() {
    SoSeparator scene = redCube();
    SoGLRenderAction action = new SoGLRenderAction(viewport());
    action.setNumPasses(3);
    AtomicInteger passes = new AtomicInteger();
    action.setPassCallback(new SoGLRenderPassCB(userData -> passes.incrementAndGet()), null);
    try (SoOffscreenRenderer renderer = new SoOffscreenRenderer(action)) {
      renderer.render(scene);
      assertEquals(2, passes.get());
      renderer.render(scene);
      assertEquals(4, passes.get());
    }
  }

  @Test
  void anExceptionOfTheAbortCallbackStopsTheRenderAndReachesTheCaller() {
    SoGLRenderAction action = new SoGLRenderAction(viewport());
    AtomicInteger asked = new AtomicInteger();
    action.setAbortCallback(new SoGLRenderAbortCB(userData -> {
      asked.incrementAndGet();
      throw new IllegalStateException("no more");
    }), null);
    try (SoOffscreenRenderer renderer = new SoOffscreenRenderer(action)) {
      IllegalStateException e = assertThrows(IllegalStateException.class, () -> renderer.render(redCube()));
      assertEquals("no more", e.getMessage());
      assertEquals(1, asked.get());
    }
    // A null answer is a Java mistake, reported the same way.
    SoGLRenderAction silent = new SoGLRenderAction(viewport());
    silent.setAbortCallback(new SoGLRenderAbortCB(userData -> null), null);
    try (SoOffscreenRenderer renderer = new SoOffscreenRenderer(silent)) {
      assertThrows(NullPointerException.class, () -> renderer.render(redCube()));
    }
  }

  @Test
  void misuseIsAJavaException() {
    assertThrows(NullPointerException.class, () -> new SoGLRenderPassCB(null));
    assertThrows(NullPointerException.class, () -> new SoGLRenderAbortCB(null));
    SoGLRenderAction action = new SoGLRenderAction(viewport());
    action.dispose();
    assertThrows(IllegalStateException.class,
        () -> action.setPassCallback(new SoGLRenderPassCB(userData -> {}), null));
  }
}
