#include "JNIEnvHelper.h"

#include <cstdio>

JavaVM* JNIEnvHelper::TheCurrentJVM = nullptr;

namespace {
// A thread attached here stays attached for the rest of its life. When it
// ends, it is given back to the virtual machine, which otherwise keeps
// counting the finished thread as a live non-daemon thread and never shuts
// down.
struct AttachedThread {
  JavaVM* vm = nullptr;
  ~AttachedThread() {
    if (vm != nullptr) vm->DetachCurrentThread();
  }
};
thread_local AttachedThread t_attachedThread;

// How many upcalls are running on this thread (UpcallScope): more than zero
// means Java frames are waiting below the current native code.
thread_local int t_upcallDepth = 0;

jint attach(JavaVM* vm, JNIEnv** env, void* args) {
  const jint rc = vm->AttachCurrentThread(reinterpret_cast<void**>(env), args);
  if (rc == JNI_OK) t_attachedThread.vm = vm;
  return rc;
}
}  // namespace

JNIEnv* JNIEnvHelper::getEnv() {
  JNIEnv* env = nullptr;
  JavaVM* vm = TheCurrentJVM;
  jint rc = vm->GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_2);
  if (rc == JNI_EVERSION) {
    // A 1.1-only machine: attach without arguments.
    rc = vm->GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_1);
    if (rc == JNI_EDETACHED) rc = attach(vm, &env, nullptr);
  } else if (rc == JNI_EDETACHED) {
    // Attached as an ordinary thread for good: the thread keeps its Java
    // identity for every later callback.
    JavaVMAttachArgs args;
    args.version = JNI_VERSION_1_2;
    args.name = const_cast<char*>("Intern-CallBack");
    args.group = nullptr;
    rc = attach(vm, &env, &args);
  }
  if (rc != JNI_OK) {
    env = nullptr;
    std::fputs("***** CB::GetEnv ERROR :  cant get JNIEnv *****\n", stdout);
    std::fflush(stdout);
  }
  return env;
}

bool JNIEnvHelper::isAttachedByLibrary() { return t_attachedThread.vm != nullptr; }

bool JNIEnvHelper::hasJavaCaller() { return !isAttachedByLibrary() || t_upcallDepth > 0; }

bool JNIEnvHelper::readyForUpcall(JNIEnv* env) { return !settleUpcall(env); }

bool JNIEnvHelper::settleUpcall(JNIEnv* env) {
  if (!env->ExceptionCheck()) return false;
  if (hasJavaCaller()) return true;
  // No Java frame will ever see it: leave a trace, and let the thread go on
  // with a clean environment.
  env->ExceptionDescribe();
  env->ExceptionClear();
  return false;
}

JNIEnvHelper::UpcallScope::UpcallScope() { ++t_upcallDepth; }

JNIEnvHelper::UpcallScope::~UpcallScope() { --t_upcallDepth; }
