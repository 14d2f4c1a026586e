// The per-class routes of toolkit errors to Java: initNativeCallback of each
// error class of com.orvexa.orvex.errors replaces the toolkit's handler of
// that class by one that calls the Java class's static invoke(long) with the
// error's address. The memory-error route also installs the toolkit's memory
// cleanup hook, answered by SoMemoryError.invokeMemoryCleanup(long).

#include <jni.h>

#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoErrorStack.h>
#include <Orvex/errors/SoGLError.h>
#include <Orvex/errors/SoMemoryError.h>
#include <Orvex/errors/SoReadError.h>

#include "JNIEnvHelper.h"

namespace {
// Class names as template arguments (arrays with linkage).
constexpr char kSoError[] = "com/orvexa/orvex/errors/SoError";
constexpr char kSoDebugError[] = "com/orvexa/orvex/errors/SoDebugError";
constexpr char kSoGLError[] = "com/orvexa/orvex/errors/SoGLError";
constexpr char kSoMemoryError[] = "com/orvexa/orvex/errors/SoMemoryError";
constexpr char kSoReadError[] = "com/orvexa/orvex/errors/SoReadError";
constexpr char kSoErrorStack[] = "com/orvexa/orvex/errors/SoErrorStack";

// Runs on whatever thread posts the error. When Java cannot be called (an
// exception is already pending for a Java caller, or the route's class or
// method cannot be found), the error is printed the toolkit's way rather
// than lost. An exception raised by the Java handler follows the upcall rules
// of JNIEnvHelper: cleared after a trace on a thread the bridge attached,
// left to the Java caller otherwise.
template <const char* JavaClass>
void invokeJava(const SoError* error, void* data) {
  JNIEnv* env = JNIEnvHelper::getEnv();
  if (env == nullptr || !JNIEnvHelper::readyForUpcall(env)) {
    SoError::defaultHandlerCB(error, data);
    return;
  }
  const ScopedLocalRef<jclass> cls(env, env->FindClass(JavaClass));
  jmethodID invoke = cls ? env->GetStaticMethodID(cls.get(), "invoke", "(J)V") : nullptr;
  if (invoke == nullptr) {
    JNIEnvHelper::settleUpcall(env);
    SoError::defaultHandlerCB(error, data);
    return;
  }
  {
    const JNIEnvHelper::UpcallScope upcall;
    env->CallStaticVoidMethod(cls.get(), invoke, reinterpret_cast<jlong>(error));
  }
  JNIEnvHelper::settleUpcall(env);
}

// Answers whether Java released memory; not when Java cannot be asked or
// the hook raised an exception.
bool memoryCleanup(size_t size, void*) {
  JNIEnv* env = JNIEnvHelper::getEnv();
  if (env == nullptr || !JNIEnvHelper::readyForUpcall(env)) return false;
  const ScopedLocalRef<jclass> cls(env, env->FindClass(kSoMemoryError));
  jmethodID invoke = cls ? env->GetStaticMethodID(cls.get(), "invokeMemoryCleanup", "(J)Z") : nullptr;
  if (invoke == nullptr) {
    JNIEnvHelper::settleUpcall(env);
    return false;
  }
  jboolean released = JNI_FALSE;
  {
    const JNIEnvHelper::UpcallScope upcall;
    released = env->CallStaticBooleanMethod(cls.get(), invoke, static_cast<jlong>(size));
  }
  if (JNIEnvHelper::settleUpcall(env)) return false;
  return released == JNI_TRUE;
}
}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_com_orvexa_orvex_errors_SoError_initNativeCallback(JNIEnv*, jclass) {
  SoError::setHandlerCallback(invokeJava<kSoError>, nullptr);
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_errors_SoDebugError_initNativeCallback(JNIEnv*, jclass) {
  SoDebugError::setHandlerCallback(invokeJava<kSoDebugError>, nullptr);
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_errors_SoGLError_initNativeCallback(JNIEnv*, jclass) {
  SoGLError::setHandlerCallback(invokeJava<kSoGLError>, nullptr);
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_errors_SoMemoryError_initNativeCallback(JNIEnv*, jclass) {
  SoMemoryError::setHandlerCallback(invokeJava<kSoMemoryError>, nullptr);
  SoMemoryError::setMemoryCleanupCallback(memoryCleanup, nullptr);
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_errors_SoReadError_initNativeCallback(JNIEnv*, jclass) {
  SoReadError::setHandlerCallback(invokeJava<kSoReadError>, nullptr);
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_errors_SoErrorStack_initNativeCallback(JNIEnv*, jclass) {
  SoErrorStack::setHandlerCallback(invokeJava<kSoErrorStack>, nullptr);
}

}  // extern "C"
