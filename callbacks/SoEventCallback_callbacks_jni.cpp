// Registration of Java callbacks with SoEventCallback and SoCallback nodes.
// The registrations are mirrored in holdings attached to the node itself,
// which let go of the callbacks when the node is destroyed: the node may
// outlive its Java wrapper in a scene graph.

#include <jni.h>

#include <mutex>

#include <Orvex/nodes/SoCallback.h>
#include <Orvex/nodes/SoEventCallback.h>

#include "CallbackHoldings.h"
#include "CallbackKinds.h"
#include "CallbackObject.h"
#include "JNIEnvHelper.h"
#include "TypeArgument.h"

using orvexjava::BaseCallbackHoldings;
using orvexjava::CallbackHoldings;

namespace {
// Slots of the nodes' holdings.
enum NodeList { kEventCallbacks, kCallbackFunction };
}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_com_orvexa_orvex_nodes_SoEventCallback_addEventCallbackImpl(JNIEnv* env, jclass,
                                                                                       jlong self, jstring eventType,
                                                                                       jobject cb, jobject userData) {
  auto* callback = orvexjava::nativeCallbackOf<SoEventCallbackCallback>(env, cb);
  const SoType type = orvexjava::typeNamed(env, eventType);
  if (type.isBad()) {
    callback->letGoIfUnheld();
    return;
  }
  auto* node = reinterpret_cast<SoEventCallback*>(self);
  BaseCallbackHoldings::of(node).add(env, cb, callback, CallbackHoldings::slot(kEventCallbacks, type.getKey()));
  orvexjava::storeUserData(env, cb, userData);
  node->addEventCallback(type, &SoEventCallbackCallback::RealCallback, callback);
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_nodes_SoEventCallback_removeEventCallbackImpl(JNIEnv* env, jclass,
                                                                                          jlong self,
                                                                                          jstring eventType,
                                                                                          jobject cb) {
  auto* callback = orvexjava::nativeCallbackOf<SoEventCallbackCallback>(env, cb);
  if (callback == nullptr) return;  // never registered anywhere
  const SoType type = orvexjava::typeNamed(env, eventType);
  if (type.isBad()) return;
  auto* node = reinterpret_cast<SoEventCallback*>(self);
  node->removeEventCallback(type, &SoEventCallbackCallback::RealCallback, callback);
  BaseCallbackHoldings::of(node).remove(callback, CallbackHoldings::slot(kEventCallbacks, type.getKey()));
}

namespace {

// A copy of a callback node gets the original's callback object as its own
// function's data, which nothing would keep alive once the original is
// gone: the copy takes a hold of its own, in its own holdings. When the
// Java callback cannot be reached (no environment, or let go of already),
// the copy gets no function rather than a pointer that may dangle.
void holdForCopy(SoCallback* copy, const SoCallback*) {
  const uint64_t slot = CallbackHoldings::slot(kCallbackFunction);
  if (copy->getCallback() != &SoCallbackCallback::RealCallback) {
    BaseCallbackHoldings::of(copy).removeSlot(slot);  // a Java function it had is replaced
    return;
  }
  auto* callback = static_cast<SoCallbackCallback*>(copy->getCallbackData());
  JNIEnv* env = JNIEnvHelper::getEnv();
  jobject javaCB = env != nullptr ? callback->newLocalJavaCB(env) : nullptr;
  if (javaCB == nullptr) {
    copy->setCallback(nullptr, nullptr);
    BaseCallbackHoldings::of(copy).removeSlot(slot);
    return;
  }
  BaseCallbackHoldings& holdings = BaseCallbackHoldings::of(copy);
  holdings.add(env, javaCB, callback, slot);
  holdings.removeSlotExceptLast(slot);
  env->DeleteLocalRef(javaCB);
}

std::once_flag g_copyHookInstalled;

}  // namespace

// Makes `cb` the node's function (null: none); the function set before is let go.
JNIEXPORT void JNICALL Java_com_orvexa_orvex_nodes_SoCallback_setCallbackImpl(JNIEnv* env, jclass, jlong self,
                                                                             jobject cb, jobject userData) {
  auto* node = reinterpret_cast<SoCallback*>(self);
  std::call_once(g_copyHookInstalled, [] { SoCallback::setCopyHook(&holdForCopy); });
  orvexjava::setOnlyCallback<SoCallbackCallback>(
      env, BaseCallbackHoldings::of(node), CallbackHoldings::slot(kCallbackFunction), cb, userData,
      [node](SoCallbackCB* function, void* data) { node->setCallback(function, data); });
}

}  // extern "C"
