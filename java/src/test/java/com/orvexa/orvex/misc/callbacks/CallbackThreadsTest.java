package com.orvexa.orvex.misc.callbacks;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.actions.SoCallbackAction;
import com.orvexa.orvex.nodes.SoSeparator;
import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.util.IdentityHashMap;
import java.util.Map;
import java.util.Set;
import java.util.concurrent.ConcurrentHashMap;
import java.util.concurrent.atomic.AtomicInteger;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

/**
 * Java callbacks called by the toolkit on native threads, which the binding
 * attaches to the virtual machine on their first callback and keeps
 * attached: eight threads traverse at once, each delivering every triangle,
 * each seen by Java as one thread for all its calls; an exception thrown on
 * such a thread is printed and cleared, and the traversal goes on.
 */
class CallbackThreadsTest {
  private static final int THREADS = 8;
  private static final int REPETITIONS = 200;
  private static final int CUBE_TRIANGLES = 12;

  @BeforeAll
  static void load() {
    CallbackProbe.init();
  }

  /** One traversal per thread, each with its own action, scene and triangle callback. */
  private static final class Workers {
    final SoCallbackAction[] actions = new SoCallbackAction[THREADS];
    final SoSeparator[] roots = new SoSeparator[THREADS];
    final AtomicInteger[] triangles = new AtomicInteger[THREADS];
    /** The Java threads each worker's calls came from. */
    final Map<Integer, Set<Thread>> threads = new ConcurrentHashMap<>();

    Workers(int throwEvery) {
      for (int i = 0; i < THREADS; i++) {
        final int worker = i;
        triangles[i] = new AtomicInteger();
        threads.put(i, ConcurrentHashMap.newKeySet());
        actions[i] = new SoCallbackAction();
        roots[i] = CallbacksTest.cubeScene(1, 1, 1);
        actions[i].addTriangleCallback("Cube", new SoTriangleCB((action, v1, v2, v3, data) -> {
          threads.get(worker).add(Thread.currentThread());
          int n = triangles[worker].incrementAndGet();
          if (throwEvery > 0 && n % throwEvery == 0) throw new IllegalStateException("worker " + data + " refused " + n);
        }), worker);
      }
    }

    void run() {
      long[] actionAddresses = new long[THREADS];
      long[] rootAddresses = new long[THREADS];
      for (int i = 0; i < THREADS; i++) {
        actionAddresses[i] = actions[i].getNativeResourceHandleInternal();
        rootAddresses[i] = roots[i].getNativeResourceHandleInternal();
      }
      CallbackProbe.applyOnNativeThreads(actionAddresses, rootAddresses, REPETITIONS);
      for (SoCallbackAction action : actions) action.dispose();
    }
  }

  @Test
  void eightNativeThreadsDeliverEveryTriangleEachAttachedOnce() {
    Workers workers = new Workers(0);
    workers.run();
    Map<Thread, Integer> owners = new IdentityHashMap<>();
    for (int i = 0; i < THREADS; i++) {
      assertEquals(REPETITIONS * CUBE_TRIANGLES, workers.triangles[i].get(), "triangles of worker " + i);
      Set<Thread> seen = workers.threads.get(i);
      assertEquals(1, seen.size(), "worker " + i + " is one Java thread for all its calls");
      Thread thread = seen.iterator().next();
      assertEquals("Intern-CallBack", thread.getName());
      assertEquals(null, owners.put(thread, i), "each worker has a thread of its own");
    }
  }

  @Test
  void exceptionsOnNativeThreadsArePrintedAndClearedAndTheTraversalsGoOn() {
    Workers workers = new Workers(100);
    PrintStream original = System.err;
    ByteArrayOutputStream bytes = new ByteArrayOutputStream();
    System.setErr(new PrintStream(bytes, true, StandardCharsets.UTF_8));
    try {
      workers.run();
    } finally {
      System.setErr(original);
    }
    String printed = bytes.toString(StandardCharsets.UTF_8);
    int expectedPerWorker = REPETITIONS * CUBE_TRIANGLES / 100;
    for (int i = 0; i < THREADS; i++) {
      // Every triangle still arrived after the failed ones...
      assertEquals(REPETITIONS * CUBE_TRIANGLES, workers.triangles[i].get(), "triangles of worker " + i);
      // ...and each exception was described once.
      String mark = "java.lang.IllegalStateException: worker " + i + " refused ";
      int count = 0;
      for (int at = printed.indexOf(mark); at >= 0; at = printed.indexOf(mark, at + 1)) count++;
      assertEquals(expectedPerWorker, count, "exceptions printed for worker " + i);
    }
    assertTrue(printed.contains("at com.orvexa.orvex.misc.callbacks"), "with the stack trace");
  }
}
