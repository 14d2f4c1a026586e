package com.orvexa.internal.natives;

import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.io.OutputStream;
import java.nio.file.AtomicMoveNotSupportedException;
import java.nio.file.FileAlreadyExistsException;
import java.nio.file.FileSystems;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.nio.file.StandardCopyOption;
import java.nio.file.attribute.FileAttribute;
import java.nio.file.attribute.PosixFileAttributeView;
import java.nio.file.attribute.PosixFilePermission;
import java.nio.file.attribute.PosixFilePermissions;
import java.security.DigestInputStream;
import java.security.MessageDigest;
import java.security.NoSuchAlgorithmException;
import java.util.ArrayList;
import java.util.HexFormat;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;

/**
 * Loads the native libraries that orvexjava.jar carries under
 * {@code natives/<platform>/}: copies them into a cache folder named by their
 * content hash and loads them from there with {@link System#load}, in the
 * order of the index (dependencies first; the libraries find each other
 * through their {@code $ORIGIN} run paths and because they are loaded
 * already).
 *
 * <p>Candidate base folders, first usable wins; the libraries go into
 * {@code <base>/<content hash>/}:
 * <ol>
 * <li>the folders of the system property {@code orvex.native.cacheDir}
 *   (separated by {@link File#pathSeparator}) when it is set, and then no other;</li>
 * <li>otherwise {@code $XDG_CACHE_HOME/orvex}, or {@code $HOME/.cache/orvex}
 *   when XDG_CACHE_HOME is unset (HOME falling back to {@code user.home});</li>
 * <li>{@code <java.io.tmpdir>/orvex-<user.name>};</li>
 * <li>{@code <user.dir>/orvex-natives}.</li>
 * </ol>
 * A folder is unusable when it cannot be created or written, or when the
 * first library cannot be loaded from it (a file system mounted noexec, a
 * damaged file left there). Files already present with the size of the index
 * are reused as they are; missing ones are written under a temporary name and
 * then linked or renamed into place in one step, so a JVM starting at the
 * same time never loads a half-written file.
 */
public final class JarNativeLibraries {
  /** System property: the only candidate base folders, in order. */
  public static final String CACHE_DIR_PROPERTY = "orvex.native.cacheDir";

  private static final Set<PosixFilePermission> OWNER_ONLY_DIRECTORY = PosixFilePermissions.fromString("rwx------");
  private static final Set<PosixFilePermission> LIBRARY_FILE = PosixFilePermissions.fromString("r-xr-xr-x");

  private JarNativeLibraries() {}

  /** Folder of the jar that holds this platform's libraries, as a resource path. */
  static String resourceFolder() {
    return "/natives/" + NativePlatform.current() + "/";
  }

  /** Whether the jar carries libraries for the running platform. */
  public static boolean available() {
    return JarNativeLibraries.class.getResource(resourceFolder() + NativeLibraryIndex.FILE_NAME) != null;
  }

  /**
   * Extracts and loads every library of the index; returns the folder they
   * were loaded from. Throws {@link UnsatisfiedLinkError} naming every
   * folder tried and why it could not be used.
   */
  public static Path load() {
    NativeLibraryIndex index = readIndex();
    Map<Path, String> failures = new LinkedHashMap<>();
    for (Path base : candidateBases()) {
      Path folder = base.resolve(index.contentHash);
      try {
        extractInto(folder, index);
      } catch (IOException | RuntimeException e) {
        failures.put(folder, "cannot write the libraries there: " + e);
        continue;
      }
      List<NativeLibraryIndex.Entry> libraries = index.libraries;
      try {
        // The first library needs no other library of the set: when it does
        // not load, the folder is to blame (noexec mount, damaged file).
        System.load(folder.resolve(libraries.get(0).fileName).toString());
      } catch (UnsatisfiedLinkError e) {
        failures.put(folder, "cannot load " + libraries.get(0).fileName + " from there: " + e.getMessage());
        continue;
      }
      // A later failure is not the folder's fault, and another folder would
      // load a second copy of the libraries loaded already: report it.
      for (NativeLibraryIndex.Entry library : libraries.subList(1, libraries.size())) {
        System.load(folder.resolve(library.fileName).toString());
      }
      return folder;
    }
    StringBuilder message = new StringBuilder("Cannot load the Orvex native libraries that the jar carries for ")
        .append(NativePlatform.current())
        .append(": no folder could take them (set -Dorvex.library.path=<folder of liborvexjava>,")
        .append(" -Djava.library.path, or -D").append(CACHE_DIR_PROPERTY).append("=<writable folder>). Tried:");
    failures.forEach((folder, why) -> message.append("\n  ").append(folder).append(": ").append(why));
    throw new UnsatisfiedLinkError(message.toString());
  }

