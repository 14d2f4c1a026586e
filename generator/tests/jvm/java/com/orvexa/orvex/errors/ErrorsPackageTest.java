package com.orvexa.orvex.errors;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.Orvex;
import java.lang.reflect.Method;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Consumer;
import org.junit.jupiter.api.Test;

/** Posting toolkit errors from Java and routing them to Java handlers. */
class ErrorsPackageTest {
  @Test
  void debugErrorMessageIsFormattedByTheToolkit() {
    List<String> seen = new ArrayList<>();
    List<SoDebugError.Severities> severities = new ArrayList<>();
    SoError.setHandler(SoDebugError.class, e -> {
      seen.add(e.getDebugString());
      severities.add(e.getSeverity());
    });
    SoDebugError.post("ErrorsPackageTest", "value %d here");
    SoDebugError.postWarning("ErrorsPackageTest", "careful");
    assertEquals(2, seen.size());
    assertFalse(seen.get(0).contains("%d"), seen.get(0));
    assertTrue(seen.get(0).matches("(?s).*value -?\\d+ here.*"), seen.get(0));
    assertTrue(seen.get(0).contains("ErrorsPackageTest"), seen.get(0));
    assertEquals(List.of(SoDebugError.Severities.SERROR, SoDebugError.Severities.WARNING), severities);
  }

  @Test
  void lastInstalledHandlerWins() {
    List<String> first = new ArrayList<>();
    List<String> second = new ArrayList<>();
    SoError.setHandler(SoGLError.class, e -> first.add(e.getDebugString()));
    SoError.setHandler(SoGLError.class, e -> second.add(e.getErrorCode() + ":" + e.getDebugString()));
    SoGLError.post(1282, "ErrorsPackageTest", "invalid operation");
    assertEquals(0, first.size());
    assertEquals(1, second.size());
    assertTrue(second.get(0).startsWith("1282:"), second.get(0));
  }

  @Test
  void perClassRouteReplacesTheStartupRoute() {
    List<String> printed = new ArrayList<>();
    Consumer<String> previous = Orvex.setErrorListener(printed::add);
    try {
      SoReadError.postAt("scene.ovx", 12, "unexpected token");
      assertEquals(1, printed.size(), "start-up routes read errors to Orvex.printErrorMessage");
      List<String> handled = new ArrayList<>();
      SoError.setHandler(SoReadError.class, e -> handled.add(e.getDebugString()));
      SoReadError.postAt("scene.ovx", 13, "another");
      assertEquals(1, printed.size(), "the per-class route replaced the start-up route");
      assertEquals(1, handled.size());
      assertTrue(handled.get(0).contains("scene.ovx"), handled.get(0));
    } finally {
      Orvex.setErrorListener(previous);
    }
  }

  @Test
  void memoryErrorsAndTheCleanupHook() throws Exception {
    List<String> handled = new ArrayList<>();
    SoError.setHandler(SoMemoryError.class, e -> handled.add(e.getDebugString()));
    SoMemoryError.post("a 100% full buffer");  // plain text, not a format
    assertEquals(1, handled.size());
    assertTrue(handled.get(0).contains("100% full"), handled.get(0));

    List<Long> sizes = new ArrayList<>();
    SoMemoryError.setMemoryCleanupHandler(size -> {
      sizes.add(size);
      return size > 1000;
    });
    Method cleanup = Class.forName("com.orvexa.genprobe.GenProbeSupport")
        .getDeclaredMethod("toolkitMemoryCleanup", long.class);
    cleanup.setAccessible(true);
    assertEquals(true, cleanup.invoke(null, 4096L));
    assertEquals(false, cleanup.invoke(null, 10L));
    assertEquals(List.of(4096L, 10L), sizes);
  }

  @Test
  void plainErrorsStackAndTypes() {
    List<SoError> errors = new ArrayList<>();
    List<String> texts = new ArrayList<>();
    SoError.setHandler(SoError.class, e -> {
      errors.add(e);
      texts.add(e.getDebugString());
    });
    SoError.post("plain text");
    assertEquals(1, texts.size());
    assertEquals(0L, errors.get(0).getNativeResourceHandleInternal(), "the wrapper is released after the call");
    assertEquals("SoDebugError", new SoDebugError().getTypeId());
    assertEquals(SoDebugError.getClassTypeId(), new SoDebugError().getTypeId());
    assertFalse(SoErrorStack.getStack().isEmpty());
    List<String> stacks = new ArrayList<>();
    SoError.setHandler(SoErrorStack.class, e -> stacks.add(e.getDebugString()));
    SoErrorStack.post();
    assertEquals(1, stacks.size());
  }
}
