// Run-time toolkit type names that the Java ObjectManager uses to choose the
// class of a new wrapper.

#include <jni.h>

#include <Orvex/errors/SoError.h>
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

}  // extern "C"
