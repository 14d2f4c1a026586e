package com.orvexa.internal.natives;

import java.util.Locale;

/**
 * Names the folder of the jar that holds the native libraries of one
 * platform, such as {@code natives/linux-x86_64/}. The build names the folder
 * of the platform it builds for with the same rules, so the names must stay
 * in step with java/natives.cmake.
 */
public final class NativePlatform {
  private NativePlatform() {}

  /** The folder name for the running JVM. */
  public static String current() {
    return folderName(System.getProperty("os.name", ""), System.getProperty("os.arch", ""));
  }

  /** {@code <os>-<arch>} with the spellings of the JVM folded onto one name each. */
  public static String folderName(String osName, String osArch) {
    return osFamily(osName) + "-" + architecture(osArch);
  }

  static String osFamily(String osName) {
    String name = osName.toLowerCase(Locale.ROOT);
    if (name.startsWith("linux")) return "linux";
    if (name.startsWith("windows")) return "windows";
    if (name.startsWith("mac") || name.startsWith("darwin")) return "macos";
    return name.replaceAll("[^a-z0-9]+", "");
  }

  static String architecture(String osArch) {
    String arch = osArch.toLowerCase(Locale.ROOT);
    switch (arch) {
      case "amd64":
      case "x86_64":
      case "x64":
        return "x86_64";
      case "aarch64":
      case "arm64":
        return "aarch64";
      case "x86":
      case "i386":
      case "i486":
      case "i586":
      case "i686":
        return "x86";
      default:
        return arch.replaceAll("[^a-z0-9_]+", "");
    }
  }
}
