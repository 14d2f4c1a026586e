package com.orvexa.orvex.sensors;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.RealTimeManager;
import com.orvexa.orvex.SbTime;
import com.orvexa.orvex.SoDB;
import com.orvexa.orvex.SoPath;
import com.orvexa.orvex.misc.callbacks.SoSensorManagerCB;
import com.orvexa.orvex.nodes.SoCube;
import com.orvexa.orvex.nodes.SoSeparator;
import com.orvexa.orvex.nodes.SoSphere;
import java.lang.reflect.Method;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.concurrent.atomic.AtomicReference;
import org.junit.jupiter.api.AfterAll;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Nested;
import org.junit.jupiter.api.Test;

/**
 * Sensors created from Java fire their Java tasks. The suite processes the
 * database's queues itself (the RealTimeManager thread is stopped, except
 * where a case shows that it fires sensors without any pumping).
 */
class SensorsTest {
  private static SoSensorManager manager;

  @BeforeAll
  static void takeOverTheQueues() {
    RealTimeManager.stop();
    manager = SoDB.getSensorManager();
  }

  @AfterAll
  static void giveTheQueuesBack() {
    RealTimeManager.start();
  }

  @BeforeEach
  void emptyQueues() {
    manager.processDelayQueue(true);
  }

  @Nested
  class DataSensors {
    @Test
    void aFieldSensorFiresOnceForSeveralChanges() {
      SoSphere sphere = new SoSphere();
      AtomicInteger fired = new AtomicInteger();
      try (SoFieldSensor sensor = new SoFieldSensor(fired::incrementAndGet)) {
        sensor.attach(sphere.radius);
        for (int i = 1; i <= 5; i++) sphere.radius.setValue(i);
        assertTrue(sensor.isScheduled());
        assertEquals(0, fired.get(), "nothing fires before the queue is processed");
        manager.processDelayQueue(false);
        assertEquals(1, fired.get());
        manager.processDelayQueue(false);
        assertEquals(1, fired.get());
        sphere.radius.setValue(7f);
        manager.processDelayQueue(false);
        assertEquals(2, fired.get());
      }
    }

    @Test
    void anImmediateFieldSensorFiresDuringTheChangeWithItsTrigger() {
      SoSphere sphere = new SoSphere();
      List<Object> seen = new ArrayList<>();
      SoFieldSensor sensor = new SoFieldSensor();
      sensor.setTask(() -> {
        seen.add(sensor.getTriggerNode());
        seen.add(sensor.getTriggerField().getNativeResourceHandleInternal());
        seen.add(sphere.radius.getValue());
      });
      sensor.setPriority(0);
      sensor.attach(sphere.radius);
      sphere.radius.setValue(4.5f);
      assertEquals(3, seen.size(), "fired once, during setValue");
      assertSame(sphere, seen.get(0));
      assertEquals(sphere.radius.getNativeResourceHandleInternal(), seen.get(1));
      assertEquals(4.5f, seen.get(2));
      sensor.dispose();
    }

    @Test
    void aNodeSensorTellsWhichChildWasAdded() {
      SoSeparator group = new SoSeparator();
      group.addChild(new SoCube());
      SoSphere child = new SoSphere();
      AtomicReference<String> trigger = new AtomicReference<>();
      SoNodeSensor sensor = new SoNodeSensor();
      sensor.setTask(() -> trigger.set(sensor.getTriggerType() + " " + (sensor.getTriggerChild() == child) + " "
          + sensor.getTriggerChildIndex()));
      sensor.setPriority(0);
      sensor.attach(group);
      group.addChild(child);
      assertEquals("GROUPADDCHILD true 1", trigger.get());
      assertSame(group, sensor.getAttachedNode());
      sensor.dispose();
    }

    @Test
    void aNodeSensorFiresForAChangeBelowItsNode() {
      SoSeparator root = new SoSeparator();
      SoSeparator middle = new SoSeparator();
      SoSphere sphere = new SoSphere();
      root.addChild(middle);
      middle.addChild(sphere);
      AtomicInteger fired = new AtomicInteger();
      try (SoNodeSensor sensor = new SoNodeSensor(fired::incrementAndGet)) {
        sensor.attach(root);
        sphere.radius.setValue(2f);
        manager.processDelayQueue(false);
        assertEquals(1, fired.get());
      }
    }

