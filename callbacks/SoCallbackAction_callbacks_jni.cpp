// Registration of Java callbacks with an SoCallbackAction. The action's
// registrations are mirrored in holdings that its Java wrapper owns (made by
// NativeCallbackHoldings), which let go of every callback when the wrapper
// goes.

#include <jni.h>

#include <Orvex/actions/SoCallbackAction.h>

#include "CallbackHoldings.h"
#include "CallbackKinds.h"
#include "CallbackObject.h"
#include "TypeArgument.h"

using orvexjava::CallbackHoldings;

namespace {

// The action's lists, as slots of its holdings.
enum ActionList { kPre, kPost, kPreTail, kPostTail, kTriangle, kLineSegment, kPoint };

template <typename F>
using TypedMember = void (SoCallbackAction::*)(SoType, F*, void*);
template <typename F>
using TailMember = void (SoCallbackAction::*)(F*, void*);

CallbackHoldings* holdingsAt(jlong address) { return reinterpret_cast<CallbackHoldings*>(address); }
SoCallbackAction* actionAt(jlong address) { return reinterpret_cast<SoCallbackAction*>(address); }

// Adds `javaCB` to the list `list` for nodes of `typeName`: takes a hold,
// stores the user data on the callback object and hands the kind's
// trampoline and native object to the toolkit.
template <typename Callback, typename F>
void addTyped(JNIEnv* env, jlong self, jlong holdings, jstring typeName, jobject javaCB, jobject userData,
              ActionList list, TypedMember<F> add) {
  Callback* callback = orvexjava::nativeCallbackOf<Callback>(env, javaCB);
  const SoType type = orvexjava::typeNamed(env, typeName);
  if (type.isBad()) {
    callback->letGoIfUnheld();
    return;
  }
  holdingsAt(holdings)->add(env, javaCB, callback, CallbackHoldings::slot(list, type.getKey()));
  orvexjava::storeUserData(env, javaCB, userData);
  (actionAt(self)->*add)(type, &Callback::RealCallback, callback);
}

template <typename Callback, typename F>
void removeTyped(JNIEnv* env, jlong self, jlong holdings, jstring typeName, jobject javaCB, ActionList list,
                 TypedMember<F> remove) {
  Callback* callback = orvexjava::nativeCallbackOf<Callback>(env, javaCB);
  if (callback == nullptr) return;  // never registered anywhere
  const SoType type = orvexjava::typeNamed(env, typeName);
  if (type.isBad()) return;
  (actionAt(self)->*remove)(type, &Callback::RealCallback, callback);
  holdingsAt(holdings)->remove(callback, CallbackHoldings::slot(list, type.getKey()));
}

template <typename Callback, typename F>
void addTail(JNIEnv* env, jlong self, jlong holdings, jobject javaCB, jobject userData, ActionList list,
             TailMember<F> add) {
  Callback* callback = orvexjava::nativeCallbackOf<Callback>(env, javaCB);
  holdingsAt(holdings)->add(env, javaCB, callback, CallbackHoldings::slot(list));
  orvexjava::storeUserData(env, javaCB, userData);
  (actionAt(self)->*add)(&Callback::RealCallback, callback);
}

template <typename Callback, typename F>
void removeTail(JNIEnv* env, jlong self, jlong holdings, jobject javaCB, ActionList list, TailMember<F> remove) {
  Callback* callback = orvexjava::nativeCallbackOf<Callback>(env, javaCB);
  if (callback == nullptr) return;  // never registered anywhere
  (actionAt(self)->*remove)(&Callback::RealCallback, callback);
  holdingsAt(holdings)->remove(callback, CallbackHoldings::slot(list));
}

}  // namespace

#define ACTION_ENTRY(ret, name) extern "C" JNIEXPORT ret JNICALL Java_com_orvexa_orvex_actions_SoCallbackAction_##name

