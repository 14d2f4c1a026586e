package com.orvexa.orvex;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.errors.SoDebugError;
import com.orvexa.orvex.errors.SoError;
import java.io.File;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicBoolean;
import java.util.concurrent.atomic.AtomicReference;
import java.util.function.Supplier;
import java.util.stream.Stream;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;

/**
 * Ordinary mistakes of a Java caller, each tried in a child virtual machine
 * of its own (with the JNI checker on), so that a crash fails one case and
 * leaves its evidence: the child must end normally, print the outcome the
 * case expects, leave no fatal-error log and draw no checker warning.
 */
class MisuseTest {
  /** One misuse: what it does, and the outcome line it must print. */
  record Case(String name, String expected) {
    @Override
    public String toString() {
      return name;
    }
  }

  static Stream<Case> cases() {
    return Stream.of(
        new Case("vec3fGetValueNulls", "NullPointerException: x must not be null"),
        new Case("matrixFromNullArray", "NullPointerException: m must not be null"),
        new Case("matrixGetValueShortArray", "IllegalArgumentException: m needs 16 elements, not 1"),
        new Case("matrixSetValueShortArray", "IllegalArgumentException: m needs 16 elements, not 1"),
        new Case("colorHsvShortArray", "IllegalArgumentException: hsv needs 3 elements, not 1"),
        new Case("valueSubclassOnShortStorage", "IllegalArgumentException: storage needs 3 elements, not 1"),
        new Case("timeAddNull", "NullPointerException: t must not be null"),
        new Case("timePlusNull", "NullPointerException: b must not be null"),
        new Case("timeGetValueNulls", "NullPointerException: sec must not be null"),
        new Case("disposedViewportRegion", "IllegalStateException"),
        new Case("disposedArgument", "IllegalStateException"),
        new Case("errorKeptAfterHandler", "IllegalStateException"),
        new Case("matrixMultVecMatrixAliased", "[11.0, 22.0, 33.0]"),
        new Case("rotationMultVecAliased", "[-2.0, 1.0, 3.0]"),
        new Case("debugErrorPercentS", "%s|%n|%1$s|0 apples"),
        new Case("disposeDuringCalls", "calls ended; freed once"),
        new Case("cleanerUnderCalls", "done"));
  }

  @ParameterizedTest
  @MethodSource("cases")
  void misuseEndsInAJavaExceptionOrTheRightResult(Case c) throws Exception {
    Path dir = Files.createTempDirectory("misuse-" + c.name());
    Path out = dir.resolve("output.txt");
    String java = System.getProperty("java.home") + File.separator + "bin" + File.separator + "java";
    List<String> command = new ArrayList<>(List.of(java, "-Xcheck:jni", "-XX:-CreateCoredumpOnCrash",
        "-XX:ErrorFile=" + dir.resolve("hs_err_%p.log"),
        "-Djava.library.path=" + System.getProperty("java.library.path")));
    if (c.name().equals("cleanerUnderCalls")) command.add("-Xmx24m");
    command.addAll(List.of("-cp", System.getProperty("java.class.path"), Child.class.getName(), c.name()));
    Process child = new ProcessBuilder(command).directory(dir.toFile()).redirectErrorStream(true)
        .redirectOutput(out.toFile()).start();
    assertTrue(child.waitFor(240, TimeUnit.SECONDS), c.name() + ": the child did not end");
    String output = Files.readString(out, StandardCharsets.UTF_8);
    try (Stream<Path> files = Files.list(dir)) {
      assertFalse(files.anyMatch(p -> p.getFileName().toString().startsWith("hs_err")),
          c.name() + ": the virtual machine crashed");
    }
    assertEquals(0, child.exitValue(), c.name() + ": exit status; output:\n" + scrub(output));
    // Checker complaints are counted, not echoed: echoed, they would fail this suite's own log scan.
    assertFalse(output.contains("WARNING in native method"), c.name() + ": the JNI checker complained");
    String result = output.lines().filter(l -> l.startsWith("RESULT ")).findFirst().orElse("RESULT (none)");
    assertEquals("RESULT " + c.expected(), result, c.name());
  }