    @Test
    void aPathSensorFiresForItsTailAndGivesTheTriggerPath() {
      SoSeparator root = new SoSeparator();
      SoSeparator middle = new SoSeparator();
      SoSphere sphere = new SoSphere();
      root.addChild(middle);
      middle.addChild(sphere);
      SoPath path = new SoPath(root);
      path.append(middle);
      path.append(sphere);
      List<String> seen = new ArrayList<>();
      SoPathSensor sensor = new SoPathSensor();
      sensor.setTask(() -> {
        SoPath trigger = sensor.getTriggerPath();
        seen.add(trigger == null ? "no path"
            : trigger.getLength() + " " + (trigger.getHead() == root) + " " + (trigger.getTail() == sphere));
      });
      sensor.setTriggerPathFlag(true);
      sensor.setPriority(0);
      sensor.attach(path);
      sphere.radius.setValue(3f);
      assertEquals(List.of("3 true true"), seen);
      assertSame(path, sensor.getAttachedPath());
      sensor.dispose();
    }

    @Test
    void noFiringAfterUnscheduleDetachOrDispose() {
      SoSphere sphere = new SoSphere();
      AtomicInteger fired = new AtomicInteger();
      SoFieldSensor sensor = new SoFieldSensor(fired::incrementAndGet);
      sensor.attach(sphere.radius);
      sphere.radius.setValue(2f);
      sensor.unschedule();
      assertFalse(sensor.isScheduled());
      manager.processDelayQueue(false);
      assertEquals(0, fired.get(), "unscheduled");

      sensor.detach();
      assertNull(sensor.getAttachedField());
      sphere.radius.setValue(3f);
      assertFalse(sensor.isScheduled());
      manager.processDelayQueue(false);
      assertEquals(0, fired.get(), "detached");

      sensor.attach(sphere.radius);
      sphere.radius.setValue(4f);
      sensor.dispose();
      manager.processDelayQueue(false);
      assertEquals(0, fired.get(), "disposed");
      assertThrows(IllegalStateException.class, sensor::schedule);
    }

    @Test
    void theFinalTaskRunsWhenTheWatchedNodeDies() {
      SoSphere sphere = new SoSphere();
      AtomicInteger finals = new AtomicInteger();
      try (SoNodeSensor sensor = new SoNodeSensor(() -> {})) {
        sensor.setFinalTask(finals::incrementAndGet);
        sensor.attach(sphere);
        sphere.dispose();  // the wrapper's reference was the only one
        assertEquals(1, finals.get());
        assertNull(sensor.getAttachedNode());
      }
    }

    @Test
    void anExceptionOfAnImmediateTaskReachesTheCodeThatMadeTheChange() {
      SoSphere sphere = new SoSphere();
      try (SoFieldSensor sensor = new SoFieldSensor(() -> {
        throw new IllegalStateException("sensor refused");
      })) {
        sensor.setPriority(0);
        sensor.attach(sphere.radius);
        IllegalStateException e = assertThrows(IllegalStateException.class, () -> sphere.radius.setValue(9f));
        assertEquals("sensor refused", e.getMessage());
        assertEquals(9f, sphere.radius.getValue(), "the change itself was made");
      }
    }
  }

  @Nested
  class DelayQueue {
    @Test
    void delaySensorsFireInPriorityOrder() {
      List<Integer> order = new ArrayList<>();
      List<SoOneShotSensor> sensors = new ArrayList<>();
      for (int priority : new int[] {50, 10, 200, 30}) {
        SoOneShotSensor s = new SoOneShotSensor(() -> order.add(priority));
        s.setPriority(priority);
        s.schedule();
        sensors.add(s);
      }
      manager.processDelayQueue(false);
      assertEquals(List.of(10, 30, 50, 200), order);
      sensors.forEach(SoSensor::dispose);
    }

