package com.orvexa.orvex;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.actions.SoGLRenderAction;
import com.orvexa.orvex.nodes.SoLightModel;
import com.orvexa.orvex.nodes.SoMaterial;
import com.orvexa.orvex.nodes.SoPerspectiveCamera;
import com.orvexa.orvex.nodes.SoSeparator;
import com.orvexa.orvex.nodes.SoSphere;
import com.orvexa.orvex.nodes.SoTranslation;
import java.awt.image.BufferedImage;
import java.io.File;
import java.nio.file.Files;
import java.nio.file.Path;
import javax.imageio.ImageIO;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

/**
 * Offscreen rendering driven from Java, checked against the picture that
 * perspective projection predicts for an unlit red sphere: a camera at
 * distance d from a sphere of radius r sees its outline under the half-angle
 * asin(r / d); on a square viewport of S pixels with a vertical field of view
 * h that outline is a disc of radius tan(asin(r / d)) / tan(h / 2) * S / 2.
 */
class RenderFromJavaTest {
  private static final int SIZE = 200;
  private static final float DISTANCE = 5f;
  private static final float HEIGHT_ANGLE = (float) (Math.PI / 4);

  /** An unlit red sphere of that radius at (0, y, 0), seen from (0, 0, DISTANCE). */
  private static SoSeparator redSphere(float radius, float y) {
    SoSeparator root = new SoSeparator();
    SoPerspectiveCamera camera = new SoPerspectiveCamera();
    camera.position.setValue(0f, 0f, DISTANCE);
    camera.heightAngle.setValue(HEIGHT_ANGLE);
    camera.nearDistance.setValue(1f);
    camera.farDistance.setValue(20f);
    SoLightModel unlit = new SoLightModel();
    unlit.model.setValue(SoLightModel.Model.BASE_COLOR.getValue());
    SoMaterial red = new SoMaterial();
    red.diffuseColor.setValue(1f, 0f, 0f);
    SoTranslation move = new SoTranslation();
    move.translation.setValue(0f, y, 0f);
    SoSphere ball = new SoSphere();
    ball.radius.setValue(radius);
    root.addChild(camera);
    root.addChild(unlit);
    root.addChild(red);
    root.addChild(move);
    root.addChild(ball);
    return root;
  }

  private static double predictedDiscRadius(float radius) {
    double halfAngle = Math.asin(radius / DISTANCE);
    return Math.tan(halfAngle) / Math.tan(HEIGHT_ANGLE / 2) * SIZE / 2;
  }

  private static SbViewportRegion square() {
    return new SbViewportRegion((short) SIZE, (short) SIZE);
  }

  private static boolean isRed(int argb) {
    return (argb >> 16 & 0xff) > 128 && (argb >> 8 & 0xff) < 64 && (argb & 0xff) < 64;
  }

  @Test
  void sphereCoversThePredictedDisc() {
    try (SoOffscreenRenderer renderer = new SoOffscreenRenderer(square())) {
      assertTrue(renderer.render(redSphere(1f, 0f)));
      byte[] rgb = renderer.getBuffer();
      assertEquals(SIZE * SIZE * 3, rgb.length);
      assertEquals(rgb.length, renderer.getBufferSize());
      int covered = 0;
      for (int i = 0; i < rgb.length; i += 3) {
        if ((rgb[i] & 0xff) > 128 && (rgb[i + 1] & 0xff) < 64) covered++;
      }
      double predicted = Math.PI * Math.pow(predictedDiscRadius(1f), 2);
      assertEquals(predicted, covered, predicted * 0.02, "pixels of the sphere");
    }
  }

  @Test
  void bufferedImageHasTheTopRowFirst() {
    try (SoOffscreenRenderer renderer = new SoOffscreenRenderer(square())) {
      assertNull(renderer.toBufferedImage(), "nothing rendered yet");
      // A small sphere above the centre: in the upper half of the picture.
      assertTrue(renderer.render(redSphere(0.3f, 1f)));
      BufferedImage image = renderer.toBufferedImage();
      assertEquals(SIZE, image.getWidth());
      assertEquals(SIZE, image.getHeight());
      long sumY = 0;
      int count = 0;
      for (int y = 0; y < SIZE; y++) {
        for (int x = 0; x < SIZE; x++) {
          if (isRed(image.getRGB(x, y))) {
            sumY += y;
            count++;
          }
        }
      }
      assertTrue(count > 0);
      // The centre of the sphere projects to 1 / (d tan(h / 2)) of the half-height above the middle.
      double expectedRow = SIZE / 2.0 - 1.0 / (DISTANCE * Math.tan(HEIGHT_ANGLE / 2)) * SIZE / 2;
      assertEquals(expectedRow, (double) sumY / count, 2.0, "row of the sphere's centre");
    }
  }

  @Test
  void alphaIsZeroWhereNothingIsDrawn() {
    try (SoOffscreenRenderer renderer = new SoOffscreenRenderer(square())) {
      renderer.setComponents(SoOffscreenRenderer.Components.RGBTRANSPARENCY);
      renderer.setBackgroundColor(new SbColor(0f, 0f, 1f));
      assertTrue(renderer.render(redSphere(1f, 0f)));
      BufferedImage image = renderer.toBufferedImage();
      assertEquals(BufferedImage.TYPE_INT_ARGB, image.getType());
      int corner = image.getRGB(0, 0);
      assertEquals(0, corner >>> 24, "alpha of the background");
      int centre = image.getRGB(SIZE / 2, SIZE / 2);
      assertEquals(0xff, centre >>> 24, "alpha of the sphere");
      assertTrue(isRed(centre));
    }
  }

  @Test
  void pngFileMatchesTheBuffer(@TempDir Path dir) throws Exception {
    try (SoOffscreenRenderer renderer = new SoOffscreenRenderer(square())) {
      assertTrue(renderer.render(redSphere(1f, 0.5f)));
      File file = dir.resolve("sphere.png").toFile();
      assertTrue(renderer.writeToPNG(file.getPath()));
      BufferedImage fromFile = ImageIO.read(file);
      BufferedImage fromBuffer = renderer.toBufferedImage();
      assertEquals(SIZE, fromFile.getWidth());
      for (int y = 0; y < SIZE; y += 7) {
        for (int x = 0; x < SIZE; x += 7) {
          assertEquals(fromBuffer.getRGB(x, y) & 0xffffff, fromFile.getRGB(x, y) & 0xffffff, "pixel " + x + "," + y);
        }
      }
      assertTrue(renderer.writeToJPEG(dir.resolve("sphere.jpg").toString()));
      assertTrue(Files.size(dir.resolve("sphere.jpg")) > 0);
    }
  }

  @Test
  void aGivenActionOutlivesItsDisposeWhileTheRendererUsesIt() {
    SoGLRenderAction action = new SoGLRenderAction(square());
    SoOffscreenRenderer renderer = new SoOffscreenRenderer(action);
    assertSame(action, renderer.getGLRenderAction());
    // Disposing of the action while the renderer holds it frees nothing.
    action.dispose();
    assertThrows(IllegalStateException.class, action::getTransparencyType);
    assertTrue(renderer.render(redSphere(1f, 0f)));
    // Back to the renderer's own action; the given one is let go.
    renderer.setGLRenderAction(null);
    assertTrue(renderer.render(redSphere(1f, 0f)));
    renderer.dispose();
    assertThrows(IllegalStateException.class, () -> renderer.render(redSphere(1f, 0f)));
    assertThrows(NullPointerException.class, () -> new SoOffscreenRenderer((SoGLRenderAction) null));
  }
}
