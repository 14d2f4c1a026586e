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

// Runs on whatever thread posts the error; nothing is checked on the way (a
// missing class or method fails in the virtual machine).
template <const char* JavaClass>
void invokeJava(const SoError* error, void*) {
  JNIEnv* env = JNIEnvHelper::getEnv();
  if (env == nullptr) return;  // getEnv has said why on the console
  jclass cls = env->FindClass(JavaClass);
  jmethodID invoke = env->GetStaticMethodID(cls, "invoke", "(J)V");
  env->CallStaticVoidMethod(cls, invoke, reinterpret_cast<jlong>(error));
  env->DeleteLocalRef(cls);
}

bool memoryCleanup(size_t size, void*) {
  JNIEnv* env = JNIEnvHelper::getEnv();
  if (env == nullptr) return false;  // nothing was released
  jclass cls = env->FindClass(kSoMemoryError);
  jmethodID invoke = env->GetStaticMethodID(cls, "invokeMemoryCleanup", "(J)Z");
  const jboolean released = env->CallStaticBooleanMethod(cls, invoke, static_cast<jlong>(size));
  env->DeleteLocalRef(cls);
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