ACTION_ENTRY(void, addPreCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jstring type, jobject cb,
                                       jobject userData) {
  addTyped<SoCallbackActionCallback>(env, self, holdings, type, cb, userData, kPre, &SoCallbackAction::addPreCallback);
}
ACTION_ENTRY(void, addPostCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jstring type, jobject cb,
                                        jobject userData) {
  addTyped<SoCallbackActionCallback>(env, self, holdings, type, cb, userData, kPost,
                                     &SoCallbackAction::addPostCallback);
}
ACTION_ENTRY(void, addPreTailCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jobject cb,
                                           jobject userData) {
  addTail<SoCallbackActionCallback>(env, self, holdings, cb, userData, kPreTail,
                                    &SoCallbackAction::addPreTailCallback);
}
ACTION_ENTRY(void, addPostTailCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jobject cb,
                                            jobject userData) {
  addTail<SoCallbackActionCallback>(env, self, holdings, cb, userData, kPostTail,
                                    &SoCallbackAction::addPostTailCallback);
}
ACTION_ENTRY(void, addTriangleCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jstring type,
                                            jobject cb, jobject userData) {
  addTyped<SoTriangleCallback>(env, self, holdings, type, cb, userData, kTriangle,
                               &SoCallbackAction::addTriangleCallback);
}
ACTION_ENTRY(void, addLineSegmentCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jstring type,
                                               jobject cb, jobject userData) {
  addTyped<SoLineSegmentCallback>(env, self, holdings, type, cb, userData, kLineSegment,
                                  &SoCallbackAction::addLineSegmentCallback);
}
ACTION_ENTRY(void, addPointCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jstring type, jobject cb,
                                         jobject userData) {
  addTyped<SoPointCallback>(env, self, holdings, type, cb, userData, kPoint, &SoCallbackAction::addPointCallback);
}

ACTION_ENTRY(void, removePreCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jstring type, jobject cb) {
  removeTyped<SoCallbackActionCallback>(env, self, holdings, type, cb, kPre, &SoCallbackAction::removePreCallback);
}
ACTION_ENTRY(void, removePostCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jstring type,
                                           jobject cb) {
  removeTyped<SoCallbackActionCallback>(env, self, holdings, type, cb, kPost, &SoCallbackAction::removePostCallback);
}
ACTION_ENTRY(void, removePreTailCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jobject cb) {
  removeTail<SoCallbackActionCallback>(env, self, holdings, cb, kPreTail, &SoCallbackAction::removePreTailCallback);
}
ACTION_ENTRY(void, removePostTailCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jobject cb) {
  removeTail<SoCallbackActionCallback>(env, self, holdings, cb, kPostTail,
                                       &SoCallbackAction::removePostTailCallback);
}
ACTION_ENTRY(void, removeTriangleCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jstring type,
                                               jobject cb) {
  removeTyped<SoTriangleCallback>(env, self, holdings, type, cb, kTriangle, &SoCallbackAction::removeTriangleCallback);
}
ACTION_ENTRY(void, removeLineSegmentCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jstring type,
                                                  jobject cb) {
  removeTyped<SoLineSegmentCallback>(env, self, holdings, type, cb, kLineSegment,
                                     &SoCallbackAction::removeLineSegmentCallback);
}
ACTION_ENTRY(void, removePointCallbackImpl)(JNIEnv* env, jclass, jlong self, jlong holdings, jstring type,
                                            jobject cb) {
  removeTyped<SoPointCallback>(env, self, holdings, type, cb, kPoint, &SoCallbackAction::removePointCallback);
}

// Removes every callback from the action, and gives back their holds.
ACTION_ENTRY(void, clearCallbacksImpl)(JNIEnv*, jclass, jlong self, jlong holdings) {
  actionAt(self)->clearCallbacks();
  if (holdings != 0) holdingsAt(holdings)->clear();
}

// The holdings owned by a Java wrapper of an object that is not reference
// counted (an action), released by the wrapper's clean-up.
extern "C" JNIEXPORT jlong JNICALL Java_com_orvexa_internal_NativeCallbackHoldings_createImpl(JNIEnv*, jclass) {
  return reinterpret_cast<jlong>(new CallbackHoldings());
}

extern "C" JNIEXPORT void JNICALL Java_com_orvexa_internal_NativeCallbackHoldings_deleteImpl(JNIEnv*, jclass,
                                                                                          jlong address) {
  delete holdingsAt(address);
}
