package com.orvexa.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.internal.DynamicTypeManager;
import com.orvexa.orvex.RealTimeManager;
import com.orvexa.orvex.SoDB;
import com.orvexa.testsupport.RuntimeProbe;
import java.lang.management.ManagementFactory;
import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

class StartupTest {
  @BeforeAll
  static void load() {
    RuntimeProbe.init();
  }

  @Test
  void debugTraceIsOffUnlessRequested() {
    assertEquals(0, RuntimeProbe.nativeDebugFlag());
  }

  @Test
  void toolkitVersionIsReported() {
    String version = SoDB.getVersion();
    assertNotNull(version);
    assertFalse(version.isBlank());
  }

  @Test
  void unknownTypeNamesAreResolvedByJavaHandlers() {
    List<String> asked = new CopyOnWriteArrayList<>();
    String timeType = RuntimeProbe.sfTimeTypeName();
    DynamicTypeManager.UnknownTypeHandler handler = name -> {
      asked.add(name);
      return name.equals("ProbeAliasOfTime") ? timeType : null;
    };
    DynamicTypeManager.addUnknownTypeHandler(handler);
    try {
      assertEquals(timeType, RuntimeProbe.typeNameFromName("ProbeAliasOfTime"));
      assertTrue(asked.contains("ProbeAliasOfTime"), asked.toString());
      asked.clear();
      assertNull(RuntimeProbe.typeNameFromName("ProbeNameNobodyKnows"), "a null answer leaves the bad type");
      assertTrue(asked.contains("ProbeNameNobodyKnows"), asked.toString());
    } finally {
      DynamicTypeManager.removeUnknownTypeHandler(handler);
    }
    assertNull(RuntimeProbe.typeNameFromName("ProbeAliasOfTime"), "no handler any more");
  }

  @Test
  void anExceptionOfAJavaHandlerReachesTheCallerAndTheTypeStaysUnknown() {
    DynamicTypeManager.UnknownTypeHandler handler = name -> {
      if (name.equals("ProbeNameThatFails")) throw new IllegalStateException("handler failed on " + name);
      return null;
    };
    DynamicTypeManager.addUnknownTypeHandler(handler);
    try {
      IllegalStateException e = assertThrows(IllegalStateException.class,
          () -> RuntimeProbe.typeNameFromName("ProbeNameThatFails"));
      assertEquals("handler failed on ProbeNameThatFails", e.getMessage());
      assertNull(RuntimeProbe.typeNameFromName("ProbeNameNobodyKnows"), "the next name is resolved as usual");
    } finally {
      DynamicTypeManager.removeUnknownTypeHandler(handler);
    }
  }

  public static final class WithInitialize {
    public int calls;

    public void initialize() {
      calls++;
    }
  }

  @Test
  void initializeRunsTheJavaMethodWhenTheClassHasOne() {
    WithInitialize target = new WithInitialize();
    assertEquals("", RuntimeProbe.runInitialize(target));
    assertEquals(1, target.calls);
    // Without the method only the lookup's own error is left pending.
    assertEquals("java.lang.NoSuchMethodError", RuntimeProbe.runInitialize(new Object()));
  }

  @Test
  void realTimeManagerDrivesTheTimerQueue() throws InterruptedException {
    assertTrue(RealTimeManager.isRunning());
    Thread driver = Thread.getAllStackTraces().keySet().stream()
        .filter(t -> t.getName().equals("Orvex-RealTimeManager")).findFirst().orElseThrow();
    assertTrue(driver.isDaemon());

    // The queue is not thread-safe: schedule only while nothing processes it.
    RealTimeManager.stop();
    assertFalse(RealTimeManager.isRunning());
    RuntimeProbe.startProbeTimer();
    try {
      int before = RuntimeProbe.probeTimerFires();
      Thread.sleep(50);
      assertEquals(before, RuntimeProbe.probeTimerFires(), "nothing fires while the manager is stopped");
      RealTimeManager.processTimerQueue();
      assertTrue(RuntimeProbe.probeTimerFires() > before, "one pass on the calling thread fires the due sensor");

      int started = RuntimeProbe.probeTimerFires();
      RealTimeManager.start();
      long deadline = System.nanoTime() + 5_000_000_000L;
      while (RuntimeProbe.probeTimerFires() < started + 3 && System.nanoTime() < deadline) Thread.sleep(5);
      RealTimeManager.stop();
      assertTrue(RuntimeProbe.probeTimerFires() >= started + 3, "the manager fires the timer repeatedly");
    } finally {
      RuntimeProbe.stopProbeTimer();
      RealTimeManager.start();
    }
  }

  @Test
  void realTimeClockIsHandedToJavaAndCanBeGivenBack() {
    // The field holds the start time (low 32 bits of the milliseconds, unsigned).
    long jvmStart = ManagementFactory.getRuntimeMXBean().getStartTime();
    long now = System.currentTimeMillis();
    double low = Integer.toUnsignedLong((int) jvmStart) / 1000.0;
    double high = Integer.toUnsignedLong((int) now) / 1000.0;
    double value = RuntimeProbe.realTimeFieldSeconds();
    if (low <= high) {  // no wrap of the 32-bit millisecond count in between
      assertTrue(value >= low - 0.001 && value <= high + 0.001, value + " not in [" + low + ", " + high + "]");
    }
    assertFalse(RuntimeProbe.realTimeSensorEnabled(), "the toolkit's own real-time sensor is off after start-up");
    RealTimeManager.stop();
    try {
      SoDB.restoreRealTimeUpdate();
      assertTrue(RuntimeProbe.realTimeSensorEnabled());
    } finally {
      RealTimeManager.start();
    }
  }
}
