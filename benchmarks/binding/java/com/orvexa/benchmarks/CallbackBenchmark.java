package com.orvexa.benchmarks;

import com.orvexa.orvex.actions.SoCallbackAction;
import com.orvexa.orvex.misc.callbacks.SoCallbackCB;
import com.orvexa.orvex.misc.callbacks.SoTriangleCB;
import com.orvexa.orvex.nodes.SoCallback;
import com.orvexa.orvex.nodes.SoCube;
import com.orvexa.orvex.nodes.SoSeparator;
import com.orvexa.orvex.nodes.SoTranslation;
import java.util.Locale;

/**
 * Java callbacks against floors measured in the same run: triangles per
 * second delivered to a Java triangle callback against a C++ triangle
 * callback over the same scene, and one call through the binding's
 * trampoline against a bare CallVoidMethod with a cached method identifier.
 * Prints figures and ratios; it checks nothing.
 *
 * <p>Usage: CallbackBenchmark [rounds]
 */
public final class CallbackBenchmark {
  private static final int CUBES = 5_000;
  private static final int UPCALLS = 500_000;
  private static long sink;

  private interface Body {
    void run();
  }

  private static double bestMs(Body body, int rounds) {
    body.run();  // warm up
    double best = Double.MAX_VALUE;
    for (int r = 0; r < rounds; r++) {
      long t0 = System.nanoTime();
      body.run();
      best = Math.min(best, (System.nanoTime() - t0) / 1e6);
    }
    return best;
  }

  /** Receiver of the floor's cached calls. */
  private static final class Target {
    @SuppressWarnings("unused")
    void hit(Object ignored) {
      sink++;
    }
  }

  public static void main(String[] args) {
    int rounds = args.length > 0 ? Integer.parseInt(args[0]) : 5;

    SoSeparator root = new SoSeparator();
    for (int i = 0; i < CUBES; i++) {
      SoTranslation step = new SoTranslation();
      step.translation.setValue(1f, 0f, 0f);
      root.addChild(step);
      root.addChild(new SoCube());
    }
    long rootAddress = root.getNativeResourceHandleInternal();
    long[] javaTriangles = new long[1];
    SoCallbackAction action = new SoCallbackAction();
    action.addTriangleCallback("Shape", new SoTriangleCB((a, v1, v2, v3, data) -> javaTriangles[0]++), null);
    double javaMs = bestMs(() -> {
      javaTriangles[0] = 0;
      action.apply(root);
    }, rounds);
    long[] cppTriangles = new long[1];
    double cppMs = bestMs(() -> cppTriangles[0] = CallbackFloor.countTrianglesInCpp(rootAddress), rounds);

    SoCallback node = new SoCallback();
    node.setCallback(new SoCallbackCB((a, data) -> sink++), null);
    long nodeAddress = node.getNativeResourceHandleInternal();
    double trampolineNs = bestMs(() -> CallbackFloor.callNodeFunction(nodeAddress, UPCALLS), rounds) * 1e6 / UPCALLS;
    Target target = new Target();
    double cachedNs = bestMs(() -> CallbackFloor.callCached(target, UPCALLS), rounds) * 1e6 / UPCALLS;

    System.out.printf(Locale.ROOT, "best of %d rounds%n", rounds);
    System.out.printf(Locale.ROOT, "triangles per traversal: Java %d, C++ %d%n", javaTriangles[0], cppTriangles[0]);
    System.out.printf(Locale.ROOT, "%-44s %12s %12s %8s%n", "", "binding", "floor", "ratio");
    System.out.printf(Locale.ROOT, "%-44s %12.0f %12.0f %8.1f%n", "triangles per second (Java vs C++ callback)",
        javaTriangles[0] / (javaMs / 1e3), cppTriangles[0] / (cppMs / 1e3), javaMs / cppMs);
    System.out.printf(Locale.ROOT, "%-44s %12.1f %12.1f %8.1f%n", "ns per upcall (trampoline vs cached call)",
        trampolineNs, cachedNs, trampolineNs / cachedNs);
    action.dispose();
  }
}
