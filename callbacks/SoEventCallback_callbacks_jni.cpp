// Registration of Java callbacks with SoEventCallback and SoCallback nodes.
// The registrations are mirrored in holdings attached to the node itself,
// which let go of the callbacks when the node is destroyed: the node may
// outlive its Java wrapper in a scene graph.

#include <jni.h>

#include <Orvex/nodes/SoCallback.h>
#include <Orvex/nodes/SoEventCallback.h>

#include "CallbackHoldings.h"
#include "CallbackKinds.h"
#include "CallbackObject.h"
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

// Makes `cb` the node's function (null: none); the function set before is let go.
JNIEXPORT void JNICALL Java_com_orvexa_orvex_nodes_SoCallback_setCallbackImpl(JNIEnv* env, jclass, jlong self,
                                                                             jobject cb, jobject userData) {
  auto* node = reinterpret_cast<SoCallback*>(self);
  BaseCallbackHoldings& holdings = BaseCallbackHoldings::of(node);
  const uint64_t slot = CallbackHoldings::slot(kCallbackFunction);
  if (cb == nullptr) {
    node->setCallback(nullptr, nullptr);
    holdings.removeSlot(slot);
    return;
  }
  auto* callback = orvexjava::nativeCallbackOf<SoCallbackCallback>(env, cb);
  // The new hold first: the same callback set again keeps its reference.
  holdings.add(env, cb, callback, slot);
  orvexjava::storeUserData(env, cb, userData);
  node->setCallback(&SoCallbackCallback::RealCallback, callback);
  holdings.removeSlotExceptLast(slot);
}

}  // extern "C"
