package com.orvexa.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.internal.DynamicTypeManager;
import com.orvexa.orvex.errors.SoDebugError;
import com.orvexa.orvex.errors.SoError;
import com.orvexa.orvex.errors.SoMemoryError;
import com.orvexa.testsupport.RuntimeProbe;
import java.util.List;
import java.util.Set;
import java.util.concurrent.ConcurrentHashMap;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.concurrent.atomic.AtomicIntegerArray;
import java.util.concurrent.atomic.AtomicLongArray;
import java.util.function.Consumer;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

/**
 * Toolkit errors and the other upcalls of the bridge on native threads and
 * on Java threads: every error arrives, an exception of a Java handler is
 * printed and cleared where no Java caller can see it and reaches the Java
 * caller where there is one, and the JNI checker has nothing to say (the
 * suite runs under -Xcheck:jni and fails on any warning of it).
 */
class ErrorUpcallTest {
  private static final int THREADS = 8;
  private static final int PER_THREAD = 10_000;
  private static final Pattern NUMBERED = Pattern.compile("error (\\d+) of thread (\\d+)$");

  @BeforeAll
  static void load() {
    ErrorUpcallProbe.init();
  }

  @AfterEach
  void restore() {
    // The debug errors keep coming to Java, and are printed there.
    SoError.setHandler(SoDebugError.class, null);
  }

  /** Counts the numbered errors per posting thread, and sums their indices. */
  private static final class Tally {
    final AtomicIntegerArray counts = new AtomicIntegerArray(THREADS);
    final AtomicLongArray indexSums = new AtomicLongArray(THREADS);
    final List<String> unexpected = new CopyOnWriteArrayList<>();
    final Set<String> threadNames = ConcurrentHashMap.newKeySet();

    /** Records the error; answers its index, or -1 when the text is not a numbered error. */
    int record(String text) {
      threadNames.add(Thread.currentThread().getName());
      Matcher m = NUMBERED.matcher(text);
      if (!m.find()) {
        unexpected.add(text);
        return -1;
      }
      int index = Integer.parseInt(m.group(1));
      int thread = Integer.parseInt(m.group(2));
      counts.incrementAndGet(thread);
      indexSums.addAndGet(thread, index);
      return index;
    }

    /** Every thread delivered each of its indices 0..perThread-1 once. */
    void assertComplete(int threads, int perThread) {
      assertEquals(List.of(), unexpected);
      long expectedSum = (long) perThread * (perThread - 1) / 2;
      for (int t = 0; t < threads; t++) {
        assertEquals(perThread, counts.get(t), "errors of thread " + t);
        assertEquals(expectedSum, indexSums.get(t), "indices of thread " + t);
      }
    }
  }

  private static int occurrences(String text, String piece) {
    int count = 0;
    for (int at = text.indexOf(piece); at >= 0; at = text.indexOf(piece, at + piece.length())) count++;
    return count;
  }

  @Test
  void everyErrorOfEightNativeThreadsReachesTheHandler() {
    Tally tally = new Tally();
    SoError.setHandler(SoDebugError.class, error -> tally.record(error.getDebugString()));
    ErrorUpcallProbe.postOnNativeThreads(ErrorUpcallProbe.DEBUG, THREADS, PER_THREAD);
    tally.assertComplete(THREADS, PER_THREAD);
    assertEquals(Set.of("Intern-CallBack"), tally.threadNames);
  }

  @Test
  void handlerExceptionsOnNativeThreadsArePrintedAndClearedAndTheThreadsGoOn() {
    Tally tally = new Tally();
    SoError.setHandler(SoDebugError.class, error -> {
      String text = error.getDebugString();
      int index = tally.record(text);
      if (index % 100 == 0) throw new IllegalStateException("handler failed on " + text);
    });
    String printed;
    try (StderrCapture err = new StderrCapture()) {
      ErrorUpcallProbe.postOnNativeThreads(ErrorUpcallProbe.DEBUG, THREADS, PER_THREAD);
      printed = err.text();
    }
    // Every error after a failed one still arrived...
    tally.assertComplete(THREADS, PER_THREAD);
    // ...and each exception was described once on the Java standard error.
    assertEquals(THREADS * PER_THREAD / 100,
        occurrences(printed, "java.lang.IllegalStateException: handler failed on "),
        () -> printed.substring(0, Math.min(2000, printed.length())));
  }

