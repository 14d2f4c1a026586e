package com.orvexa.benchmarks;

import com.orvexa.orvex.fields.SoMFFloat;
import com.orvexa.orvex.fields.SoMFVec3f;
import com.orvexa.orvex.nodes.SoCube;
import com.orvexa.orvex.nodes.SoSeparator;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.FloatBuffer;
import java.util.Locale;

/**
 * The scene graph from Java against floors measured in the same run: bulk
 * field values against one JNI region copy, single calls against an empty
 * JNI call, and building nodes against the same from C++. Prints figures and
 * ratios; it checks nothing.
 *
 * <p>Usage: SceneGraphBenchmark [rounds]
 */
public final class SceneGraphBenchmark {
  private static final int VALUES = 1_000_000;
  private static final int CALLS = 2_000_000;
  private static final int NODES = 100_000;
  private static final int BUFFER_CALLS = 20_000;
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

  public static void main(String[] args) {
    int rounds = args.length > 0 ? Integer.parseInt(args[0]) : 5;
    float[] xyz = new float[3 * VALUES];
    for (int i = 0; i < xyz.length; i++) xyz[i] = i;
    float[] floats = new float[VALUES];
    SoMFVec3f points = new SoMFVec3f();
    SoMFFloat values = new SoMFFloat();
    values.setValues(0, VALUES, floats);

    double setVec = bestMs(() -> points.setValues(0, VALUES, xyz), rounds);
    double floorIn3 = bestMs(() -> SceneGraphFloor.regionIn(xyz), rounds);
    double getVec = bestMs(() -> sink += points.getValuesFlat(0).length, rounds);
    double floorOut3 = bestMs(() -> sink += SceneGraphFloor.regionOut().length, rounds);
    double getFloat = bestMs(() -> sink += values.getValues(0).length, rounds);
    SceneGraphFloor.regionIn(floats);
    double floorOut = bestMs(() -> sink += SceneGraphFloor.regionOut().length, rounds);

    // Direct buffers: the field's storage in place, so a call costs the same
    // whatever the number of values.
    double[] editNs = new double[2];
    double[] lendNs = new double[2];
    int[] sizes = {1_000, VALUES};
    for (int k = 0; k < sizes.length; k++) {
      SoMFVec3f field = new SoMFVec3f();
      field.setValues(0, sizes[k], xyz);
      field.startEditing();  // the values move into Java memory once
      field.finishEditing();
      editNs[k] = bestMs(() -> {
        for (int i = 0; i < BUFFER_CALLS; i++) {
          FloatBuffer view = field.startEditing();
          view.put(0, i);
          field.finishEditing();
        }
      }, rounds) * 1e6 / BUFFER_CALLS;
      FloatBuffer storage = ByteBuffer.allocateDirect(12 * sizes[k]).order(ByteOrder.nativeOrder()).asFloatBuffer();
      lendNs[k] = bestMs(() -> {
        for (int i = 0; i < BUFFER_CALLS; i++) field.setValuesBuffer(storage);
      }, rounds) * 1e6 / BUFFER_CALLS;
    }

    SoCube cube = new SoCube();
    SoSeparator group = new SoSeparator();
    group.addChild(cube);
    float[] none = new float[0];
    double getValueNs = bestMs(() -> {
      for (int i = 0; i < CALLS; i++) sink += (long) cube.width.getValue();
    }, rounds) * 1e6 / CALLS;
    double getChildNs = bestMs(() -> {
      for (int i = 0; i < CALLS; i++) sink += group.getChild(0) == cube ? 1 : 0;
    }, rounds) * 1e6 / CALLS;
    double emptyNs = bestMs(() -> {
      for (int i = 0; i < CALLS; i++) JniFloor.empty(none, none);
    }, rounds) * 1e6 / CALLS;

    double buildJava = bestMs(() -> {
      SoSeparator root = new SoSeparator();
      for (int i = 0; i < NODES; i++) {
        SoCube c = new SoCube();
        c.width.setValue(i);
        root.addChild(c);
      }
      sink += root.getNumChildren();
      root.dispose();
    }, rounds);
    double buildCpp = bestMs(() -> sink += SceneGraphFloor.buildCubes(NODES), rounds);

    System.out.printf(Locale.ROOT, "best of %d rounds%n", rounds);
    System.out.printf(Locale.ROOT, "%-46s %10s %10s %8s%n", "bulk values (1,000,000)", "binding ms", "floor ms",
        "ratio");
    System.out.printf(Locale.ROOT, "%-46s %10.2f %10.2f %8.2f%n", "SoMFVec3f.setValues(float[3M]) / region in",
        setVec, floorIn3, setVec / floorIn3);
    System.out.printf(Locale.ROOT, "%-46s %10.2f %10.2f %8.2f%n", "SoMFVec3f.getValuesFlat(0) / region out", getVec,
        floorOut3, getVec / floorOut3);
    System.out.printf(Locale.ROOT, "%-46s %10.2f %10.2f %8.2f%n", "SoMFFloat.getValues(0) / region out", getFloat,
        floorOut, getFloat / floorOut);
    System.out.printf(Locale.ROOT, "%-46s %10s %10s %8s%n", "direct buffers, per call", "1,000 ns", "1M ns",
        "ratio");
    System.out.printf(Locale.ROOT, "%-46s %10.1f %10.1f %8.2f%n", "SoMFVec3f.startEditing + put + finishEditing",
        editNs[0], editNs[1], editNs[1] / editNs[0]);
    System.out.printf(Locale.ROOT, "%-46s %10.1f %10.1f %8.2f%n", "SoMFVec3f.setValuesBuffer", lendNs[0], lendNs[1],
        lendNs[1] / lendNs[0]);
    System.out.printf(Locale.ROOT, "%-46s %10s %10s %8s%n", "single calls", "binding ns", "floor ns", "ratio");
    System.out.printf(Locale.ROOT, "%-46s %10.1f %10.1f %8.2f%n", "SoSFFloat.getValue() / empty JNI call",
        getValueNs, emptyNs, getValueNs / emptyNs);
    System.out.printf(Locale.ROOT, "%-46s %10.1f %10.1f %8.2f%n", "SoGroup.getChild(0) / empty JNI call",
        getChildNs, emptyNs, getChildNs / emptyNs);
    System.out.printf(Locale.ROOT, "%-46s %10s %10s %8s%n", "building 100,000 cubes with width set", "Java ms",
        "C++ ms", "ratio");
    System.out.printf(Locale.ROOT, "%-46s %10.1f %10.1f %8.2f%n", "", buildJava, buildCpp, buildJava / buildCpp);
    System.out.println(sink != 0 ? "(results kept)" : "");
  }
}
