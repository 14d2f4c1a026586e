package com.orvexa.benchmarks;

import com.orvexa.orvex.SbMatrix;
import com.orvexa.orvex.SbRotation;
import com.orvexa.orvex.SbVec3f;
import com.orvexa.orvex.UncheckedCalls;
import java.util.Locale;

/**
 * Cost of generated value-type entry points against baselines measured in
 * the same run: an empty JNI call, the same operation written in plain Java,
 * and the same native entry point called without the public method's
 * argument checks. Prints nanoseconds per call and ratios; it checks nothing.
 *
 * <p>Usage: EntryPointBenchmark [calls per round] [rounds]
 */
public final class EntryPointBenchmark {
  private static float sink;

  private interface Body {
    void run(int n);
  }

  private static double nsPerCall(Body body, int calls, int rounds) {
    body.run(calls / 10);  // warm up: let the JIT compile the loop
    double best = Double.MAX_VALUE;
    for (int r = 0; r < rounds; r++) {
      long t0 = System.nanoTime();
      body.run(calls);
      long t1 = System.nanoTime();
      best = Math.min(best, (t1 - t0) / (double) calls);
    }
    return best;
  }

  /**
   * Best ns/call of two bodies measured in alternating rounds, so that a
   * change in the machine's load between them does not pass for a cost.
   */
  private static double[] nsPerCallAlternating(Body a, Body b, int calls, int rounds) {
    a.run(calls / 10);
    b.run(calls / 10);
    double bestA = Double.MAX_VALUE;
    double bestB = Double.MAX_VALUE;
    for (int r = 0; r < rounds; r++) {
      long t0 = System.nanoTime();
      a.run(calls);
      long t1 = System.nanoTime();
      b.run(calls);
      long t2 = System.nanoTime();
      bestA = Math.min(bestA, (t1 - t0) / (double) calls);
      bestB = Math.min(bestB, (t2 - t1) / (double) calls);
    }
    return new double[] {bestA, bestB};
  }

  private static void plainAdd(float[] a, float[] b) {
    a[0] += b[0];
    a[1] += b[1];
    a[2] += b[2];
  }

  private static void plainMultVecMatrix(float[] m, float[] src, float[] dst) {
    float x = src[0], y = src[1], z = src[2];
    float w = x * m[3] + y * m[7] + z * m[11] + m[15];
    dst[0] = (x * m[0] + y * m[4] + z * m[8] + m[12]) / w;
    dst[1] = (x * m[1] + y * m[5] + z * m[9] + m[13]) / w;
    dst[2] = (x * m[2] + y * m[6] + z * m[10] + m[14]) / w;
  }

  private static void plainRotate(float[] q, float[] src, float[] dst) {
    float qx = q[0], qy = q[1], qz = q[2], qw = q[3];
    float x = src[0], y = src[1], z = src[2];
    // t = 2 (q x v); v' = v + w t + q x t
    float tx = 2 * (qy * z - qz * y), ty = 2 * (qz * x - qx * z), tz = 2 * (qx * y - qy * x);
    dst[0] = x + qw * tx + (qy * tz - qz * ty);
    dst[1] = y + qw * ty + (qz * tx - qx * tz);
    dst[2] = z + qw * tz + (qx * ty - qy * tx);
  }

