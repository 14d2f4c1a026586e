// The field-container queries the generated classes cannot express: a field
// of a container by name, as the address the Java wrapper of the field
// stands for (the container owns the field).

#include <jni.h>

#include <Orvex/SbName.h>
#include <Orvex/fields/SoField.h>
#include <Orvex/fields/SoFieldContainer.h>

#include "StringHelper.h"

extern "C" {

JNIEXPORT jlong JNICALL Java_com_orvexa_orvex_fields_SoFieldContainer_getFieldHandle(JNIEnv* env, jclass,
                                                                                     jlong container, jstring name) {
  StringHelper nameStrHelper(env, name);
  SoField* field = reinterpret_cast<SoFieldContainer*>(container)->getField(SbName(nameStrHelper.toUTFString()));
  return reinterpret_cast<jlong>(field);
}

}  // extern "C"
