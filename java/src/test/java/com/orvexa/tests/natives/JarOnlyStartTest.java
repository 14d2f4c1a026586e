package com.orvexa.tests.natives;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.internal.natives.NativeLibraryIndex;
import com.orvexa.internal.natives.NativePlatform;
import com.orvexa.orvex.Orvex;
import com.orvexa.orvex.SoDB;
import com.orvexa.testsupport.JarOnlyMain;
import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.net.URISyntaxException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.BasicFileAttributes;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.concurrent.TimeUnit;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

/**
 * Child JVMs started with only the jars on the class path, no library path,
 * and HOME, XDG_CACHE_HOME, java.io.tmpdir and the working directory inside a
 * fresh temporary folder: the binding must take its native libraries from
 * orvexjava.jar, and fall back, or fail with a message naming every folder.
 */
class JarOnlyStartTest {
  private static NativeLibraryIndex index;
  private static String classPath;
  private static String expectedVersion;

  @TempDir Path dir;
  private Path home;
  private Path tmp;
  private Path work;
  /** A regular file: nothing can be created below it, whoever runs the test. */
  private Path blocker;

  @BeforeAll
  static void readTheJar() throws IOException, URISyntaxException {
    try (InputStream in = NativeLibraryIndex.class.getResourceAsStream(
        "/natives/" + NativePlatform.current() + "/" + NativeLibraryIndex.FILE_NAME)) {
      assertTrue(in != null, "orvexjava.jar carries no natives for " + NativePlatform.current());
      index = NativeLibraryIndex.parse(in);
    }
    classPath = jarOf(Orvex.class) + File.pathSeparator + jarOf(JarOnlyMain.class);
    // This JVM loads the binding from the build's lib/ folder: the same libraries.
    expectedVersion = SoDB.getVersion();
  }

  private static String jarOf(Class<?> cls) throws URISyntaxException {
    return Path.of(cls.getProtectionDomain().getCodeSource().getLocation().toURI()).toString();
  }

  @BeforeEach
  void folders() throws IOException {
    home = Files.createDirectories(dir.resolve("home"));
    tmp = Files.createDirectories(dir.resolve("tmp"));
    work = Files.createDirectories(dir.resolve("work"));
    blocker = Files.writeString(dir.resolve("blocker"), "not a folder");
  }

  private static final class Run {
    final int exit;
    final List<String> stdout;
    final String stderr;

    Run(int exit, List<String> stdout, String stderr) {
      this.exit = exit;
      this.stdout = stdout;
      this.stderr = stderr;
    }

    String all() {
      return String.join("\n", stdout) + "\n" + stderr;
    }

    /** The folder liborvexjava was mapped from. */
    Path loadedFrom() {
      List<String> loaded = stdout.stream().filter(l -> l.startsWith("LOADED=")).collect(Collectors.toList());
      assertEquals(1, loaded.size(), all());
      return Path.of(loaded.get(0).substring("LOADED=".length())).getParent();
    }
  }

  /** A started child JVM and the files its output goes to. */
  private static final class Child {
    final Process process;
    final File out;
    final File err;

    Child(Process process, File out, File err) {
      this.process = process;
      this.out = out;
      this.err = err;
    }

    Run finish() throws Exception {
      assertTrue(process.waitFor(120, TimeUnit.SECONDS), "child JVM did not finish");
      Run run = new Run(process.exitValue(), Files.readAllLines(out.toPath(), StandardCharsets.UTF_8),
          Files.readString(err.toPath(), StandardCharsets.UTF_8));
      assertFalse(run.all().contains("WARNING in native method") || run.all().contains("FATAL ERROR in native method"),
          run.all());
      return run;
    }
  }

