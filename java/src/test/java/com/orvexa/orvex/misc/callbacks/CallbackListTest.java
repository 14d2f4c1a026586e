package com.orvexa.orvex.misc.callbacks;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;

import com.orvexa.orvex.misc.SoCallbackList;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;

/** Java functions in a toolkit callback list. */
class CallbackListTest {
  @Test
  void functionsRunInOrderWithTheInvocationsDataAndTheirOwnUserData() {
    try (SoCallbackList list = new SoCallbackList()) {
      List<String> calls = new ArrayList<>();
      SoCallbackListCB first = new SoCallbackListCB((data, user) -> calls.add("first " + data + " " + user));
      SoCallbackListCB second = new SoCallbackListCB((data, user) -> calls.add("second " + data + " " + user));
      list.addCallback(first, "a");
      list.addCallback(second, "b");
      list.addCallback(first, "c");  // twice: called twice, with the latest user data
      assertEquals(3, list.getNumCallbacks());
      list.invokeCallbacks("x");
      assertEquals(List.of("first x c", "second x b", "first x c"), calls);

      calls.clear();
      list.removeCallback(first);
      list.invokeCallbacks(null);
      assertEquals(List.of("second null b", "first null c"), calls);
      list.removeCallback(new SoCallbackListCB((data, user) -> {}));  // never added: nothing
      assertEquals(2, list.getNumCallbacks());
    }
  }

  @Test
  void removingAndClearingGiveTheHoldsBack() {
    long references = NCallback.heldReferences();
    try (SoCallbackList list = new SoCallbackList()) {
      SoCallbackListCB cb = new SoCallbackListCB((data, user) -> {});
      for (int i = 0; i < 1000; i++) {
        list.addCallback(cb, null);
        list.removeCallback(cb);
      }
      assertEquals(references, NCallback.heldReferences(), "add/remove cycles leave no reference");
      list.addCallback(cb, null);
      list.addCallback(new SoCallbackListCB((data, user) -> {}), null);
      assertEquals(1, NCallback.holdCount(cb.nativeAddress()));
      list.clearCallbacks();
      assertEquals(0, list.getNumCallbacks());
      assertEquals(references, NCallback.heldReferences(), "a cleared list holds nothing");
      list.addCallback(cb, null);
    }
    // The freed list lets go of what it still held.
    assertEquals(references, NCallback.heldReferences());
  }

  @Test
  void anExceptionEndsThePassAndReachesTheCaller() {
    try (SoCallbackList list = new SoCallbackList()) {
      List<String> calls = new ArrayList<>();
      list.addCallback(new SoCallbackListCB((data, user) -> {
        throw new IllegalArgumentException("bad " + data);
      }), null);
      list.addCallback(new SoCallbackListCB((data, user) -> calls.add("after")), null);
      IllegalArgumentException e = assertThrows(IllegalArgumentException.class, () -> list.invokeCallbacks(7));
      assertEquals("bad 7", e.getMessage());
      assertEquals(List.of(), calls, "no function runs while the exception waits");
      // The list itself is unharmed.
      assertEquals(2, list.getNumCallbacks());
    }
  }

  @Test
  void nestedInvocationsHandEachFunctionItsOwnData() {
    try (SoCallbackList outer = new SoCallbackList(); SoCallbackList inner = new SoCallbackList()) {
      List<Object> seen = new ArrayList<>();
      inner.addCallback(new SoCallbackListCB((data, user) -> seen.add(data)), null);
      outer.addCallback(new SoCallbackListCB((data, user) -> {
        seen.add(data);
        inner.invokeCallbacks("inner");
        seen.add(data);
      }), null);
      outer.invokeCallbacks("outer");
      assertEquals(List.of("outer", "inner", "outer"), seen);
    }
  }

  @Test
  void misuseIsAJavaException() {
    SoCallbackList list = new SoCallbackList();
    assertThrows(NullPointerException.class, () -> list.addCallback(null, null));
    assertThrows(NullPointerException.class, () -> list.removeCallback(null));
    assertThrows(NullPointerException.class, () -> new SoCallbackListCB(null));
    list.dispose();
    assertThrows(IllegalStateException.class, () -> list.invokeCallbacks(null));
  }
}
