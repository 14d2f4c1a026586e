package com.orvexa.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.testsupport.RuntimeProbe;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Tag;
import org.junit.jupiter.api.Test;

class ExceptionHelperTest {
  @BeforeAll
  static void load() {
    RuntimeProbe.init();
  }

  @Test
  void illegalArgumentIsThrownWithTheMessage() {
    try (StderrCapture err = new StderrCapture()) {
      IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
          () -> RuntimeProbe.throwIllegalArgument("bad value", false));
      assertEquals("bad value", e.getMessage());
      assertFalse(err.text().contains("pending exception"));
    }
  }

  @Test
  void illegalArgumentDescribesAndReplacesAPendingException() {
    try (StderrCapture err = new StderrCapture()) {
      IllegalArgumentException e = assertThrows(IllegalArgumentException.class,
          () -> RuntimeProbe.throwIllegalArgument("replacement", true));
      assertEquals("replacement", e.getMessage());
      String described = err.text();
      assertTrue(described.contains("java.lang.IllegalStateException: the pending exception"), described);
    }
  }

  @Test
  void illegalAccessIsThrownWithTheMessage() {
    IllegalAccessException e = assertThrows(IllegalAccessException.class,
        () -> RuntimeProbe.throwIllegalAccess("Call of protected methods not allowed.", false));
    assertEquals("Call of protected methods not allowed.", e.getMessage());
  }

  @Test
  void illegalAccessWithoutEnvironmentUsesTheCallingThread() {
    IllegalAccessException e = assertThrows(IllegalAccessException.class,
        () -> RuntimeProbe.throwIllegalAccessOnCurrentThread("no env at hand"));
    assertEquals("no env at hand", e.getMessage());
  }

  /**
   * Makes JNI calls with an exception pending on purpose, which the JNI
   * checker reports: run by a suite without -Xcheck:jni.
   */
  @Test
  @Tag("pending-exception-calls")
  void illegalAccessNeitherDescribesNorClearsAPendingException() {
    try (StderrCapture err = new StderrCapture()) {
      // The new exception is thrown over the pending one, which is never printed.
      IllegalAccessException e = assertThrows(IllegalAccessException.class,
          () -> RuntimeProbe.throwIllegalAccess("access", true));
      assertEquals("access", e.getMessage());
      assertFalse(err.text().contains("the pending exception"), err.text());
    }
  }
}