  private Child launch(Map<String, String> env, String... jvmOptions) throws IOException {
    List<String> command = new ArrayList<>();
    command.add(Path.of(System.getProperty("java.home"), "bin", "java").toString());
    command.add("-Xcheck:jni");
    command.add("-Djava.awt.headless=true");
    command.add("-Djava.io.tmpdir=" + tmp);
    command.addAll(List.of(jvmOptions));
    command.add("-cp");
    command.add(classPath);
    command.add(JarOnlyMain.class.getName());
    ProcessBuilder builder = new ProcessBuilder(command).directory(work.toFile());
    Map<String, String> environment = builder.environment();
    environment.remove("LD_LIBRARY_PATH");
    environment.remove("XDG_CACHE_HOME");
    environment.put("HOME", home.toString());
    environment.putAll(env);
    File out = dir.resolve("out-" + System.nanoTime()).toFile();
    File err = dir.resolve("err-" + System.nanoTime()).toFile();
    builder.redirectOutput(out).redirectError(err);
    return new Child(builder.start(), out, err);
  }

  private Run start(Map<String, String> env, String... jvmOptions) throws Exception {
    return launch(env, jvmOptions).finish();
  }

  private Run startOk(Map<String, String> env, String... jvmOptions) throws Exception {
    Run run = start(env, jvmOptions);
    assertEquals(0, run.exit, "child failed:\n" + run.all());
    assertTrue(run.stdout.contains("VERSION=" + expectedVersion), run.all());
    return run;
  }

  private static Map<String, BasicFileAttributes> attributesOfEachLibrary(Path folder) throws IOException {
    Map<String, BasicFileAttributes> attributes = new HashMap<>();
    for (NativeLibraryIndex.Entry entry : index.libraries) {
      Path file = folder.resolve(entry.fileName);
      assertTrue(Files.isRegularFile(file), file + " missing");
      assertEquals(entry.size, Files.size(file), file.toString());
      attributes.put(entry.fileName, Files.readAttributes(file, BasicFileAttributes.class));
    }
    return attributes;
  }

  @Test
  void startsFromTheHomeCacheAndASecondStartReusesTheFiles() throws Exception {
    Path expected = home.resolve(".cache/orvex").resolve(index.contentHash);
    Run first = startOk(Map.of());
    assertEquals(expected, first.loadedFrom());
    Map<String, BasicFileAttributes> before = attributesOfEachLibrary(expected);
    try (Stream<Path> files = Files.list(expected)) {
      List<String> names = files.map(p -> p.getFileName().toString()).sorted().collect(Collectors.toList());
      List<String> listed = index.libraries.stream().map(e -> e.fileName).sorted().collect(Collectors.toList());
      assertEquals(listed, names, "nothing but the libraries, no temporary file left behind");
    }

    Run second = startOk(Map.of());
    assertEquals(expected, second.loadedFrom());
    Map<String, BasicFileAttributes> after = attributesOfEachLibrary(expected);
    for (NativeLibraryIndex.Entry entry : index.libraries) {
      assertEquals(before.get(entry.fileName).fileKey(), after.get(entry.fileName).fileKey(),
          entry.fileName + " was replaced");
      assertEquals(before.get(entry.fileName).lastModifiedTime(), after.get(entry.fileName).lastModifiedTime(),
          entry.fileName + " was rewritten");
    }
  }

  @Test
  void jvmsStartingAtOnceShareOneFreshCache() throws Exception {
    List<Child> children = new ArrayList<>();
    for (int i = 0; i < 3; i++) children.add(launch(Map.of()));
    Path expected = home.resolve(".cache/orvex").resolve(index.contentHash);
    for (Child child : children) {
      Run run = child.finish();
      assertEquals(0, run.exit, "child failed:\n" + run.all());
      assertTrue(run.stdout.contains("VERSION=" + expectedVersion), run.all());
      assertEquals(expected, run.loadedFrom());
    }
    attributesOfEachLibrary(expected);
  }

  @Test
  void xdgCacheHomeWinsOverHome() throws Exception {
    Path xdg = dir.resolve("xdg");
    Run run = startOk(Map.of("XDG_CACHE_HOME", xdg.toString()));
    assertEquals(xdg.resolve("orvex").resolve(index.contentHash), run.loadedFrom());
    assertFalse(Files.exists(home.resolve(".cache")), "the home cache is left alone");
  }