    @Test
    void aOneShotSensorFiresOnceHoweverOftenScheduled() {
      AtomicInteger fired = new AtomicInteger();
      try (SoOneShotSensor sensor = new SoOneShotSensor(fired::incrementAndGet)) {
        sensor.schedule();
        sensor.schedule();
        assertTrue(manager.isDelaySensorPending());
        manager.processDelayQueue(false);
        manager.processDelayQueue(false);
        assertEquals(1, fired.get());
        assertFalse(sensor.isScheduled());
      }
    }

    @Test
    void anIdleSensorWaitsForAnIdlePass() {
      AtomicInteger fired = new AtomicInteger();
      try (SoIdleSensor sensor = new SoIdleSensor(fired::incrementAndGet)) {
        assertTrue(sensor.isIdleOnly());
        sensor.schedule();
        manager.processDelayQueue(false);
        assertEquals(0, fired.get());
        manager.processDelayQueue(true);
        assertEquals(1, fired.get());
      }
    }

    @Test
    void theChangedCallbackHearsOfTheQueueFilling() {
      AtomicInteger changes = new AtomicInteger();
      SoSensorManagerCB callback = new SoSensorManagerCB(changes::incrementAndGet);
      manager.setChangedCallback(callback);
      try (SoOneShotSensor sensor = new SoOneShotSensor(() -> {})) {
        sensor.schedule();
        assertTrue(changes.get() >= 1, "told when the delay queue became non-empty");
        int before = changes.get();
        manager.processDelayQueue(false);
        assertTrue(changes.get() > before, "told when it became empty");
      } finally {
        manager.setChangedCallback(null);
      }
      int after = changes.get();
      try (SoOneShotSensor sensor = new SoOneShotSensor(() -> {})) {
        sensor.schedule();
        manager.processDelayQueue(false);
      }
      assertEquals(after, changes.get(), "removed: not called any more");
    }
  }

  @Nested
  class TimerQueue {
    @Test
    void anAlarmFiresOnceAfterItsTime() throws InterruptedException {
      AtomicInteger fired = new AtomicInteger();
      try (SoAlarmSensor alarm = new SoAlarmSensor(fired::incrementAndGet)) {
        alarm.setTimeFromNow(new SbTime(0.2));
        alarm.schedule();
        assertTrue(manager.isTimerSensorPending());
        manager.processTimerQueue();
        assertEquals(0, fired.get(), "not before its time");
        Thread.sleep(300);
        manager.processTimerQueue();
        manager.processTimerQueue();
        assertEquals(1, fired.get());
        assertFalse(alarm.isScheduled());
      }
    }

    @Test
    void aTimerFiresRepeatedlyUntilUnscheduled() throws InterruptedException {
      AtomicInteger fired = new AtomicInteger();
      try (SoTimerSensor timer = new SoTimerSensor(fired::incrementAndGet)) {
        timer.setInterval(new SbTime(0.01));
        timer.schedule();
        long end = System.nanoTime() + TimeUnit.MILLISECONDS.toNanos(300);
        while (System.nanoTime() < end) {
          manager.processTimerQueue();
          Thread.sleep(5);
        }
        int count = fired.get();
        assertTrue(count >= 5, "fired " + count + " times in 300 ms at a 10 ms interval");
        timer.unschedule();
        Thread.sleep(50);
        manager.processTimerQueue();
        assertEquals(count, fired.get());
      }
    }

    @Test
    void aDisposedAlarmNeverFires() throws InterruptedException {
      AtomicInteger fired = new AtomicInteger();
      SoAlarmSensor alarm = new SoAlarmSensor(fired::incrementAndGet);
      alarm.setTimeFromNow(new SbTime(0.01));
      alarm.schedule();
      alarm.dispose();
      Thread.sleep(50);
      manager.processTimerQueue();
      assertEquals(0, fired.get());
    }
  }

