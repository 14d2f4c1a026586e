package com.orvexa.examples;

import com.orvexa.orvex.Orvex;
import com.orvexa.orvex.SbBox3f;
import com.orvexa.orvex.SbColor;
import com.orvexa.orvex.SbVec3f;
import com.orvexa.orvex.SbViewportRegion;
import com.orvexa.orvex.SoDB;
import com.orvexa.orvex.SoInput;
import com.orvexa.orvex.SoOffscreenRenderer;
import com.orvexa.orvex.SoOutput;
import com.orvexa.orvex.SoPickedPoint;
import com.orvexa.orvex.actions.SoGetBoundingBoxAction;
import com.orvexa.orvex.actions.SoRayPickAction;
import com.orvexa.orvex.actions.SoWriteAction;
import com.orvexa.orvex.nodes.SoDirectionalLight;
import com.orvexa.orvex.nodes.SoMaterial;
import com.orvexa.orvex.nodes.SoNode;
import com.orvexa.orvex.nodes.SoPerspectiveCamera;
import com.orvexa.orvex.nodes.SoSeparator;
import com.orvexa.orvex.nodes.SoSphere;
import com.orvexa.orvex.nodes.SoTranslation;
import java.util.Arrays;

/**
 * Starts the binding and shows what a user sees: the start-up of the toolkit
 * modules (traced when run with -Dorvex.native.debug=true), the toolkit
 * version, a scene built and read from Java, bounded, picked, written
 * back out and rendered to a PNG file without a display, and scenes
 * loaded on a native loader thread, whose read errors arrive in Java.
 */
public final class Demo {
  private static final String GOOD_SCENE = String.join("\n",
      "#Orvex V1.0 ascii",
      "Separator {",
      "  PerspectiveCamera { position 0 0 10 }",
      "  DirectionalLight {}",
      "  Material { diffuseColor 0.8 0.2 0.2 }",
      "  DEF Ball Sphere { radius 1.5 }",
      "  Translation { translation 4 0 0 }",
      "  Cube { width 2 }",
      "  Translation { translation 4 0 0 }",
      "  USE Ball",
      "}",
      "");

  private static final String BAD_SCENE = String.join("\n",
      "#Orvex V1.0 ascii",
      "Separator {",
      "  Cube { width 2 }",
      "  Sphere { radius -- }",
      "}",
      "");

  private Demo() {}

  public static void main(String[] args) {
    System.out.println("Starting the Orvex binding...");
    Orvex.init();  // loads liborvexjava and initialises the toolkit modules
    System.out.println("Orvex toolkit version " + SoDB.getVersion());

    Orvex.setErrorListener(message -> System.out.printf("Toolkit error received on thread \"%s\":%n  %s%n",
        Thread.currentThread().getName(), message.replace("\n", "\n  ")));

    sceneGraphFromJava();

    System.out.println("Loading a scene on a native thread...");
    System.out.println("  " + describe(DemoNatives.loadSceneOnNativeThread(GOOD_SCENE)));
    System.out.println("Loading a broken scene on a native thread...");
    System.out.println("  " + describe(DemoNatives.loadSceneOnNativeThread(BAD_SCENE)));
    System.out.println("Done.");
  }

  /** Builds a scene in Java, adds a scene read from text, then bounds and picks it. */
  private static void sceneGraphFromJava() {
    SoSeparator root = new SoSeparator();
    SoMaterial red = new SoMaterial();
    red.diffuseColor.setValue(1f, 0f, 0f);
    SoSphere ball = new SoSphere();
    ball.radius.setValue(2f);
    ball.setName("ball");
    root.addChild(red);
    root.addChild(ball);

    SoInput in = new SoInput();
    in.setBuffer(String.join("\n", "#Orvex V1.0 ascii", "Separator {", "  Translation { translation 6 0 0 }",
        "  Cube { width 4 }", "}", ""));
    SoSeparator read = SoDB.readAll(in);
    SoTranslation left = new SoTranslation();
    left.translation.setValue(-3f, 0f, 0f);
    root.addChild(left);
    root.addChild(read);
    System.out.println("Built a scene in Java with " + root.getNumChildren() + " children (one read from text)");

    SbViewportRegion viewport = new SbViewportRegion((short) 640, (short) 480);
    SoGetBoundingBoxAction bbox = new SoGetBoundingBoxAction(viewport);
    bbox.apply(root);
    SbBox3f box = bbox.getBoundingBox();
    System.out.println("  bounding box min " + Arrays.toString(box.getMin().array) + " max "
        + Arrays.toString(box.getMax().array));

    SoRayPickAction pick = new SoRayPickAction(viewport);
    pick.setRay(new SbVec3f(0, 0, 10), new SbVec3f(0, 0, -1));
    pick.apply(root);
    SoPickedPoint hit = pick.getPickedPoint();
    if (hit == null) {
      System.out.println("  the ray down the z axis hit nothing");
    } else {
      SoNode tail = hit.getPath().getTail();
      System.out.println("  the ray down the z axis hit " + tail.getClass().getSimpleName() + " \""
          + tail.getName() + "\" at " + Arrays.toString(hit.getPoint().array)
          + (tail == ball ? " (the same Java object that was added)" : ""));
    }

    String file = System.getProperty("java.io.tmpdir") + java.io.File.separator + "orvex-demo-scene.ovx";
    try (SoOutput out = new SoOutput(); SoWriteAction write = new SoWriteAction(out)) {
      if (out.openFile(file)) {
        write.apply(root);
        out.closeFile();
        System.out.println("  the scene was written back out to " + file
            + (out.hasWriteError() ? " (with a write error)" : ""));
      }
    }
    renderToPng(root, viewport);
  }

  /** Draws the scene offscreen, seen whole by a camera with a light, and writes the picture to a PNG file. */
  private static void renderToPng(SoNode scene, SbViewportRegion viewport) {
    SoSeparator view = new SoSeparator();
    SoPerspectiveCamera camera = new SoPerspectiveCamera();
    view.addChild(camera);
    view.addChild(new SoDirectionalLight());
    view.addChild(scene);
    camera.viewAll(scene, viewport);
    String png = System.getProperty("java.io.tmpdir") + java.io.File.separator + "orvex-demo-scene.png";
    try (SoOffscreenRenderer renderer = new SoOffscreenRenderer(viewport)) {
      renderer.setBackgroundColor(new SbColor(0.1f, 0.1f, 0.2f));
      if (renderer.render(view) && renderer.writeToPNG(png)) {
        System.out.println("  the scene was rendered offscreen (640x480) to " + png);
      } else {
        System.out.println("  the scene could not be rendered: no OpenGL offscreen context on this machine");
      }
    }
  }

  private static String describe(String result) {
    return result == null ? "read failed (see the error above)" : "read: " + result;
  }
}
