// Firing sensors to Java: every Java sensor's toolkit sensor calls the
// sensor trampoline, which calls the static SoSensor.notifySensor(long) with
// the sensor's address (Java finds its sensor object by that address); a
// data sensor whose watched object is being destroyed calls the final-task
// trampoline, which calls SoDataSensor.notifyFinal(long).

#include <jni.h>

#include <Orvex/sensors/SoDataSensor.h>
#include <Orvex/sensors/SoSensor.h>

#include "JNIEnvHelper.h"

namespace {

// Each call looks the class and method up itself: a class reference is a
// local reference of the calling thread, which no other thread may use.
template <const char* JavaClass, const char* Method>
void notifyJava(SoSensor* sensor) {
  JNIEnv* env = JNIEnvHelper::getEnv();
  if (env == nullptr || !JNIEnvHelper::readyForUpcall(env)) return;
  const ScopedLocalRef<jclass> cls(env, env->FindClass(JavaClass));
  const jmethodID method = cls ? env->GetStaticMethodID(cls.get(), Method, "(J)V") : nullptr;
  if (method == nullptr) {
    JNIEnvHelper::settleUpcall(env);
    return;
  }
  {
    const JNIEnvHelper::UpcallScope upcall;
    env->CallStaticVoidMethod(cls.get(), method, reinterpret_cast<jlong>(sensor));
  }
  JNIEnvHelper::settleUpcall(env);
}

constexpr char kSoSensor[] = "com/orvexa/orvex/sensors/SoSensor";
constexpr char kNotifySensor[] = "notifySensor";
constexpr char kSoDataSensor[] = "com/orvexa/orvex/sensors/SoDataSensor";
constexpr char kNotifyFinal[] = "notifyFinal";

void sensorTrampoline(void*, SoSensor* sensor) { notifyJava<kSoSensor, kNotifySensor>(sensor); }

void finalTaskTrampoline(void*, SoSensor* sensor) { notifyJava<kSoDataSensor, kNotifyFinal>(sensor); }

}  // namespace

extern "C" {

// The sensor's function becomes the trampoline; its data is left alone.
JNIEXPORT void JNICALL Java_com_orvexa_orvex_sensors_SoSensor_setTaskNativ(JNIEnv*, jclass, jlong sensor) {
  reinterpret_cast<SoSensor*>(sensor)->setFunction(sensorTrampoline);
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_sensors_SoDataSensor_setFinalTaskNativ(JNIEnv*, jclass, jlong sensor) {
  reinterpret_cast<SoDataSensor*>(sensor)->setDeleteCallback(finalTaskTrampoline, nullptr);
}

}  // extern "C"