  private static String scrub(String output) {
    return output.replace("WARNING in native method", "W.A.R.N.I.N.G in native method");
  }

  /** Public members of the generated value and handle classes never take raw addresses. */
  @org.junit.jupiter.api.Test
  void noPublicMemberTakesARawAddress() throws Exception {
    List<String> offenders = new ArrayList<>();
    for (Class<?> cls : List.of(SbVec3f.class, SbMatrix.class, SbRotation.class, SbTime.class,
        SbViewportRegion.class, SbViewVolume.class, SbXfBox3f.class, SoError.class, SoDebugError.class,
        com.orvexa.orvex.errors.SoErrorStack.StackFrame.class)) {
      for (Method m : cls.getDeclaredMethods()) {
        if (!Modifier.isPublic(m.getModifiers())) continue;
        String n = m.getName();
        if (n.equals("toArray") || n.equals("toArrayImpl") || n.equals("setValueFromHandle")
            || n.equals("fromOwnedHandle") || n.equals("copy") || n.equals("copies") || n.equals("adopt")) {
          offenders.add(cls.getSimpleName() + "." + n);
        }
      }
      for (Class<?> nested : cls.getDeclaredClasses()) {
        if (nested.getSimpleName().equals("NativeResourceHandle") && nested.getConstructors().length > 0) {
          offenders.add(cls.getSimpleName() + ".NativeResourceHandle(long)");
        }
      }
    }
    assertEquals(List.of(), offenders);
  }

  /** The cases, run one per child virtual machine. */
  public static final class Child {
    public static void main(String[] args) throws Exception {
      Orvex.init();
      String outcome;
      try {
        outcome = run(args[0]);
      } catch (RuntimeException e) {
        outcome = e.getClass().getSimpleName() + (e.getMessage() == null ? "" : ": " + e.getMessage());
        if (e instanceof IllegalStateException) outcome = "IllegalStateException";
      }
      System.out.println("RESULT " + outcome);
      System.out.flush();
      System.exit(0);
    }

    static String run(String name) throws Exception {
      switch (name) {
        case "vec3fGetValueNulls":
          new SbVec3f().getValue(null, null, null);
          return "no exception";
        case "matrixFromNullArray":
          new SbMatrix((float[]) null);
          return "no exception";
        case "matrixGetValueShortArray":
          new SbMatrix().getValue(new float[1]);
          return "no exception";
        case "matrixSetValueShortArray":
          new SbMatrix().setValue(new float[1]);
          return "no exception";
        case "colorHsvShortArray":
          new SbColor(0.5f, 0.5f, 0.5f).getHSVValue(new float[1]);
          return "no exception";
        case "valueSubclassOnShortStorage":
          new ShortVector();
          return "no exception";
        case "timeAddNull":
          new SbTime(1.0).add(null);
          return "no exception";
        case "timePlusNull":
          new SbTime(1.0).plus(null);
          return "no exception";
        case "timeGetValueNulls":
          new SbTime(1.0).getValue(null, null);
          return "no exception";
        case "disposedViewportRegion": {
          SbViewportRegion region = new SbViewportRegion((short) 64, (short) 48);
          region.dispose();
          region.getWindowSize();
          return "no exception";
        }
        case "disposedArgument": {
          SbTime t = new SbTime(2.0);
          t.dispose();
          new SbTime(1.0).add(t);
          return "no exception";
        }
        case "errorKeptAfterHandler": {
          AtomicReference<SoDebugError> kept = new AtomicReference<>();
          SoError.setHandler(SoDebugError.class, kept::set);
          SoDebugError.post("misuse", "kept");
          return kept.get().getDebugString();
        }
        case "matrixMultVecMatrixAliased": {
          SbMatrix m = new SbMatrix();
          m.setTranslate(new SbVec3f(10, 20, 30));
          SbVec3f v = new SbVec3f(1, 2, 3);
          m.multVecMatrix(v, v);
          return java.util.Arrays.toString(v.array);
        }
        case "rotationMultVecAliased": {
          // A quarter turn about z takes (1, 2, 3) to (-2, 1, 3).
          SbRotation r = new SbRotation(new SbVec3f(0, 0, 1), (float) (Math.PI / 2));
          SbVec3f w = new SbVec3f(1, 2, 3);
          r.multVec(w, w);
          float[] a = w.array;
          return java.util.Arrays.toString(new float[] {Math.round(a[0]), Math.round(a[1]), Math.round(a[2])});
        }
        case "debugErrorPercentS": {
          List<String> texts = new ArrayList<>();
          SoError.setHandler(SoDebugError.class, e -> texts.add(e.getDebugString()));
          SoDebugError.post("m", "%s");
          SoDebugError.post("m", "%n");
          SoDebugError.post("m", "%1$s");
          SoDebugError.post("m", "%d apples");
          return texts.stream().map(Child::messageOf).reduce((a, b) -> a + "|" + b).orElse("");
        }
        case "disposeDuringCalls":
          return disposeDuringCalls();
        case "cleanerUnderCalls":
          return cleanerUnderCalls();
        default:
          throw new AssertionError("unknown case " + name);
      }
    }