  public static void main(String[] args) {
    int calls = args.length > 0 ? Integer.parseInt(args[0]) : 2_000_000;
    int rounds = args.length > 1 ? Integer.parseInt(args[1]) : 5;

    SbVec3f a = new SbVec3f(1, 2, 3);
    SbVec3f b = new SbVec3f(1e-7f, 2e-7f, 3e-7f);
    SbVec3f dst = new SbVec3f();
    SbMatrix m = new SbMatrix();
    m.setTranslate(new SbVec3f(1, 2, 3));
    SbRotation r = new SbRotation(new SbVec3f(0, 0, 1), 0.3f);
    float[] pa = a.array.clone();
    float[] pd = new float[3];

    double empty2 = nsPerCall(n -> { for (int i = 0; i < n; i++) JniFloor.empty(a.array, b.array); }, calls, rounds);
    double pin2 = nsPerCall(n -> { for (int i = 0; i < n; i++) JniFloor.pinTwo(a.array, b.array); }, calls, rounds);
    double pin3 = nsPerCall(n -> {
      for (int i = 0; i < n; i++) JniFloor.pinThree(m.array, b.array, dst.array);
    }, calls, rounds);

    double genAdd = nsPerCall(n -> { for (int i = 0; i < n; i++) a.add(b); }, calls, rounds);
    double javaAdd = nsPerCall(n -> { for (int i = 0; i < n; i++) plainAdd(pa, b.array); }, calls, rounds);
    double genMat = nsPerCall(n -> { for (int i = 0; i < n; i++) m.multVecMatrix(b, dst); }, calls, rounds);
    double javaMat = nsPerCall(n -> {
      for (int i = 0; i < n; i++) plainMultVecMatrix(m.array, b.array, pd);
    }, calls, rounds);
    double genRot = nsPerCall(n -> { for (int i = 0; i < n; i++) r.multVec(b, dst); }, calls, rounds);
    double javaRot = nsPerCall(n -> { for (int i = 0; i < n; i++) plainRotate(r.array, b.array, pd); }, calls, rounds);
    double[] add = nsPerCallAlternating(n -> { for (int i = 0; i < n; i++) a.add(b); },
        n -> { for (int i = 0; i < n; i++) UncheckedCalls.add(a, b); }, calls, rounds);
    double[] mat = nsPerCallAlternating(n -> { for (int i = 0; i < n; i++) m.multVecMatrix(b, dst); },
        n -> { for (int i = 0; i < n; i++) UncheckedCalls.multVecMatrix(m, b, dst); }, calls, rounds);
    double[] rot = nsPerCallAlternating(n -> { for (int i = 0; i < n; i++) r.multVec(b, dst); },
        n -> { for (int i = 0; i < n; i++) UncheckedCalls.multVec(r, b, dst); }, calls, rounds);
    sink += a.array[0] + pa[0] + dst.array[0] + pd[0];

    System.out.printf(Locale.ROOT, "calls per round %d, best of %d rounds, ns/call%n", calls, rounds);
    System.out.printf(Locale.ROOT, "%-34s %9.1f%n", "empty JNI call (2 arrays)", empty2);
    System.out.printf(Locale.ROOT, "%-34s %9.1f%n", "JNI call pinning 2 arrays", pin2);
    System.out.printf(Locale.ROOT, "%-34s %9.1f%n", "JNI call pinning 3 arrays", pin3);
    System.out.printf(Locale.ROOT, "%-34s %9s %9s %10s %10s %10s %9s%n", "operation", "generated", "plain Java",
        "gen/empty", "gen/pinned", "gen/Java", "aim");
    row("SbVec3f.add", genAdd, javaAdd, empty2, pin2);
    row("SbMatrix.multVecMatrix", genMat, javaMat, empty2, pin3);
    row("SbRotation.multVec", genRot, javaRot, empty2, pin3);
    System.out.printf(Locale.ROOT, "(gen/pinned: the generated entry point against a JNI call that only borrows "
        + "the same arrays; %s)%n", sink != 0 ? "results kept" : "");
    System.out.printf(Locale.ROOT, "%-34s %9s %9s %10s %9s%n", "argument checks (alternating rounds)", "checked", "unchecked",
        "checked/un", "aim");
    checks("SbVec3f.add", add[0], add[1]);
    checks("SbMatrix.multVecMatrix", mat[0], mat[1]);
    checks("SbRotation.multVec", rot[0], rot[1]);
  }

  // Aim: the public method's checks add at most 10% to the bare entry point.
  private static void checks(String name, double checked, double unchecked) {
    System.out.printf(Locale.ROOT, "%-34s %9.1f %9.1f %10.3f %9s%n", name, checked, unchecked, checked / unchecked,
        checked <= 1.1 * unchecked ? "<=1.10" : ">1.10");
  }

  // Aim: at most twice the JNI floor plus the array copies, i.e. 2 empty + (pinned - empty).
  private static void row(String name, double gen, double java, double empty, double pinned) {
    double aim = empty + pinned;
    System.out.printf(Locale.ROOT, "%-34s %9.1f %9.1f %10.2f %10.2f %10.1f %9s%n", name, gen, java, gen / empty,
        gen / pinned, gen / java, String.format(Locale.ROOT, "%s%.0f", gen <= aim ? "<=" : ">", aim));
  }
}