  @Test
  void anUnwritableCacheFallsBackOnTheTemporaryFolder() throws Exception {
    Run run = startOk(Map.of("XDG_CACHE_HOME", blocker.resolve("cache").toString()));
    assertEquals(tmp.resolve("orvex-" + System.getProperty("user.name")).resolve(index.contentHash), run.loadedFrom());
  }

  @Test
  void aCacheWhoseLibraryCannotBeLoadedFallsBack() throws Exception {
    // What a noexec mount does to the load, a damaged file of the right size does too.
    Path xdg = dir.resolve("xdg");
    Path cached = Files.createDirectories(xdg.resolve("orvex").resolve(index.contentHash));
    NativeLibraryIndex.Entry first = index.libraries.get(0);
    Files.write(cached.resolve(first.fileName), new byte[(int) first.size]);
    Run run = startOk(Map.of("XDG_CACHE_HOME", xdg.toString()));
    assertEquals(tmp.resolve("orvex-" + System.getProperty("user.name")).resolve(index.contentHash), run.loadedFrom());
  }

  @Test
  void whenEveryDefaultFolderFailsTheErrorNamesEachAndWhy() throws Exception {
    Files.writeString(work.resolve("orvex-natives"), "a file where the folder would go");
    Path xdgCache = blocker.resolve("cache");
    Run run = start(Map.of("XDG_CACHE_HOME", xdgCache.toString()), "-Djava.io.tmpdir=" + blocker.resolve("tmp"));
    assertNotEquals(0, run.exit, run.all());
    assertTrue(run.stderr.contains("java.lang.UnsatisfiedLinkError"), run.stderr);
    List<Path> tried = List.of(
        xdgCache.resolve("orvex"),
        blocker.resolve("tmp").resolve("orvex-" + System.getProperty("user.name")),
        work.resolve("orvex-natives"));
    int previous = -1;
    for (Path base : tried) {
      String line = "  " + base.resolve(index.contentHash) + ": cannot write the libraries there: ";
      int at = run.stderr.indexOf(line);
      assertTrue(at > previous, "missing or out of order: " + line + "\n" + run.stderr);
      previous = at;
    }
  }

  @Test
  void theCacheDirPropertyReplacesTheDefaultFolders() throws Exception {
    Path chosen = dir.resolve("chosen");
    Run run = startOk(Map.of(), "-Dorvex.native.cacheDir=" + blocker.resolve("a") + File.pathSeparator + chosen);
    assertEquals(chosen.resolve(index.contentHash), run.loadedFrom());
    assertFalse(Files.exists(home.resolve(".cache")), "default folders are not tried");

    Run failing = start(Map.of(), "-Dorvex.native.cacheDir=" + blocker.resolve("a") + File.pathSeparator + blocker.resolve("b"));
    assertNotEquals(0, failing.exit, failing.all());
    assertTrue(failing.stderr.contains("  " + blocker.resolve("a").resolve(index.contentHash) + ": "), failing.stderr);
    assertTrue(failing.stderr.contains("  " + blocker.resolve("b").resolve(index.contentHash) + ": "), failing.stderr);
    assertFalse(failing.stderr.contains(tmp.toString()), "only the given folders are tried: " + failing.stderr);
  }

  @Test
  void anExplicitLibraryPathStillWins() throws Exception {
    String buildLib = System.getProperty("java.library.path").split(File.pathSeparator)[0];
    Run viaLibraryPath = startOk(Map.of(), "-Djava.library.path=" + buildLib);
    assertEquals(Path.of(buildLib).toRealPath(), viaLibraryPath.loadedFrom().toRealPath());
    Run viaProperty = startOk(Map.of(), "-Dorvex.library.path=" + buildLib);
    assertEquals(Path.of(buildLib).toRealPath(), viaProperty.loadedFrom().toRealPath());
    assertFalse(Files.exists(home.resolve(".cache")), "nothing is extracted");
  }
}
