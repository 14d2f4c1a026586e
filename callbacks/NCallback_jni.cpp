// Entry points of package com.orvexa.orvex.misc.callbacks: the constructor
// of each callback kind makes its native callback object, and NCallback
// deletes it through its clean-up.

#include <jni.h>

#include <new>

#include "CallbackKinds.h"

namespace {

// Makes the kind's native object for `javaCB` and stores its address in the
// object's "addressCB" field (0 when the allocation failed).
template <typename Callback>
void construct(JNIEnv* env, jobject javaCB) {
  Callback* callback = new (std::nothrow) Callback(javaCB, env);
  jclass cls = env->GetObjectClass(javaCB);
  env->SetLongField(javaCB, env->GetFieldID(cls, "addressCB", "J"), reinterpret_cast<jlong>(callback));
  env->DeleteLocalRef(cls);
}

}  // namespace

#define ORVEX_CALLBACK_CONSTRUCTOR(Kind, Callback)                                                          \
  JNIEXPORT void JNICALL Java_com_orvexa_orvex_misc_callbacks_##Kind##_constructor(JNIEnv* env, jobject self) { \
    construct<Callback>(env, self);                                                                          \
  }

extern "C" {

ORVEX_CALLBACK_CONSTRUCTOR(SoCallbackActionCB, SoCallbackActionCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoTriangleCB, SoTriangleCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoLineSegmentCB, SoLineSegmentCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoPointCB, SoPointCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoEventCallbackCB, SoEventCallbackCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoCallbackCB, SoCallbackCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoSensorManagerCB, SoSensorManagerCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoSelectionPathCB, SoSelectionPathCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoSelectionClassCB, SoSelectionClassCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoSelectionPickCB, SoSelectionPickCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoGLRenderPassCB, SoGLRenderPassCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoGLRenderAbortCB, SoGLRenderAbortCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoWWWInlineFetchURLCB, SoWWWInlineFetchURLCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoWWWAnchorCB, SoWWWAnchorCallback)
ORVEX_CALLBACK_CONSTRUCTOR(SoCallbackListCB, SoCallbackListCallback)

// A header function is a pre or a post function: one constructor each.
JNIEXPORT void JNICALL Java_com_orvexa_orvex_misc_callbacks_SoDBHeaderCB_constructor1(JNIEnv* env, jobject self) {
  construct<SoDBHeaderPreCallback>(env, self);
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_misc_callbacks_SoDBHeaderCB_constructor2(JNIEnv* env, jobject self) {
  construct<SoDBHeaderPostCallback>(env, self);
}

// Deletes the native object at `address`: called once, by the clean-up of
// the Java callback object (when it is collected, or deleted early).
JNIEXPORT void JNICALL Java_com_orvexa_orvex_misc_callbacks_NCallback_deleteNativeCallbackAt(JNIEnv*, jclass,
                                                                                            jlong address) {
  delete reinterpret_cast<JCallback*>(address);
}

JNIEXPORT jlong JNICALL Java_com_orvexa_orvex_misc_callbacks_NCallback_liveNativeCallbacks(JNIEnv*, jclass) {
  return JCallback::getLiveCount();
}

JNIEXPORT jlong JNICALL Java_com_orvexa_orvex_misc_callbacks_NCallback_heldReferences(JNIEnv*, jclass) {
  return JCallback::getReferenceCount();
}

JNIEXPORT jint JNICALL Java_com_orvexa_orvex_misc_callbacks_NCallback_holdCount(JNIEnv*, jclass, jlong address) {
  return address == 0 ? 0 : reinterpret_cast<JCallback*>(address)->getHoldCount();
}

}  // extern "C"
