#pragma once
// Shared pieces of the natives of com.orvexa.testsupport.RuntimeProbe: each
// drives one helper of the bridge the way generated entry points and
// callbacks do, so that the JUnit suites can check the results from Java.

#include <jni.h>

#include <string>

#include "StringHelper.h"

#define PROBE(ret, name) extern "C" JNIEXPORT ret JNICALL Java_com_orvexa_testsupport_RuntimeProbe_##name

namespace probe {

// Leaves an IllegalStateException pending.
inline void throwState(JNIEnv* env, const char* message) {
  jclass cls = env->FindClass("java/lang/IllegalStateException");
  if (cls != nullptr) env->ThrowNew(cls, message);
}

// A copy of the string's UTF-8 view ("" for null).
inline std::string utf(JNIEnv* env, jstring s) {
  StringHelper helper(env, s);
  const char* text = helper.toUTFString();
  return text == nullptr ? std::string() : std::string(text);
}

}  // namespace probe
