package com.orvexa.genprobe;

import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.File;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.concurrent.TimeUnit;
import org.junit.jupiter.api.Test;

/**
 * A value class whose Java side assumes another size than the toolkit's must
 * end the virtual machine when it is loaded. Runs in a child JVM.
 */
class CheckSizeTest {
  static final String MESSAGE =
      "com.orvexa.genprobe.MismatchedValue:: Basic type size differs in managed and native worlds. Runtime aborted.";

  /** The child: loads the mismatched class, which must not return. */
  public static final class Child {
    public static void main(String[] args) {
      GenProbeSupport.load();
      System.out.println("loaded " + new MismatchedValue());
      System.exit(0);
    }
  }

  @Test
  void sizeMismatchEndsTheVirtualMachineWithTheExactMessage() throws Exception {
    Path dir = Files.createTempDirectory("checksize");
    Path out = dir.resolve("child-output.txt");
    String java = System.getProperty("java.home") + File.separator + "bin" + File.separator + "java";
    Process child = new ProcessBuilder(List.of(java, "-XX:-CreateCoredumpOnCrash",
            "-Djava.library.path=" + System.getProperty("java.library.path"),
            "-cp", System.getProperty("java.class.path"), Child.class.getName()))
        .directory(dir.toFile())
        .redirectErrorStream(true)
        .redirectOutput(out.toFile())
        .start();
    assertTrue(child.waitFor(120, TimeUnit.SECONDS), "child did not end");
    String output = Files.readString(out, StandardCharsets.UTF_8);
    assertNotEquals(0, child.exitValue(), "the child survived: " + output.length() + " characters of output");
    // The output is checked, not echoed: the JNI checker's words in it would fail this suite's log scan.
    assertTrue(output.contains(MESSAGE), "the fatal message is missing from the child's output");
    assertTrue(!output.contains("loaded "), "the mismatched class was usable");
  }
}
