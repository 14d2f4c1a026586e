package com.orvexa.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.File;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.concurrent.TimeUnit;
import java.util.stream.Collectors;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

/** Starts the binding in child JVMs and checks what start-up prints and initialises. */
class StartupTraceTest {
  private static final List<String> FULL_TRACE = List.of(
      "----> ScaleLux init",
      "----> realTime field init",
      "----> SoNodeKit init",
      "----> SoInteraction init",
      "----> SoGui init",
      "----> PoMeshLux init",
      "----> SoVolumeRendering init",
      "----> RemoteLuxClient init",
      "----> SoImageLux init",
      "----> Set unknown node callback",
      "----> Set errors default callback");

  @TempDir Path dir;

  private static final class Run {
    final List<String> stdout;
    final String stderr;

    Run(List<String> stdout, String stderr) {
      this.stdout = stdout;
      this.stderr = stderr;
    }

    List<String> trace() {
      return stdout.stream().filter(l -> l.startsWith("---->")).collect(Collectors.toList());
    }
  }

  private Run start(List<String> jvmOptions, Map<String, String> env, boolean withProbe) throws Exception {
    List<String> command = new ArrayList<>();
    command.add(Path.of(System.getProperty("java.home"), "bin", "java").toString());
    command.add("-Xcheck:jni");
    command.addAll(jvmOptions);
    command.add("-cp");
    command.add(System.getProperty("java.class.path"));
    command.add("com.orvexa.testsupport.StartupMain");
    if (!withProbe) command.add("--no-probe");
    ProcessBuilder builder = new ProcessBuilder(command);
    builder.environment().remove("ORX_JAVA_ENABLE_IMAGELUX");
    builder.environment().putAll(env);
    File out = dir.resolve("out-" + System.nanoTime()).toFile();
    File err = dir.resolve("err-" + System.nanoTime()).toFile();
    builder.redirectOutput(out).redirectError(err);
    Process process = builder.start();
    assertTrue(process.waitFor(60, TimeUnit.SECONDS), "child JVM did not finish");
    String stderr = Files.readString(err.toPath(), StandardCharsets.UTF_8);
    List<String> stdout = Files.readAllLines(out.toPath(), StandardCharsets.UTF_8);
    assertEquals(0, process.exitValue(), "child failed:\n" + String.join("\n", stdout) + "\n" + stderr);
    String all = String.join("\n", stdout) + "\n" + stderr;
    assertFalse(all.contains("WARNING in native method") || all.contains("FATAL ERROR in native method"), all);
    return new Run(stdout, stderr);
  }

  private static String libraryPath() {
    return "-Djava.library.path=" + System.getProperty("java.library.path");
  }

  @Test
  void debugTraceListsEveryStepInOrderBeforeTheProgramRuns() throws Exception {
    Run run = start(List.of(libraryPath(), "-Dorvex.native.debug=true"), Map.of(), true);
    assertEquals(FULL_TRACE, run.trace());
    int lastTrace = run.stdout.indexOf("----> Set errors default callback");
    assertTrue(lastTrace < run.stdout.indexOf("STARTED"), run.stdout.toString());
    assertTrue(run.stdout.contains("IMAGELUX=true"), run.stdout.toString());
    assertFalse(run.stdout.contains("DLL_PROCESS_ATTACH"), "the load hook runs while the trace is still off");
  }

  @Test
  void imageLuxPreferenceSetFalseSkipsTheModule() throws Exception {
    Run run = start(List.of(libraryPath(), "-Dorvex.native.debug=true"), Map.of("ORX_JAVA_ENABLE_IMAGELUX", "0"), true);
    List<String> expected = new ArrayList<>(FULL_TRACE);
    expected.remove("----> SoImageLux init");
    assertEquals(expected, run.trace());
    assertTrue(run.stdout.contains("IMAGELUX=false"), run.stdout.toString());
  }

  @Test
  void withoutTheDebugFlagNothingIsTraced() throws Exception {
    Run run = start(List.of(libraryPath()), Map.of(), true);
    assertEquals(List.of(), run.trace());
    assertEquals(List.of("IMAGELUX=true", "STARTED"), run.stdout);
  }

  @Test
  void libraryIsLoadedFromTheDirectoryOfOrvexLibraryPath() throws Exception {
    String directory = System.getProperty("java.library.path").split(File.pathSeparator)[0];
    Run run = start(List.of("-Dorvex.library.path=" + directory, "-Djava.library.path=" + dir), Map.of(), false);
    assertEquals(List.of("STARTED"), run.stdout);
  }
}
