// Entry points of com.orvexa.orvex.sensors.SoSensorManager (forwarding to
// the toolkit's sensor manager), SoDB.getNativSensorManager, and the delay
// queue pass of RealTimeManager.

#include <jni.h>

#include <map>
#include <memory>
#include <mutex>

#include <Orvex/SbTime.h>
#include <Orvex/SoDB.h>
#include <Orvex/sensors/SoSensorManager.h>

#include "CallbackHoldings.h"
#include "CallbackKinds.h"
#include "CallbackObject.h"
#include "MakeJavaObj.h"

using orvexjava::CallbackHoldings;

namespace {

SoSensorManager* managerAt(jlong address) { return reinterpret_cast<SoSensorManager*>(address); }

// The changed callback each manager holds. A manager may be the database's
// (never destroyed, and its Java wrappers come and go), so the record is
// kept here, by manager, and dropped when Java deletes a manager it made.
std::mutex g_changedMutex;
std::map<SoSensorManager*, std::unique_ptr<CallbackHoldings>> g_changedCallbacks;

CallbackHoldings& changedCallbackOf(SoSensorManager* manager) {
  const std::lock_guard<std::mutex> lock(g_changedMutex);
  std::unique_ptr<CallbackHoldings>& holdings = g_changedCallbacks[manager];
  if (!holdings) holdings = std::make_unique<CallbackHoldings>();
  return *holdings;
}

}  // namespace

#define MANAGER_ENTRY(ret, name) extern "C" JNIEXPORT ret JNICALL Java_com_orvexa_orvex_sensors_SoSensorManager_##name

MANAGER_ENTRY(jlong, constructor)(JNIEnv*, jclass) { return reinterpret_cast<jlong>(new SoSensorManager()); }

extern "C" JNIEXPORT void JNICALL
Java_com_orvexa_orvex_sensors_SoSensorManager_00024NativeResourceHandle_deleteNativeHandleImpl(JNIEnv*, jclass,
                                                                                          jlong address) {
  if (address == 0) return;
  SoSensorManager* manager = managerAt(address);
  std::unique_ptr<CallbackHoldings> changed;
  {
    const std::lock_guard<std::mutex> lock(g_changedMutex);
    auto it = g_changedCallbacks.find(manager);
    if (it != g_changedCallbacks.end()) {
      changed = std::move(it->second);
      g_changedCallbacks.erase(it);
    }
  }
  delete manager;
  // The manager is gone: now its callback can be let go of.
}

// Makes `cb` the manager's changed callback (null: none); the one set before is let go.
MANAGER_ENTRY(void, setChangedCallback)(JNIEnv* env, jclass, jlong self, jobject cb) {
  SoSensorManager* manager = managerAt(self);
  orvexjava::setOnlyCallback<SoSensorManagerCallback>(
      env, changedCallbackOf(manager), CallbackHoldings::slot(0), cb, nullptr,
      [manager](void (*function)(void*), void* data) { manager->setChangedCallback(function, data); });
}

MANAGER_ENTRY(void, setDelaySensorTimeout)(JNIEnv*, jclass, jlong self, jlong time) {
  managerAt(self)->setDelaySensorTimeout(*reinterpret_cast<const SbTime*>(time));
}

// A new SbTime that Java adopts.
MANAGER_ENTRY(jlong, getDelaySensorTimeout)(JNIEnv*, jclass, jlong self) {
  return reinterpret_cast<jlong>(new SbTime(managerAt(self)->getDelaySensorTimeout()));
}

MANAGER_ENTRY(void, processDelayQueue1)(JNIEnv*, jclass, jlong self, jboolean isIdle) {
  managerAt(self)->processDelayQueue(isIdle == JNI_TRUE);
}

MANAGER_ENTRY(void, processImmediateQueue1)(JNIEnv*, jclass, jlong self) { managerAt(self)->processImmediateQueue(); }

MANAGER_ENTRY(void, processTimerQueue1)(JNIEnv*, jclass, jlong self) { managerAt(self)->processTimerQueue(); }

MANAGER_ENTRY(jboolean, isDelaySensorPending1)(JNIEnv*, jclass, jlong self) {
  return managerAt(self)->isDelaySensorPending() ? JNI_TRUE : JNI_FALSE;
}

// `time` (an SbTime, or 0) receives the earliest trigger time.
MANAGER_ENTRY(jboolean, isTimerSensorPending1)(JNIEnv*, jclass, jlong self, jlong time) {
  SbTime earliest;
  const bool pending = managerAt(self)->isTimerSensorPending(earliest);
  if (pending && time != 0) *reinterpret_cast<SbTime*>(time) = earliest;
  return pending ? JNI_TRUE : JNI_FALSE;
}

// The database's sensor manager, as the Java object that stands for it.
extern "C" JNIEXPORT jobject JNICALL Java_com_orvexa_orvex_SoDB_getNativSensorManager(JNIEnv* env, jclass) {
  return makeManagedJavaObject(env, "com/orvexa/orvex/sensors/SoSensorManager",
                               reinterpret_cast<jlong>(SoDB::getSensorManager()), false, true);
}

// One pass over the database's delay queue, for the thread that drives the
// toolkit's queues from Java.
extern "C" JNIEXPORT void JNICALL Java_com_orvexa_orvex_RealTimeManager_processDelayQueueNative(JNIEnv*, jclass,
                                                                                              jboolean isIdle) {
  SoDB::getSensorManager()->processDelayQueue(isIdle == JNI_TRUE);
}
