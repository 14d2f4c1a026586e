package com.orvexa.tests.natives;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.internal.natives.NativeLibraryIndex;
import com.orvexa.internal.natives.NativePlatform;
import java.io.ByteArrayInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.nio.charset.StandardCharsets;
import org.junit.jupiter.api.Test;

/** The index format and the platform folder names, without starting the binding. */
class NativeLibraryIndexTest {
  private static final String A = "a".repeat(64);
  private static final String B = "0123456789abcdef".repeat(4);

  private static NativeLibraryIndex parse(String text) throws IOException {
    return NativeLibraryIndex.parse(new ByteArrayInputStream(text.getBytes(StandardCharsets.UTF_8)));
  }

  @Test
  void librariesKeepTheirOrderSizeAndHash() throws IOException {
    NativeLibraryIndex index = parse("# comment\n\ncontent-hash " + A + "\n" + B + " 12 libfirst.so\n" + A + " 7 libsecond.so\n");
    assertEquals(A, index.contentHash);
    assertEquals(2, index.libraries.size());
    assertEquals("libfirst.so", index.libraries.get(0).fileName);
    assertEquals(12, index.libraries.get(0).size);
    assertEquals(B, index.libraries.get(0).sha256);
    assertEquals("libsecond.so", index.libraries.get(1).fileName);
  }

  @Test
  void malformedIndexesAreRejected() {
    assertThrows(IOException.class, () -> parse(B + " 12 libfirst.so\n"), "no content hash");
    assertThrows(IOException.class, () -> parse("content-hash " + A + "\n"), "no library");
    assertThrows(IOException.class, () -> parse("content-hash " + A + "\n" + B + " 12 ../escape.so\n"));
    assertThrows(IOException.class, () -> parse("content-hash " + A + "\n" + B + " 12 dir/lib.so\n"));
    assertThrows(IOException.class, () -> parse("content-hash " + A + "\n" + B + " 12 .hidden.so\n"));
    assertThrows(IOException.class, () -> parse("content-hash " + A + "\n" + B + " -1 lib.so\n"));
    assertThrows(IOException.class, () -> parse("content-hash XYZ\n" + B + " 12 lib.so\n"));
  }

  @Test
  void platformFoldersFoldTheJvmSpellings() {
    assertEquals("linux-x86_64", NativePlatform.folderName("Linux", "amd64"));
    assertEquals("linux-x86_64", NativePlatform.folderName("Linux", "x86_64"));
    assertEquals("linux-aarch64", NativePlatform.folderName("Linux", "aarch64"));
    assertEquals("macos-aarch64", NativePlatform.folderName("Mac OS X", "arm64"));
    assertEquals("windows-x86", NativePlatform.folderName("Windows 10", "x86"));
  }

  @Test
  void theJarCarriesAnIndexForThisPlatformListingLiborvexjavaLast() throws IOException {
    String resource = "/natives/" + NativePlatform.current() + "/" + NativeLibraryIndex.FILE_NAME;
    try (InputStream in = NativeLibraryIndex.class.getResourceAsStream(resource)) {
      assertTrue(in != null, "orvexjava.jar lacks " + resource);
      NativeLibraryIndex index = NativeLibraryIndex.parse(in);
      String last = index.libraries.get(index.libraries.size() - 1).fileName;
      assertEquals(System.mapLibraryName("orvexjava"), last, "liborvexjava needs the others, so it comes last");
      assertTrue(index.libraries.stream().anyMatch(e -> e.fileName.equals(System.mapLibraryName("orvexbase"))));
      for (NativeLibraryIndex.Entry entry : index.libraries) {
        try (InputStream library = NativeLibraryIndex.class.getResourceAsStream(
            "/natives/" + NativePlatform.current() + "/" + entry.fileName)) {
          assertTrue(library != null, "the index lists " + entry.fileName + " but the jar lacks it");
          assertEquals(entry.size, library.readAllBytes().length, entry.fileName);
        }
      }
    }
  }
}