  /** The base folders in the order they are tried; see the class comment. */
  static List<Path> candidateBases() {
    List<Path> bases = new ArrayList<>();
    String explicit = System.getProperty(CACHE_DIR_PROPERTY);
    if (explicit != null && !explicit.isBlank()) {
      for (String folder : explicit.split(File.pathSeparator)) {
        if (!folder.isBlank()) bases.add(Paths.get(folder).toAbsolutePath());
      }
      return bases;
    }
    String xdgCache = System.getenv("XDG_CACHE_HOME");
    if (xdgCache != null && Paths.get(xdgCache).isAbsolute()) {
      bases.add(Paths.get(xdgCache, "orvex"));
    } else {
      String home = System.getenv("HOME");
      if (home == null || home.isBlank()) home = System.getProperty("user.home");
      if (home != null && !home.isBlank()) bases.add(Paths.get(home, ".cache", "orvex").toAbsolutePath());
    }
    String tmp = System.getProperty("java.io.tmpdir");
    if (tmp != null && !tmp.isBlank()) {
      // Per user: the temporary folder is shared, and each user's folder is private.
      bases.add(Paths.get(tmp, "orvex-" + System.getProperty("user.name", "user")).toAbsolutePath());
    }
    bases.add(Paths.get(System.getProperty("user.dir", "."), "orvex-natives").toAbsolutePath());
    return bases;
  }

  private static NativeLibraryIndex readIndex() {
    String name = resourceFolder() + NativeLibraryIndex.FILE_NAME;
    try (InputStream in = JarNativeLibraries.class.getResourceAsStream(name)) {
      if (in == null) {
        throw new UnsatisfiedLinkError("the jar carries no native libraries for " + NativePlatform.current()
            + " (no " + name + ")");
      }
      return NativeLibraryIndex.parse(in);
    } catch (IOException e) {
      UnsatisfiedLinkError error = new UnsatisfiedLinkError("cannot read " + name + " in the jar: " + e.getMessage());
      error.initCause(e);
      throw error;
    }
  }

  /** Makes {@code folder} hold every library of the index, reusing the files already there. */
  static void extractInto(Path folder, NativeLibraryIndex index) throws IOException {
    createPrivateDirectories(folder);
    for (NativeLibraryIndex.Entry library : index.libraries) {
      Path target = folder.resolve(library.fileName);
      if (Files.isRegularFile(target) && Files.size(target) == library.size) continue;
      extractOne(library, target);
    }
  }

  private static void createPrivateDirectories(Path folder) throws IOException {
    if (Files.isDirectory(folder)) return;
    if (FileSystems.getDefault().supportedFileAttributeViews().contains("posix")) {
      FileAttribute<Set<PosixFilePermission>> ownerOnly = PosixFilePermissions.asFileAttribute(OWNER_ONLY_DIRECTORY);
      Files.createDirectories(folder, ownerOnly);
    } else {
      Files.createDirectories(folder);
    }
  }

  private static void extractOne(NativeLibraryIndex.Entry library, Path target) throws IOException {
    String resource = resourceFolder() + library.fileName;
    Path part = Files.createTempFile(target.getParent(), "." + library.fileName + ".", ".part");
    try {
      MessageDigest sha256 = sha256();
      try (InputStream raw = JarNativeLibraries.class.getResourceAsStream(resource)) {
        if (raw == null) throw new IOException("the jar lacks " + resource + " listed in its index");
        try (InputStream in = new DigestInputStream(raw, sha256); OutputStream out = Files.newOutputStream(part)) {
          in.transferTo(out);
        }
      }
      String actual = HexFormat.of().formatHex(sha256.digest());
      if (!actual.equals(library.sha256) || Files.size(part) != library.size) {
        throw new IOException(resource + " in the jar does not match its index (sha256 " + actual + ")");
      }
      if (Files.getFileAttributeView(part, PosixFileAttributeView.class) != null) {
        Files.setPosixFilePermissions(part, LIBRARY_FILE);
      }
      publish(part, target, library.size);
    } finally {
      Files.deleteIfExists(part);
    }
  }

  /**
   * Gives the complete file {@code part} the name {@code target} in one step.
   * A file that another JVM published meanwhile is kept: that JVM may have
   * loaded it already, and replacing it would leave the JVM with a deleted
   * file. Only a file of the wrong size (damaged) is replaced.
   */
  private static void publish(Path part, Path target, long size) throws IOException {
    try {
      Files.createLink(target, part);  // link(2): atomic, and never replaces
      return;
    } catch (FileAlreadyExistsException e) {
      if (Files.isRegularFile(target) && Files.size(target) == size) return;
    } catch (UnsupportedOperationException | IOException e) {
      // No hard links on this file system: an atomic rename is the next best.
    }
    try {
      Files.move(part, target, StandardCopyOption.ATOMIC_MOVE, StandardCopyOption.REPLACE_EXISTING);
    } catch (AtomicMoveNotSupportedException e) {
      Files.move(part, target, StandardCopyOption.REPLACE_EXISTING);
    }
  }

  private static MessageDigest sha256() {
    try {
      return MessageDigest.getInstance("SHA-256");
    } catch (NoSuchAlgorithmException e) {
      throw new IllegalStateException("every JVM has SHA-256", e);
    }
  }
}
