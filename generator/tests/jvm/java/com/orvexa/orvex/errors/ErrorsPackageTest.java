package com.orvexa.orvex.errors;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.orvexa.orvex.Orvex;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.Arrays;
import java.util.ArrayList;
import java.util.List;
import java.util.Set;
import java.util.function.Consumer;
import java.util.stream.Collectors;
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

  /** What a stack error handler saw, copied out while the error was alive. */
  private static final class PostedStack {
    String text;
    int count;
    SoErrorStack.StackFrame[] frames;
    SoErrorStack.StackFrame[] refilled;
  }

  /** Routes stack errors to a handler that records what each one carries. */
  private static List<PostedStack> recordStackErrors() {
    List<PostedStack> posted = new ArrayList<>();
    SoError.setHandler(SoErrorStack.class, e -> {
      PostedStack p = new PostedStack();
      p.text = e.getDebugString();
      p.count = e.getNumFrames();
      p.frames = e.getFrames();
      // The first native frame again, copied into an object made here; a
      // disposed object in the array is left out.
      SoErrorStack.StackFrame disposed = new SoErrorStack.StackFrame();
      disposed.dispose();
      p.refilled = new SoErrorStack.StackFrame[] {new SoErrorStack.StackFrame(), disposed};
      if (p.count >= 1) {
        SoErrorStack.StackFrame.toArrayImpl(p.refilled, SoErrorStack.getFramesImpl(e.getNativeResourceHandleInternal()));
      }
      posted.add(p);
    });
    return posted;
  }

  /** The text is a heading and one line per frame; the frames are copies that outlive the error. */
  private static void assertTextMatchesFrames(PostedStack p) {
    assertEquals(p.count, p.frames.length);
    String[] lines = p.text.split("\n");
    assertEquals("Orvex stack trace:", lines[0]);
    assertEquals(p.count + 1, lines.length, p.text);
    for (int i = 0; i < p.count; i++) {
      assertEquals("#" + i + " " + p.frames[i].getString(), lines[i + 1]);
      assertEquals(p.frames[i].getString(), p.frames[i].toString());
      assertNotEquals(0L, p.frames[i].getAddress());
    }
    assertEquals(p.frames[0], p.refilled[0]);
    assertEquals(0L, p.refilled[1].getNativeResourceHandleInternal());
  }

  @Test
  void stackErrorPostedFromJavaBringsItsFramesAndTheirText() {
    List<PostedStack> posted = recordStackErrors();
    SoErrorStack.post();
    assertEquals(1, posted.size());
    PostedStack p = posted.get(0);
    // The native part of the stack: at least the frame that called into the
    // toolkit (the unwinder stops at the virtual machine's own frames).
    assertTrue(p.count >= 1, p.text);
    assertTextMatchesFrames(p);
  }

  @Test
  void stackErrorPostedByNativeCodeNamesThePoster() throws Exception {
    List<PostedStack> posted = recordStackErrors();
    Method post = Class.forName("com.orvexa.genprobe.GenProbeSupport").getDeclaredMethod("postErrorStack");
    post.setAccessible(true);
    post.invoke(null);
    assertEquals(1, posted.size());
    PostedStack p = posted.get(0);
    assertTextMatchesFrames(p);
    assertEquals("Java_com_orvexa_genprobe_GenProbeSupport_postErrorStack", p.frames[0].getFunctionName(), p.text);
    assertTrue(p.frames[0].getModuleName().endsWith("liborvexgen_probe.so"), p.frames[0].getModuleName());
    assertTrue(p.frames[0].getOffset() > 0 && p.frames[0].getOffset() < 4096, p.text);
    assertTrue(p.text.contains("(Java_com_orvexa_genprobe_GenProbeSupport_postErrorStack+0x"), p.text);
  }

  @Test
  void currentStackTextStartsAtTheEntryPoint() {
    String[] lines = SoErrorStack.getStack().split("\n");
    assertTrue(lines[0].startsWith("#0 "), lines[0]);
    assertTrue(Arrays.stream(lines).limit(2).anyMatch(l -> l.contains("SoErrorStack_getStackImpl")
        || l.contains("SoErrorStack::getStack()")), String.join("\n", lines));
  }

  @Test
  void stackFrameIsASmallNativeValueObject() {
    SoErrorStack.StackFrame empty = new SoErrorStack.StackFrame();
    assertEquals(0L, empty.getAddress());
    assertEquals("", empty.getModuleName());
    assertEquals("", empty.getFunctionName());
    assertEquals(0L, empty.getOffset());
    assertEquals("[0x0]", empty.getString());

    SoErrorStack.StackFrame frame = new SoErrorStack.StackFrame();
    frame.setValue(0x7f0012345678L, "/usr/lib/libfoo.so", "Foo::bar(int)", 0x1f);
    assertEquals(0x7f0012345678L, frame.getAddress());
    assertEquals("/usr/lib/libfoo.so", frame.getModuleName());
    assertEquals("Foo::bar(int)", frame.getFunctionName());
    assertEquals(0x1fL, frame.getOffset());
    assertEquals("/usr/lib/libfoo.so(Foo::bar(int)+0x1f) [0x7f0012345678]", frame.toString());

    SoErrorStack.StackFrame same = new SoErrorStack.StackFrame(0x7f0012345678L, "/usr/lib/libfoo.so", "Foo::bar(int)",
        0x1f);
    assertEquals(frame, same);
    assertEquals(frame.hashCode(), same.hashCode());
    assertNotEquals(frame, new SoErrorStack.StackFrame(0x7f0012345678L, "/usr/lib/libfoo.so", "Foo::bar(int)", 0x20));
    assertNotEquals(frame, empty);

    // toArrayImpl with nothing to copy leaves its targets alone.
    SoErrorStack.StackFrame.toArrayImpl(new SoErrorStack.StackFrame[] {same}, 0L);
    SoErrorStack.StackFrame.toArrayImpl(new SoErrorStack.StackFrame[0], 0x1000L);
    SoErrorStack.StackFrame.toArrayImpl(null, 0x1000L);
    assertEquals(frame, same);
    assertEquals(0, SoErrorStack.StackFrame.copies(0L, 0).length);

    same.dispose();
    assertEquals(0L, same.getNativeResourceHandleInternal());
    same.dispose();  // a second release does nothing
    assertEquals("Foo::bar(int)", frame.getFunctionName());
  }

  @Test
  void stackFrameEntryPoints() {
    Set<String> frame = nativeNames(SoErrorStack.StackFrame.class);
    assertTrue(frame.containsAll(Set.of("ctorImpl", "setValueImpl", "toArrayImpl")), frame.toString());
    assertEquals(Set.of("deleteNativeHandleImpl"), nativeNames(SoErrorStack.StackFrame.NativeResourceHandle.class));
    assertTrue(nativeNames(SoErrorStack.class).containsAll(Set.of("postImpl", "getStackImpl", "getFramesImpl")));
    assertEquals("com.orvexa.orvex.errors.SoErrorStack$StackFrame", SoErrorStack.StackFrame.class.getName());
  }

  private static Set<String> nativeNames(Class<?> cls) {
    return Arrays.stream(cls.getDeclaredMethods())
        .filter(m -> Modifier.isNative(m.getModifiers()))
        .map(Method::getName)
        .collect(Collectors.toSet());
  }
}
