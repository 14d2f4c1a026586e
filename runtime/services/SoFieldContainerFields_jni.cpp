// The fields of a field container as Java objects, for
// com.orvexa.orvex.fields.SoFieldContainer.getFields.

#include <jni.h>

#include <Orvex/SoFieldList.h>
#include <Orvex/fields/SoField.h>
#include <Orvex/fields/SoFieldContainer.h>

#include "MakeJavaObj.h"

extern "C" {

// The container's fields as a SoField[] in the container's order, each the
// one Java object of its address, of the most specific field class.
JNIEXPORT jobjectArray JNICALL Java_com_orvexa_orvex_fields_SoFieldContainer_getFieldsNativ(JNIEnv* env, jclass,
                                                                                          jlong container) {
  SoFieldList fields;
  reinterpret_cast<const SoFieldContainer*>(container)->getFields(fields);
  jclass fieldClass = env->FindClass("com/orvexa/orvex/fields/SoField");
  if (fieldClass == nullptr) return nullptr;
  jobjectArray result = env->NewObjectArray(fields.getLength(), fieldClass, nullptr);
  env->DeleteLocalRef(fieldClass);
  if (result == nullptr) return nullptr;
  for (int i = 0; i < fields.getLength(); ++i) {
    jobject field = makeManagedJavaObject(env, "com/orvexa/orvex/fields/SoField",
                                          reinterpret_cast<jlong>(fields.get(i)), false, false);
    if (env->ExceptionCheck()) return nullptr;
    env->SetObjectArrayElement(result, i, field);
    env->DeleteLocalRef(field);
  }
  return result;
}

}  // extern "C"
