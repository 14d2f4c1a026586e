// Natives of com.orvexa.tests.ErrorUpcallProbe: toolkit errors posted in
// bulk on native threads and on the calling Java thread, the other upcalls
// of the bridge (unknown type names, the memory cleanup hook) run on either
// kind of thread, and a debug error posted from a Java string the way the
// generated entry points of the variadic post functions do it.

#include <jni.h>

#include <string>
#include <thread>
#include <vector>

#include <Orvex/SbName.h>
#include <Orvex/SoType.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoMemoryError.h>
#include <Orvex/errors/SoReadError.h>

#include "RuntimeProbe.h"
#include "SafeFormat.h"
#include "StringHelper.h"

#define UPCALL_PROBE(ret, name) extern "C" JNIEXPORT ret JNICALL Java_com_orvexa_tests_ErrorUpcallProbe_##name

using probe::utf;

namespace {

// The error classes the probes post; the values of ErrorUpcallProbe.DEBUG and READ.
constexpr jint kDebugError = 0;
constexpr jint kReadError = 1;

// One error whose text names the poster's thread and its index there:
// "... error <index> of thread <thread>".
void postNumbered(jint kind, int thread, int index) {
  if (kind == kReadError) {
    SoReadError::postAt("probe.ovx", index, "error %d of thread %d", index, thread);
  } else if (kind == kDebugError) {
    SoDebugError::post("ErrorUpcallProbe", "error %d of thread %d", index, thread);
  }
}

// Runs `body` on a fresh native thread and waits for it.
template <typename Body>
void onNativeThread(Body body) {
  std::thread worker(body);
  worker.join();
}

}  // namespace

// `threads` native threads, started together, each posting `perThread` errors.
UPCALL_PROBE(void, postOnNativeThreads)(JNIEnv*, jclass, jint kind, jint threads, jint perThread) {
  std::vector<std::thread> workers;
  workers.reserve(static_cast<size_t>(threads));
  for (int thread = 0; thread < threads; ++thread) {
    workers.emplace_back([=] {
      for (int index = 0; index < perThread; ++index) postNumbered(kind, thread, index);
    });
  }
  for (std::thread& worker : workers) worker.join();
}

// `count` errors posted one after the other on the calling Java thread, as
// thread 0, without returning to Java in between.
UPCALL_PROBE(void, postOnCallingThread)(JNIEnv*, jclass, jint kind, jint count) {
  for (int index = 0; index < count; ++index) postNumbered(kind, 0, index);
}

// The code the wrapper generator emits for SoDebugError.post(methodName, format).
UPCALL_PROBE(void, postDebugErrorFromJava)(JNIEnv* env, jclass, jstring methodName, jstring format) {
  StringHelper methodNameStrHelper(env, methodName);
  StringHelper formatStrHelper(env, format);
  const SafeFormat formatSafe(formatStrHelper.toUTFString());
  SoDebugError::post(methodNameStrHelper.toUTFString(), formatSafe.get(), ORVEX_SAFE_FORMAT_ARGS);
}

// The type the toolkit resolves for `name` on a native thread (through the
// unknown-type route when it does not know the name); null when bad.
UPCALL_PROBE(jstring, typeNameFromNameOnNativeThread)(JNIEnv* env, jclass, jstring name) {
  const std::string text = utf(env, name);
  std::string resolved;
  bool found = false;
  onNativeThread([&] {
    const SoType type = SoType::fromName(SbName(text.c_str()));
    found = !type.isBad();
    if (found) resolved = type.getName().getString();
  });
  return found ? StringHelper::fromNativeString(env, resolved) : nullptr;
}

// The toolkit's memory cleanup hook asked for `size` bytes on a native thread.
UPCALL_PROBE(jboolean, memoryCleanupOnNativeThread)(JNIEnv*, jclass, jlong size) {
  bool released = false;
  onNativeThread([&] { released = SoMemoryError::invokeMemoryCleanup(static_cast<size_t>(size)); });
  return released ? JNI_TRUE : JNI_FALSE;
}

// The same on the calling Java thread.
UPCALL_PROBE(jboolean, memoryCleanupOnCallingThread)(JNIEnv*, jclass, jlong size) {
  return SoMemoryError::invokeMemoryCleanup(static_cast<size_t>(size)) ? JNI_TRUE : JNI_FALSE;
}
