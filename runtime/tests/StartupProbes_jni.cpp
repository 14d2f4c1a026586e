// Probes of start-up: the calling thread's environment, type resolution, the
// debug flag, initialize(), the timer queue and the real-time clock.

#include <atomic>
#include <thread>

#include <ImageLux/SoImageLux.h>
#include <Orvex/SbName.h>
#include <Orvex/SoDB.h>
#include <Orvex/SoType.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/sensors/SoTimerSensor.h>

#include "JNIEnvHelper.h"
#include "NativeDebug.h"
#include "RuntimeProbe.h"
#include "StringHelper.h"

using probe::utf;

// ---- environment and threads -------------------------------------------------

PROBE(jboolean, envOfJavaThreadIsCallers)(JNIEnv* env, jclass) { return JNIEnvHelper::getEnv() == env; }

// Runs `runnable` `times` times on one fresh native thread, each time with
// the environment that JNIEnvHelper gives; true when it was always the same.
PROBE(jboolean, runOnNativeThread)(JNIEnv* env, jclass, jobject runnable, jint times) {
  jobject target = env->NewGlobalRef(runnable);
  bool sameEnv = true;
  std::thread worker([&] {
    JNIEnv* first = nullptr;
    for (jint i = 0; i < times; ++i) {
      JNIEnv* threadEnv = JNIEnvHelper::getEnv();
      if (threadEnv == nullptr || (first != nullptr && threadEnv != first)) sameEnv = false;
      if (threadEnv == nullptr) return;
      if (first == nullptr) first = threadEnv;
      jclass cls = threadEnv->GetObjectClass(target);
      jmethodID run = threadEnv->GetMethodID(cls, "run", "()V");
      threadEnv->CallVoidMethod(target, run);
      if (threadEnv->ExceptionCheck()) {
        threadEnv->ExceptionDescribe();
        sameEnv = false;
      }
      threadEnv->DeleteLocalRef(cls);
    }
  });
  worker.join();
  env->DeleteGlobalRef(target);
  return sameEnv;
}

// ---- start-up ------------------------------------------------------------------

PROBE(jstring, typeNameFromName)(JNIEnv* env, jclass, jstring name) {
  const SoType type = SoType::fromName(SbName(utf(env, name).c_str()));
  if (env->ExceptionCheck()) return nullptr;
  return type.isBad() ? nullptr : StringHelper::fromNativeString(env, type.getName());
}

PROBE(jstring, sfTimeTypeName)(JNIEnv* env, jclass) {
  return StringHelper::fromNativeString(env, SoSFTime::getClassTypeId().getName());
}

PROBE(jboolean, imageLuxInitialized)(JNIEnv*, jclass) { return SoImageLux::isInitialized(); }

PROBE(jint, nativeDebugFlag)(JNIEnv*, jclass) { return getNativeDebugFlag(); }

PROBE(jstring, runInitialize)(JNIEnv* env, jclass, jobject object) {
  initialize(env, object);
  jthrowable pending = env->ExceptionOccurred();
  if (pending == nullptr) return env->NewStringUTF("");
  env->ExceptionClear();
  jclass cls = env->GetObjectClass(pending);
  jclass classClass = env->FindClass("java/lang/Class");
  jmethodID getName = env->GetMethodID(classClass, "getName", "()Ljava/lang/String;");
  return static_cast<jstring>(env->CallObjectMethod(cls, getName));
}

// ---- timer queue ------------------------------------------------------------------

namespace {
std::atomic<int> s_timerFires{0};
SoTimerSensor* s_timer = nullptr;  // lives for the process, like the toolkit's own sensors
}  // namespace

PROBE(void, startProbeTimer)(JNIEnv*, jclass) {
  if (s_timer == nullptr) s_timer = new SoTimerSensor([](void*, SoSensor*) { s_timerFires.fetch_add(1); }, nullptr);
  s_timer->setInterval(SbTime(0.005));
  s_timer->schedule();
}

PROBE(void, stopProbeTimer)(JNIEnv*, jclass) {
  if (s_timer != nullptr) s_timer->unschedule();
}

PROBE(jint, probeTimerFires)(JNIEnv*, jclass) { return s_timerFires.load(); }

PROBE(jboolean, realTimeSensorEnabled)(JNIEnv*, jclass) { return SoDB::isRealTimeSensorEnabled(); }

PROBE(jdouble, realTimeFieldSeconds)(JNIEnv*, jclass) {
  return static_cast<SoSFTime*>(SoDB::getGlobalField("realTime"))->getValue().getValue();
}
