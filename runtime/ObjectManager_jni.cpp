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

extern "C" {

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoBaseNativeTypeName(JNIEnv* env, jclass,
                                                                                        jlong handle) {
  return StringHelper::fromNativeString(env, reinterpret_cast<SoBase*>(handle)->getTypeId().getName());
}

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoFieldNativeTypeName(JNIEnv* env, jclass,
                                                                                         jlong handle) {
  return StringHelper::fromNativeString(env, reinterpret_cast<SoField*>(handle)->getTypeId().getName());
}

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoErrorNativeTypeName(JNIEnv* env, jclass,
                                                                                         jlong handle) {
  return StringHelper::fromNativeString(env, reinterpret_cast<SoError*>(handle)->getTypeId().getName());
}

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoActionNativeTypeName(JNIEnv* env, jclass,
                                                                                          jlong handle) {
  return StringHelper::fromNativeString(env, reinterpret_cast<SoAction*>(handle)->getTypeId().getName());
}

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoEventNativeTypeName(JNIEnv* env, jclass,
                                                                                         jlong handle) {
  return StringHelper::fromNativeString(env, reinterpret_cast<SoEvent*>(handle)->getTypeId().getName());
}

JNIEXPORT jstring JNICALL Java_com_orvexa_internal_ObjectManager_getSoDetailNativeTypeName(JNIEnv* env, jclass,
                                                                                          jlong handle) {
  return StringHelper::fromNativeString(env, reinterpret_cast<SoDetail*>(handle)->getTypeId().getName());
}

}  // extern "C"
