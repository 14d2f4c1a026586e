#include "NativeDebug.h"

#include "JNIEnvHelper.h"

#include <atomic>
#include <cstdio>

namespace {
// 32-bit flag, read by every trace; relaxed order is enough for an on/off switch.
std::atomic<int> s_nativeDebug{0};
}  // namespace

void PRINTDBG(const char* message) {
  if (s_nativeDebug.load(std::memory_order_relaxed) == 0) return;
  std::fputs(message, stdout);
  std::fflush(stdout);
}

int getNativeDebugFlag() { return s_nativeDebug.load(std::memory_order_relaxed); }

void setNativeDebugFlag(int flag) { s_nativeDebug.store(flag, std::memory_order_relaxed); }

void initialize(JNIEnv* env, jobject object) {
  jclass cls = env->GetObjectClass(object);
  jmethodID init = env->GetMethodID(cls, "initialize", "()V");
  // Callers may run on native threads that never return to Java.
  env->DeleteLocalRef(cls);
  if (init == nullptr) {
    JNIEnvHelper::settleUpcall(env);  // no such method: left to a Java caller, else described
    return;
  }
  {
    JNIEnvHelper::UpcallScope upcall;
    env->CallVoidMethod(object, init);
  }
  JNIEnvHelper::settleUpcall(env);
}

// Load hook of the platform loader: only traces (silent, since the flag is 0
// at load time).
#if defined(_WIN32)
#include <windows.h>
BOOL APIENTRY DllMain(HMODULE, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) PRINTDBG("DLL_PROCESS_ATTACH\n");
  return TRUE;
}
#else
__attribute__((constructor)) static void orvexjavaOnLoad() { PRINTDBG("DLL_PROCESS_ATTACH\n"); }
#endif