  @Test
  void sensorsFireWithoutPumpingOnTheRealTimeManagerThread() throws InterruptedException {
    SoSphere sphere = new SoSphere();
    CountDownLatch fired = new CountDownLatch(2);
    AtomicReference<String> fieldThread = new AtomicReference<>();
    AtomicReference<String> idleThread = new AtomicReference<>();
    try (SoFieldSensor sensor = new SoFieldSensor(); SoIdleSensor idle = new SoIdleSensor()) {
      sensor.setTask(() -> {
        fieldThread.set(Thread.currentThread().getName());
        fired.countDown();
      });
      idle.setTask(() -> {
        idleThread.set(Thread.currentThread().getName());
        fired.countDown();
      });
      sensor.attach(sphere.radius);
      RealTimeManager.start();
      try {
        sphere.radius.setValue(5f);
        idle.schedule();
        assertTrue(fired.await(5, TimeUnit.SECONDS), "both fired");
      } finally {
        RealTimeManager.stop();
      }
    }
    assertEquals("Orvex-RealTimeManager", fieldThread.get());
    assertEquals("Orvex-RealTimeManager", idleThread.get());
  }

  @Test
  void aFailingTaskOnTheRealTimeManagerThreadDoesNotKeepTheNextSensorsFromFiring() throws InterruptedException {
    CountDownLatch later = new CountDownLatch(1);
    List<Throwable> reported = new java.util.concurrent.CopyOnWriteArrayList<>();
    try (SoOneShotSensor failing = new SoOneShotSensor(() -> {
      Thread.currentThread().setUncaughtExceptionHandler((thread, e) -> reported.add(e));
      throw new IllegalStateException("first task failed");
    }); SoOneShotSensor next = new SoOneShotSensor(later::countDown)) {
      failing.setPriority(1);
      next.setPriority(2);
      failing.schedule();
      next.schedule();
      RealTimeManager.start();
      try {
        assertTrue(later.await(5, TimeUnit.SECONDS), "the next sensor of the pass fired");
      } finally {
        RealTimeManager.stop();
      }
    }
    assertEquals(1, reported.size());
    assertEquals("first task failed", reported.get(0).getMessage());
  }

  @Test
  void aFailingChangedCallbackOnTheRealTimeManagerThreadDoesNotLoseTheNextSensors() throws InterruptedException {
    CountDownLatch later = new CountDownLatch(1);
    List<Throwable> reported = new java.util.concurrent.CopyOnWriteArrayList<>();
    SbTime timeout = manager.getDelaySensorTimeout();
    manager.setChangedCallback(new SoSensorManagerCB(() -> {
      if (RealTimeManager.isCurrentThread()) throw new IllegalStateException("changed callback failed");
    }));
    try (SoOneShotSensor delayed = new SoOneShotSensor(() ->
             Thread.currentThread().setUncaughtExceptionHandler((thread, e) -> reported.add(e)));
         SoAlarmSensor alarm = new SoAlarmSensor(later::countDown)) {
      // The timer pass first meets the delay sensor timeout, which empties the
      // delay queue and calls the changed callback (failing) from native code
      // in the middle of the pass; the alarm due after it must still fire.
      manager.setDelaySensorTimeout(new SbTime(0.01));
      delayed.schedule();
      alarm.setTimeFromNow(new SbTime(0.05));
      alarm.schedule();
      Thread.sleep(200);
      RealTimeManager.start();
      try {
        assertTrue(later.await(5, TimeUnit.SECONDS), "the alarm due after the failing callback fired");
      } finally {
        RealTimeManager.stop();
        manager.setChangedCallback(null);
        manager.setDelaySensorTimeout(timeout);
      }
    }
    assertFalse(reported.isEmpty());
    assertEquals("changed callback failed", reported.get(0).getMessage());
  }

  @Test
  void replacingTheChangedCallbackWhileSensorsFireOnTheQueueThreadIsSafe() throws InterruptedException {
    AtomicInteger changes = new AtomicInteger();
    AtomicInteger fired = new AtomicInteger();
    Thread replacer = new Thread(() -> {
      for (int i = 0; i < 20_000; i++) {
        manager.setChangedCallback(i % 50 == 49 ? null : new SoSensorManagerCB(changes::incrementAndGet));
        if (i % 1000 == 0) System.gc();
      }
    });
    RealTimeManager.start(1);
    try {
      replacer.start();
      while (replacer.isAlive()) {
        try (SoOneShotSensor sensor = new SoOneShotSensor(fired::incrementAndGet)) {
          sensor.schedule();
          Thread.sleep(1);
        }
      }
      replacer.join();
    } finally {
      RealTimeManager.stop();
      manager.setChangedCallback(null);
    }
    assertTrue(fired.get() > 0, "sensors fired meanwhile");
    assertTrue(changes.get() > 0, "the changed callbacks were called meanwhile");
  }