    /** The message part of a debug error's text ("Orvex debug error in m(): message"). */
    static String messageOf(String debugString) {
      return debugString.substring(debugString.indexOf("(): ") + 4);
    }

    /** A value subclass that tries to adopt storage of the wrong size. */
    static final class ShortVector extends SbVec3f {
      ShortVector() {
        super(new float[1], null);
      }
    }

    /**
     * dispose() on one thread while others call the same object: the calls
     * either complete or throw IllegalStateException, and the object is freed
     * once, after the last call (the fixture class counts its live objects).
     */
    static String disposeDuringCalls() throws Exception {
      com.orvexa.genprobe.GenProbeSupport.load();
      int before = com.orvexa.genprobe.GuardProbe.getLiveCount();
      for (int round = 0; round < 200; round++) {
        com.orvexa.genprobe.GuardProbe probe = com.orvexa.genprobe.GenProbeSupport.newCountedProbe();
        AtomicBoolean stop = new AtomicBoolean();
        List<Thread> callers = new ArrayList<>();
        AtomicReference<Throwable> unexpected = new AtomicReference<>();
        for (int t = 0; t < 3; t++) {
          Thread caller = new Thread(() -> {
            try {
              while (!stop.get()) {
                if (!probe.describe().equals("derived")) throw new AssertionError("corrupt object");
              }
            } catch (IllegalStateException disposed) {
              // the expected end of the calls
            } catch (Throwable e) {
              unexpected.set(e);
            }
          });
          caller.start();
          callers.add(caller);
        }
        Thread.sleep(0, 200_000);
        probe.dispose();
        stop.set(true);
        for (Thread caller : callers) caller.join();
        if (unexpected.get() != null) throw new AssertionError(unexpected.get());
      }
      int after = com.orvexa.genprobe.GuardProbe.getLiveCount();
      return after == before ? "calls ended; freed once" : "live objects: " + before + " before, " + after + " after";
    }

    /**
     * Millions of short-lived wrappers whose methods run while the collector
     * (a small heap) clears them: a wrapper that is unreachable while its own
     * call runs must not be freed under the call.
     */
    static String cleanerUnderCalls() {
      Supplier<Float> call = () -> new SbViewportRegion((short) 100, (short) 50).getViewportAspectRatio();
      float sum = 0;
      for (int i = 0; i < 2_000_000; i++) sum += call.get();
      if (sum != 2_000_000 * 2f) throw new AssertionError("wrong results: " + sum);
      return "done";
    }
  }
}
