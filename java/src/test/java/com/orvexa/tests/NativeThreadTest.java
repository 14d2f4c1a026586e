package com.orvexa.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotSame;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.testsupport.RuntimeProbe;
import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

class NativeThreadTest {
  @BeforeAll
  static void load() {
    RuntimeProbe.init();
  }

  @Test
  void javaThreadGetsItsOwnEnvironment() {
    assertTrue(RuntimeProbe.envOfJavaThreadIsCallers());
  }

  @Test
  void freshNativeThreadIsAttachedOnceAsInternCallBack() {
    List<Thread> seen = new CopyOnWriteArrayList<>();
    assertTrue(RuntimeProbe.runOnNativeThread(() -> seen.add(Thread.currentThread()), 3),
        "every call on the native thread must get the same environment");
    assertEquals(3, seen.size());
    Thread attached = seen.get(0);
    assertSame(attached, seen.get(1));
    assertSame(attached, seen.get(2));
    assertNotSame(Thread.currentThread(), attached);
    assertEquals("Intern-CallBack", attached.getName());
    assertFalse(attached.isDaemon(), "attached as an ordinary thread");
    // Given back when the native thread ended, so it cannot hold up shutdown.
    assertFalse(attached.isAlive());
  }
}
