#pragma once
// Access to the process's Java virtual machine and the calling thread's JNIEnv.

#include <jni.h>

#include "OrvexJavaExport.h"

class ORVEXJAVA_API JNIEnvHelper {
 public:
  // The virtual machine of the process, stored once by Orvex.checkJVM.
  static JavaVM* TheCurrentJVM;

  // The calling thread's environment. A native thread that is not attached
  // yet is attached for the rest of its life (non-daemon, named
  // "Intern-CallBack"; given back to the virtual machine only when the thread
  // ends). Returns null, after a console line, when no environment can be had.
  static JNIEnv* getEnv();

  // Stateless: assignments have nothing to copy.
  JNIEnvHelper& operator=(const JNIEnvHelper&) { return *this; }
  JNIEnvHelper& operator=(JNIEnvHelper&&) noexcept { return *this; }
};
