package com.orvexa.orvex.misc.callbacks;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.SoDB;
import com.orvexa.orvex.SoInput;
import com.orvexa.orvex.nodes.SoSeparator;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;

/** Headers registered from Java, with their pre and post functions. */
class HeaderCallbacksTest {
  @Test
  void theFunctionsOfARegisteredHeaderSeeTheInputThatReadsIt() {
    List<String> calls = new ArrayList<>();
    Object data = "data";
    SoInput[] seen = new SoInput[2];
    SoDBHeaderCB pre = SoDBHeaderCB.pre((in, userData) -> {
      seen[0] = in;
      calls.add("pre " + userData + " " + in.getHeader());
    });
    SoDBHeaderCB post = SoDBHeaderCB.post((in, userData) -> {
      seen[1] = in;
      calls.add("post " + userData);
    });
    assertTrue(SoDB.registerHeader("#Java Test Format 1.0", false, 1.0f, pre, post, data));
    assertTrue(SoDB.isValidHeader("#Java Test Format 1.0"));

    SoInput in = new SoInput();
    in.setBuffer("#Java Test Format 1.0\nSeparator { Cube { } }");
    SoSeparator scene = SoDB.readAll(in);
    assertNotNull(scene);
    assertEquals(1, scene.getNumChildren());
    in.closeFile();
    assertEquals(List.of("pre data #Java Test Format 1.0", "post data"), calls);
    assertSame(in, seen[0], "the input Java made is handed over, not another wrapper");
    assertSame(in, seen[1]);

    // A second registration of the same header is refused and holds nothing.
    long references = NCallback.heldReferences();
    assertFalse(SoDB.registerHeader("#Java Test Format 1.0", false, 1.0f,
        SoDBHeaderCB.pre((i, d) -> {}), null, null));
    assertEquals(references, NCallback.heldReferences());
  }

  @Test
  void aHeaderWithoutFunctionsAndMisuse() {
    assertTrue(SoDB.registerHeader("#Java Plain Format 2.0", false, 2.0f));
    SoInput in = new SoInput();
    in.setBuffer("#Java Plain Format 2.0\nCube { }");
    assertNotNull(SoDB.readAll(in));
    assertThrows(NullPointerException.class, () -> SoDB.registerHeader(null, false, 1f));
    assertThrows(NullPointerException.class, () -> SoDBHeaderCB.pre(null));
    SoDBHeaderCB post = SoDBHeaderCB.post((i, d) -> {});
    assertThrows(IllegalArgumentException.class,
        () -> SoDB.registerHeader("#Java Wrong Format 1.0", false, 1f, post, null, null));
    assertFalse(SoDB.isValidHeader("#Java Wrong Format 1.0"));
  }
}
