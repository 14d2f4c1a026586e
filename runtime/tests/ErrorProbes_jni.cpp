// Probes of the exceptions the bridge throws and of toolkit errors posted on
// Java and native threads.

#include <string>
#include <thread>

#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoError.h>
#include <Orvex/errors/SoGLError.h>
#include <Orvex/errors/SoMemoryError.h>
#include <Orvex/errors/SoReadError.h>

#include "ExceptionHelper.h"
#include "RuntimeProbe.h"
#include "StringHelper.h"

using probe::throwState;
using probe::utf;

// ---- exceptions --------------------------------------------------------------

PROBE(void, throwIllegalArgument)(JNIEnv* env, jclass, jstring message, jboolean withPending) {
  StringHelper text(env, message);
  const std::string copy = text.toUTFString();  // converted before anything is pending
  if (withPending) throwState(env, "the pending exception");
  ExceptionHelper::throwIllegalArgException(env, copy.c_str());
}

PROBE(void, throwIllegalAccess)(JNIEnv* env, jclass, jstring message, jboolean withPending) {
  StringHelper text(env, message);
  const std::string copy = text.toUTFString();
  if (withPending) throwState(env, "the pending exception");
  ExceptionHelper::throwIllegalAccessException(env, copy.c_str());
}

PROBE(void, throwIllegalAccessOnCurrentThread)(JNIEnv* env, jclass, jstring message) {
  StringHelper text(env, message);
  ExceptionHelper::throwIllegalAccessException(text.toUTFString());
}

// ---- toolkit errors ----------------------------------------------------------

namespace {
template <typename Post>
void onNativeThread(Post post) {
  std::thread worker(post);
  worker.join();
}
}  // namespace

PROBE(void, postReadErrorOnNativeThread)(JNIEnv* env, jclass, jstring text) {
  const std::string message = utf(env, text);
  onNativeThread([&] { SoReadError::postAt("probe.ovx", 7, "%s", message.c_str()); });
}

PROBE(void, postDebugErrorOnNativeThread)(JNIEnv* env, jclass, jstring text) {
  const std::string message = utf(env, text);
  onNativeThread([&] { SoDebugError::post("RuntimeProbe", "%s", message.c_str()); });
}

PROBE(void, postReadError)(JNIEnv* env, jclass, jstring text) {
  SoReadError::postAt("probe.ovx", 3, "%s", utf(env, text).c_str());
}

PROBE(void, postGLError)(JNIEnv* env, jclass, jstring text) {
  SoGLError::post(0x0502, "RuntimeProbe", "%s", utf(env, text).c_str());
}

PROBE(void, postMemoryError)(JNIEnv* env, jclass, jstring text) { SoMemoryError::post(utf(env, text).c_str()); }

PROBE(void, postPlainError)(JNIEnv* env, jclass, jstring text) { SoError::post("%s", utf(env, text).c_str()); }

PROBE(void, postDebugError)(JNIEnv* env, jclass, jstring text) {
  SoDebugError::post("RuntimeProbe", "%s", utf(env, text).c_str());
}

PROBE(jboolean, debugAndPlainErrorsUseTheToolkitHandler)(JNIEnv*, jclass) {
  return SoDebugError::getHandlerCallback() == &SoError::defaultHandlerCB &&
         SoError::getHandlerCallback() == &SoError::defaultHandlerCB;
}