  @Test
  void aHandlerExceptionOnAJavaThreadReachesTheJavaCaller() {
    AtomicInteger calls = new AtomicInteger();
    SoError.setHandler(SoDebugError.class, error -> {
      calls.incrementAndGet();
      throw new IllegalStateException("handler failed on " + error.getDebugString());
    });
    // Three errors in one native call: once the first handler has thrown, the
    // exception waits for the caller, and the other two do not call Java.
    IllegalStateException e = assertThrows(IllegalStateException.class,
        () -> ErrorUpcallProbe.postOnCallingThread(ErrorUpcallProbe.DEBUG, 3));
    assertTrue(e.getMessage().endsWith("error 0 of thread 0"), e.getMessage());
    assertEquals(1, calls.get());

    // The thread is clean again for the next native call.
    Tally tally = new Tally();
    SoError.setHandler(SoDebugError.class, error -> tally.record(error.getDebugString()));
    ErrorUpcallProbe.postOnCallingThread(ErrorUpcallProbe.DEBUG, 5);
    tally.assertComplete(1, 5);
    assertEquals(Set.of(Thread.currentThread().getName()), tally.threadNames);
  }

  @Test
  void aHandlerExceptionReachesAJavaHandlerBelowItOnANativeThread() {
    List<String> caught = new CopyOnWriteArrayList<>();
    SoError.setHandler(SoDebugError.class, error -> {
      String text = error.getDebugString();
      if (text.endsWith("outer")) {
        // The handler itself posts an error, whose handler throws: the
        // exception belongs to this Java frame.
        try {
          ErrorUpcallProbe.postDebugErrorFromJava("NestedPoster", "inner");
        } catch (IllegalStateException e) {
          caught.add(e.getMessage());
        }
      } else {
        throw new IllegalStateException("inner handler failed on " + text);
      }
    });
    String printed;
    try (StderrCapture err = new StderrCapture()) {
      RuntimeProbe.postDebugErrorOnNativeThread("outer");
      printed = err.text();
    }
    assertEquals(List.of("inner handler failed on Orvex error in NestedPoster(): inner"), caught);
    assertFalse(printed.contains("inner handler failed"), printed);
  }

  @Test
  void anErrorKeptByTheHandlerIsDisposedWhenTheHandlerReturns() {
    List<SoDebugError> kept = new CopyOnWriteArrayList<>();
    List<Long> addressesDuringTheCall = new CopyOnWriteArrayList<>();
    SoError.setHandler(SoDebugError.class, error -> {
      kept.add(error);
      addressesDuringTheCall.add(error.getNativeResourceHandleInternal());
    });
    ErrorUpcallProbe.postOnCallingThread(ErrorUpcallProbe.DEBUG, 1);
    ErrorUpcallProbe.postOnNativeThreads(ErrorUpcallProbe.DEBUG, 1, 1);
    assertEquals(2, kept.size());
    for (int i = 0; i < 2; i++) {
      assertTrue(addressesDuringTheCall.get(i) != 0L, "valid during the call");
      // The native error lived on the poster's stack: the wrapper lets go of it.
      assertTrue(kept.get(i).getNativeResourceHandle().isReleased(), "released after the call");
      assertEquals(0L, kept.get(i).getNativeResourceHandleInternal());
    }
  }

