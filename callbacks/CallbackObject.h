#pragma once
// Access to the fields of a Java callback object (NCallback) from entry
// points: its native callback object ("addressCB") and its user data
// ("userData").

#include <jni.h>

#include "JCallback.h"

namespace orvexjava {

// The native callback object of `javaCB` (null when it has none yet).
template <typename Callback>
Callback* nativeCallbackOf(JNIEnv* env, jobject javaCB) {
  jclass cls = env->GetObjectClass(javaCB);
  const jfieldID address = env->GetFieldID(cls, "addressCB", "J");
  env->DeleteLocalRef(cls);
  return reinterpret_cast<Callback*>(env->GetLongField(javaCB, address));
}

// Stores the user data given at a registration on the callback object.
inline void storeUserData(JNIEnv* env, jobject javaCB, jobject userData) {
  jclass cls = env->GetObjectClass(javaCB);
  const jfieldID field = env->GetFieldID(cls, "userData", "Ljava/lang/Object;");
  env->DeleteLocalRef(cls);
  env->SetObjectField(javaCB, field, userData);
}

}  // namespace orvexjava
