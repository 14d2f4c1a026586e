package com.orvexa.tests;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.testsupport.RuntimeProbe;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

class StringMarshallingTest {
  private static final String SUPPLEMENTARY = "clef \uD834\uDD1E smile \uD83D\uDE00 accents \u00E9\u00FC \u6587";

  @BeforeAll
  static void load() {
    RuntimeProbe.init();
  }

  @Test
  void wideViewAndSbStringKeepCharactersOutsideTheBasicPlane() {
    assertEquals(SUPPLEMENTARY, RuntimeProbe.unicodeRoundTrip(SUPPLEMENTARY));
    assertEquals(SUPPLEMENTARY.length(), RuntimeProbe.wideViewLength(SUPPLEMENTARY));
    // A lone surrogate is copied unit by unit as well.
    assertEquals("a\uD800b", RuntimeProbe.unicodeRoundTrip("a\uD800b"));
  }

  @Test
  void utfViewIsTheModifiedUtf8OfTheVirtualMachine() {
    assertArrayEquals(new byte[] {'a', (byte) 0xC0, (byte) 0x80, 'b'}, RuntimeProbe.utfView("a\u0000b"));
    // Supplementary characters as two 3-byte surrogates, not one 4-byte sequence.
    assertArrayEquals(new byte[] {(byte) 0xED, (byte) 0xA0, (byte) 0xBD, (byte) 0xED, (byte) 0xB8, (byte) 0x80},
        RuntimeProbe.utfView("\uD83D\uDE00"));
    assertArrayEquals("plain \u00E9".getBytes(StandardCharsets.UTF_8), RuntimeProbe.utfView("plain \u00E9"));
  }

  @Test
  void emptyStringGivesEmptyViewsNotNull() {
    byte[] utf = RuntimeProbe.utfView("");
    assertNotNull(utf);
    assertEquals(0, utf.length);
    assertEquals(0, RuntimeProbe.wideViewLength(""));
    assertEquals("", RuntimeProbe.unicodeRoundTrip(""));
  }

  @Test
  void nullStringGivesNullViews() {
    assertNull(RuntimeProbe.utfView(null));
    assertEquals(-1, RuntimeProbe.wideViewLength(null));
    assertNull(RuntimeProbe.unicodeRoundTrip(null));
  }

  @Test
  void viewsAreConvertedOnceAndCached() {
    assertTrue(RuntimeProbe.viewsAreCached("twice"));
    assertTrue(RuntimeProbe.viewsAreCached(""));
  }

  @Test
  void stringArrayViewsRoundTrip() {
    String[] strings = {"one", "", SUPPLEMENTARY, "last"};
    assertArrayEquals(strings, RuntimeProbe.sbStringArrayRoundTrip(strings));
    String[] withNul = {"nul\u0000inside", "", SUPPLEMENTARY};
    assertArrayEquals(withNul, RuntimeProbe.utfStringArrayRoundTrip(withNul));
    assertArrayEquals(new String[] {"x", null, "y"}, RuntimeProbe.utfStringArrayRoundTrip(new String[] {"x", null, "y"}));
    assertArrayEquals(new String[] {"x", "", "y"}, RuntimeProbe.sbStringArrayRoundTrip(new String[] {"x", null, "y"}));
  }

  @Test
  void emptyStringArrayGivesValidEmptyViewsAndNullArrayGivesNull() {
    assertArrayEquals(new String[0], RuntimeProbe.sbStringArrayRoundTrip(new String[0]));
    assertArrayEquals(new String[0], RuntimeProbe.utfStringArrayRoundTrip(new String[0]));
    assertNull(RuntimeProbe.sbStringArrayRoundTrip(null));
    assertNull(RuntimeProbe.utfStringArrayRoundTrip(null));
  }

  @Test
  void everyFromNativeStringOverloadRebuildsTheString() {
    String text = "name \u00E9 " + SUPPLEMENTARY;
    assertArrayEquals(new String[] {text, text, text, text}, RuntimeProbe.fromNativeStringOverloads(text));
  }

  @Test
  void fileHelperOpensUnicodeNamesAndReopensOnlyForAnotherMode(@TempDir Path dir) throws Exception {
    Path file = dir.resolve("donn\u00E9es-\u6587\u4EF6.txt");
    assertTrue(RuntimeProbe.writeThroughFileHelper(file.toString(), "hello"));
    assertEquals("hello!", Files.readString(file, StandardCharsets.UTF_8));
  }
}