  @Test
  void unknownTypeHandlerExceptionsOnANativeThreadArePrintedAndCleared() {
    String timeType = RuntimeProbe.sfTimeTypeName();
    DynamicTypeManager.UnknownTypeHandler handler = name -> {
      if (name.equals("ProbeNameThatFailsNatively")) throw new IllegalStateException("type handler failed on " + name);
      return name.equals("ProbeAliasOfTimeNatively") ? timeType : null;
    };
    DynamicTypeManager.addUnknownTypeHandler(handler);
    try {
      try (StderrCapture err = new StderrCapture()) {
        assertNull(ErrorUpcallProbe.typeNameFromNameOnNativeThread("ProbeNameThatFailsNatively"));
        assertTrue(err.text().contains("type handler failed on ProbeNameThatFailsNatively"), err.text());
      }
      assertEquals(timeType, ErrorUpcallProbe.typeNameFromNameOnNativeThread("ProbeAliasOfTimeNatively"));
    } finally {
      DynamicTypeManager.removeUnknownTypeHandler(handler);
    }
  }

  @Test
  void memoryCleanupExceptionsFollowTheSameRules() {
    SoMemoryError.setMemoryCleanupHandler(size -> {
      if (size == 13) throw new IllegalStateException("cleanup failed for " + size);
      return size == 42;
    });
    try {
      assertTrue(ErrorUpcallProbe.memoryCleanupOnNativeThread(42));
      assertFalse(ErrorUpcallProbe.memoryCleanupOnNativeThread(7));
      try (StderrCapture err = new StderrCapture()) {
        assertFalse(ErrorUpcallProbe.memoryCleanupOnNativeThread(13), "a failed hook released nothing");
        assertTrue(err.text().contains("cleanup failed for 13"), err.text());
      }
      IllegalStateException e = assertThrows(IllegalStateException.class,
          () -> ErrorUpcallProbe.memoryCleanupOnCallingThread(13));
      assertEquals("cleanup failed for 13", e.getMessage());
      assertTrue(ErrorUpcallProbe.memoryCleanupOnCallingThread(42));
    } finally {
      SoMemoryError.setMemoryCleanupHandler(null);
    }
  }

  @Test
  void javaMessagesAreFormattedSafely() {
    List<String> texts = new CopyOnWriteArrayList<>();
    Consumer<SoDebugError> handler = error -> texts.add(error.getDebugString());
    SoError.setHandler(SoDebugError.class, handler);
    ErrorUpcallProbe.postDebugErrorFromJava("SoFoo::bar",
        "%s %n %p %1$s %*s %.*s %ls %S %Lf %f %c [%d] [%5.3lld] [%-+ 0#'5.3lld] 100% %");
    ErrorUpcallProbe.postDebugErrorFromJava("SoFoo::bar", "%d".repeat(100));
    ErrorUpcallProbe.postDebugErrorFromJava("SoFoo::bar", "%999999999d|%.999999999x");
    ErrorUpcallProbe.postDebugErrorFromJava(null, null);
    assertEquals(List.of(
        "Orvex error in SoFoo::bar(): %s %n %p %1$s %*s %.*s %ls %S %Lf %f %c [0] [  000] [%-+ 0#'5.3lld] 100% %",
        "Orvex error in SoFoo::bar(): " + "0".repeat(32) + "%d".repeat(68),
        "Orvex error in SoFoo::bar(): %999999999d|%.999999999x",
        "Orvex error: "), texts);
  }

  @Test
  void thePublicPostFunctionsFormatJavaMessagesSafely() {
    List<String> texts = new CopyOnWriteArrayList<>();
    SoError.setHandler(SoDebugError.class, error -> texts.add(error.getDebugString()));
    SoDebugError.post("SoFoo::bar", "m %s %n %p [%d] %");
    SoDebugError.postWarning("SoFoo::bar", "%1$s %*.*s [%x]");
    SoDebugError.postInfo("SoFoo::bar", "%ls %Lf %999999999d [%03u]");
    assertEquals(List.of(
        "Orvex error in SoFoo::bar(): m %s %n %p [0] %",
        "Orvex warning in SoFoo::bar(): %1$s %*.*s [0]",
        "Orvex info in SoFoo::bar(): %ls %Lf %999999999d [000]"), texts);
  }
}
