// Run-time toolkit type names that the Java ObjectManager uses to choose the
// class of a new wrapper.

#include <jni.h>

#include <Orvex/actions/SoAction.h>
#include <Orvex/details/SoDetail.h>
#include <Orvex/errors/SoError.h>
#include <Orvex/events/SoEvent.h>
#include <Orvex/fields/SoField.h>
#include <Orvex/misc/SoBase.h>

#include "StringHelper.h"

namespace {
// The run-time toolkit type name of a native object of family T.
template <class T>
jstring typeNameOf(JNIEnv* env, jlong handle) {
  return StringHelper::fromNativeString(env, reinterpret_cast<T*>(handle)->getTypeId().getName());
}
}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoBaseNativeTypeName(JNIEnv* env, jclass,
                                                                                        jlong handle) {
  return typeNameOf<SoBase>(env, handle);
}

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoFieldNativeTypeName(JNIEnv* env, jclass,
                                                                                         jlong handle) {
  return typeNameOf<SoField>(env, handle);
}

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoErrorNativeTypeName(JNIEnv* env, jclass,
                                                                                         jlong handle) {
  return typeNameOf<SoError>(env, handle);
}

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoActionNativeTypeName(JNIEnv* env, jclass,
                                                                                          jlong handle) {
  return typeNameOf<SoAction>(env, handle);
}

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoEventNativeTypeName(JNIEnv* env, jclass,
                                                                                         jlong handle) {
  return typeNameOf<SoEvent>(env, handle);
}

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoDetailNativeTypeName(JNIEnv* env, jclass,
                                                                                          jlong handle) {
  return typeNameOf<SoDetail>(env, handle);
}

}  // extern "C"
