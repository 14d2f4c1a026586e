package com.orvexa.orvex.misc.callbacks;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.SoOffscreenRenderer;
import com.orvexa.orvex.actions.SoGLRenderAction;
import com.orvexa.orvex.actions.SoGLRenderAction.AbortCode;
import com.orvexa.orvex.nodes.SoSeparator;
import java.lang.ref.WeakReference;
import java.util.concurrent.atomic.AtomicInteger;
import org.junit.jupiter.api.Test;

/** The callbacks of a render action outlive its wrapper while a renderer holds the action. */
class CollectedActionCallbacksTest {
  @Test
  void aRendererKeepsTheCallbacksOfAnActionWhoseWrapperIsGone() throws Exception {
    AtomicInteger asked = new AtomicInteger();
    SoOffscreenRenderer renderer = newRendererWithCountingAction(asked);
    SoSeparator scene = RenderCallbacksTest.redCube();
    WeakReference<SoGLRenderAction> gone = new WeakReference<>(renderer.getGLRenderAction());
    for (int i = 0; i < 50 && gone.get() != null; i++) {
      System.gc();
      Thread.sleep(10);
    }
    assertEquals(null, gone.get(), "the action's wrapper was collected");
    for (int i = 0; i < 5; i++) {
      System.gc();
      Thread.sleep(5);
    }
    renderer.render(scene);
    assertEquals(5, asked.get(), "the callback of the held action still runs");
    assertTrue(RenderCallbacksTest.middleIsRed(renderer.getBuffer()));
    renderer.dispose();
  }

  private static SoOffscreenRenderer newRendererWithCountingAction(AtomicInteger asked) {
    SoGLRenderAction action = new SoGLRenderAction(RenderCallbacksTest.viewport());
    action.setAbortCallback(new SoGLRenderAbortCB(userData -> {
      asked.incrementAndGet();
      return AbortCode.CONTINUE;
    }), null);
    return new SoOffscreenRenderer(action);
  }
}
