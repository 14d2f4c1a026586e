#pragma once
// Throwing the Java exceptions that native code reports. After a throw the
// native code returns at once with 0, null or false.

#include <jni.h>

#include "OrvexJavaExport.h"

class ORVEXJAVA_API ExceptionHelper {
 public:
  // Describes and clears a pending exception first, so the new one replaces
  // it instead of being lost behind it; then throws
  // java.lang.IllegalArgumentException with `message`.
  static void throwIllegalArgException(JNIEnv* env, const char* message);
  // Throws java.lang.IllegalAccessException; a pending exception is left as it is.
  static void throwIllegalAccessException(JNIEnv* env, const char* message);
  // The same on the calling thread's environment (attached if needed).
  static void throwIllegalAccessException(const char* message);

  // Stateless: assignments have nothing to copy.
  ExceptionHelper& operator=(const ExceptionHelper&) { return *this; }
  ExceptionHelper& operator=(ExceptionHelper&&) noexcept { return *this; }
};