  @Test
  void sensorsDroppedOrDisposedOnOtherThreadsWhileTheQueueThreadFiresThemAreNotFreedUnderIt()
      throws InterruptedException {
    AtomicInteger fired = new AtomicInteger();
    List<SoSensor> toDispose = new java.util.concurrent.CopyOnWriteArrayList<>();
    java.util.concurrent.atomic.AtomicBoolean done = new java.util.concurrent.atomic.AtomicBoolean();
    // Disposes from a thread of its own, as a program could, while the
    // queue thread pops and fires.
    Thread disposer = new Thread(() -> {
      while (!done.get() || !toDispose.isEmpty()) {
        for (SoSensor sensor : toDispose) {
          sensor.dispose();
          toDispose.remove(sensor);
        }
        Thread.onSpinWait();
      }
    });
    RealTimeManager.start(1);
    disposer.start();
    try {
      for (int i = 0; i < 4000; i++) {
        SoOneShotSensor oneShot = new SoOneShotSensor(fired::incrementAndGet);
        oneShot.schedule();
        // Each field sensor watches a node of its own, changed only here:
        // the change reaches the sensor in the delay queue, not a sensor
        // being deleted meanwhile.
        SoSphere sphere = new SoSphere();
        SoFieldSensor field = new SoFieldSensor(fired::incrementAndGet);
        field.attach(sphere.radius);
        sphere.radius.setValue(i);
        if (i % 2 == 0) {
          toDispose.add(oneShot);
          toDispose.add(field);
        }
        // The odd ones are dropped: the Cleaner deletes them.
        if (i % 200 == 0) System.gc();
      }
      done.set(true);
      disposer.join();
      System.gc();
      Thread.sleep(50);
    } finally {
      done.set(true);
      RealTimeManager.stop();
    }
    assertTrue(fired.get() > 0, "sensors fired while others went");
    // The process is alive, and the queues still work.
    AtomicInteger after = new AtomicInteger();
    try (SoOneShotSensor sensor = new SoOneShotSensor(after::incrementAndGet)) {
      sensor.schedule();
      manager.processDelayQueue(false);
    }
    assertEquals(1, after.get());
  }

  @Test
  void theDatabaseManagerIsOneObjectAndItsTimeoutCrossesAsSbTime() {
    assertSame(manager, SoDB.getSensorManager());
    SbTime timeout = manager.getDelaySensorTimeout();
    assertNotNull(timeout);
    try (SoSensorManager own = new SoSensorManager()) {
      own.setDelaySensorTimeout(new SbTime(0.25));
      assertEquals(0.25, own.getDelaySensorTimeout().getValue(), 1e-9);
      assertFalse(own.isDelaySensorPending());
      assertFalse(own.isTimerSensorPending());
      assertThrows(NullPointerException.class, () -> own.setDelaySensorTimeout(null));
    }
  }

  @Test
  void releasingTheNullHandleDoesNothing() throws ReflectiveOperationException {
    for (Class<?> handles : new Class<?>[] {SoSensor.NativeResourceHandle.class,
        SoSensorManager.NativeResourceHandle.class}) {
      Method delete = handles.getDeclaredMethod("deleteNativeHandleImpl", long.class);
      delete.setAccessible(true);
      delete.invoke(null, 0L);
    }
    // The process is still alive and the sensors work.
    AtomicInteger fired = new AtomicInteger();
    try (SoOneShotSensor sensor = new SoOneShotSensor(fired::incrementAndGet)) {
      sensor.schedule();
      manager.processDelayQueue(false);
    }
    assertEquals(1, fired.get());
  }

  @Test
  void nullsAndDisposedObjectsAreRefused() {
    try (SoFieldSensor sensor = new SoFieldSensor()) {
      assertThrows(NullPointerException.class, () -> sensor.attach(null));
    }
    SoOneShotSensor gone = new SoOneShotSensor(() -> {});
    gone.dispose();
    assertThrows(IllegalStateException.class, () -> gone.setTask(() -> {}));
    assertThrows(IllegalStateException.class, () -> gone.setPriority(3));
  }

}
