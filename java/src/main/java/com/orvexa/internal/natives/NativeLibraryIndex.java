package com.orvexa.internal.natives;

import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStream;
import java.io.InputStreamReader;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.List;
import java.util.regex.Pattern;

/**
 * The index that the build writes next to the native libraries in the jar:
 * the libraries in load order (each after the libraries it needs), with
 * their size and SHA-256, and a hash of the whole set that names the cache
 * folder, so that libraries of different builds never share a folder.
 *
 * <pre>
 * # comment lines and blank lines are ignored
 * content-hash &lt;64 hex digits&gt;
 * &lt;sha256 of the file&gt; &lt;size in bytes&gt; &lt;file name&gt;
 * ...
 * </pre>
 */
public final class NativeLibraryIndex {
  /** Name of the index file inside the platform folder. */
  public static final String FILE_NAME = "index.txt";

  private static final Pattern HASH = Pattern.compile("[0-9a-f]{64}");
  // Plain file names only: an index must not be able to write outside the cache folder.
  private static final Pattern LIBRARY_NAME = Pattern.compile("[A-Za-z0-9_.+-]+");

  /** One library of the index. */
  public static final class Entry {
    public final String fileName;
    public final long size;
    public final String sha256;

    Entry(String fileName, long size, String sha256) {
      this.fileName = fileName;
      this.size = size;
      this.sha256 = sha256;
    }
  }

  public final String contentHash;
  /** In load order. */
  public final List<Entry> libraries;

  private NativeLibraryIndex(String contentHash, List<Entry> libraries) {
    this.contentHash = contentHash;
    this.libraries = List.copyOf(libraries);
  }

  /** Parses an index; a malformed one is an {@link IOException} naming the line. */
  public static NativeLibraryIndex parse(InputStream in) throws IOException {
    BufferedReader reader = new BufferedReader(new InputStreamReader(in, StandardCharsets.UTF_8));
    String contentHash = null;
    List<Entry> libraries = new ArrayList<>();
    String line;
    int number = 0;
    while ((line = reader.readLine()) != null) {
      number++;
      line = line.strip();
      if (line.isEmpty() || line.startsWith("#")) continue;
      String[] words = line.split("\\s+");
      if (words.length == 2 && words[0].equals("content-hash") && HASH.matcher(words[1]).matches()) {
        if (contentHash != null) throw malformed(number, "second content-hash");
        contentHash = words[1];
      } else if (words.length == 3 && HASH.matcher(words[0]).matches() && words[1].matches("[0-9]{1,18}")
          && LIBRARY_NAME.matcher(words[2]).matches() && !words[2].startsWith(".")) {
        libraries.add(new Entry(words[2], Long.parseLong(words[1]), words[0]));
      } else {
        throw malformed(number, line);
      }
    }
    if (contentHash == null) throw new IOException("native library index has no content-hash line");
    if (libraries.isEmpty()) throw new IOException("native library index lists no library");
    return new NativeLibraryIndex(contentHash, libraries);
  }

  private static IOException malformed(int number, String what) {
    return new IOException("native library index, line " + number + ": unexpected '" + what + "'");
  }
}
