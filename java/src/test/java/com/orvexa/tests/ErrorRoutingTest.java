package com.orvexa.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.Orvex;
import com.orvexa.testsupport.RuntimeProbe;
import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.function.Consumer;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;

class ErrorRoutingTest {
  private final List<String> messages = new CopyOnWriteArrayList<>();
  private final List<String> threads = new CopyOnWriteArrayList<>();
  private Consumer<String> previous;

  @BeforeAll
  static void load() {
    RuntimeProbe.init();
  }

  @BeforeEach
  void listen() {
    previous = Orvex.setErrorListener(message -> {
      messages.add(message);
      threads.add(Thread.currentThread().getName());
    });
  }

  @AfterEach
  void restore() {
    Orvex.setErrorListener(previous);
  }

  @Test
  void readErrorOnANativeThreadReachesPrintErrorMessage() {
    RuntimeProbe.postReadErrorOnNativeThread("probe read failure 41");
    assertEquals(1, messages.size(), messages.toString());
    assertTrue(messages.get(0).contains("probe read failure 41"), messages.get(0));
    assertEquals("Intern-CallBack", threads.get(0));
  }

  @Test
  void debugErrorOnANativeThreadKeepsTheToolkitsOwnReporting() {
    assertTrue(RuntimeProbe.debugAndPlainErrorsUseTheToolkitHandler(), "start-up left them to the toolkit");
    RuntimeProbe.postDebugErrorOnNativeThread("probe debug report 42");
    RuntimeProbe.postDebugError("probe debug report 43");
    assertEquals(List.of(), messages);
  }

  @Test
  void glAndMemoryErrorsAreRoutedAndPlainErrorsAreNot() {
    RuntimeProbe.postGLError("probe gl failure");
    RuntimeProbe.postMemoryError("probe buffer");
    RuntimeProbe.postReadError("probe read failure");
    RuntimeProbe.postPlainError("probe plain error");
    assertEquals(3, messages.size(), messages.toString());
    assertTrue(messages.get(0).contains("probe gl failure"), messages.get(0));
    assertTrue(messages.get(1).contains("probe buffer"), messages.get(1));
    assertTrue(messages.get(2).contains("probe read failure"), messages.get(2));
    assertEquals(List.of(Thread.currentThread().getName()), threads.subList(0, 1));
  }

  @Test
  void theDefaultListenerPrintsOnTheCurrentStandardError() {
    Orvex.setErrorListener(null);
    try (StderrCapture err = new StderrCapture()) {
      RuntimeProbe.postReadError("probe read failure 45");
      assertTrue(err.text().contains("probe read failure 45"), err.text());
    }
  }

  @Test
  void readErrorsOfEightNativeThreadsAllReachTheListener() {
    ErrorUpcallProbe.postOnNativeThreads(ErrorUpcallProbe.READ, 8, 1_000);
    assertEquals(8_000, messages.size());
    for (int thread = 0; thread < 8; thread++) {
      // A read error's text goes on with the line where it occurred.
      String poster = " of thread " + thread + "\n";
      assertEquals(1_000, messages.stream().filter(m -> m.contains(poster)).count(), poster);
    }
    assertEquals(List.of("Intern-CallBack"), threads.stream().distinct().toList());
  }

  @Test
  void aListenerExceptionOnANativeThreadIsPrintedAndClearedAndTheNextErrorArrives() {
    Orvex.setErrorListener(message -> {
      messages.add(message);
      throw new IllegalStateException("listener failed on " + message);
    });
    String printed;
    try (StderrCapture err = new StderrCapture()) {
      ErrorUpcallProbe.postOnNativeThreads(ErrorUpcallProbe.READ, 1, 3);
      printed = err.text();
    }
    assertEquals(3, messages.size(), messages.toString());
    for (int index = 0; index < 3; index++) {
      String expected = "error " + index + " of thread 0\n";
      assertTrue(messages.get(index).contains(expected), messages.get(index));
      assertTrue(printed.contains("java.lang.IllegalStateException: listener failed on " + messages.get(index)), printed);
    }
  }

  @Test
  void anExceptionOfTheListenerReachesTheJavaCaller() {
    Orvex.setErrorListener(message -> {
      throw new IllegalStateException("listener failed on " + message);
    });
    IllegalStateException e = assertThrows(IllegalStateException.class,
        () -> RuntimeProbe.postReadError("probe read failure 44"));
    assertTrue(e.getMessage().contains("probe read failure 44"), e.getMessage());
  }
}
