package com.orvexa.testsupport;

import com.orvexa.orvex.Orvex;
import com.orvexa.orvex.SoDB;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Paths;

/**
 * A program run with nothing but the jars on its class path: starts the
 * binding, prints the toolkit version, and prints the file that the process
 * really mapped liborvexjava from (as the kernel reports it, not as the
 * loader claims).
 */
public final class JarOnlyMain {
  private JarOnlyMain() {}

  public static void main(String[] args) throws IOException {
    Orvex.init();
    System.out.println("VERSION=" + SoDB.getVersion());
    Files.readAllLines(Paths.get("/proc/self/maps")).stream()
        .filter(line -> line.endsWith("/liborvexjava.so"))
        .map(line -> line.substring(line.indexOf('/')))
        .distinct()
        .forEach(path -> System.out.println("LOADED=" + path));
    System.out.flush();
    System.exit(0);
  }
}
