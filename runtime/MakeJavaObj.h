#pragma once
// Native object to Java object, of the most specific Java class that exists
// for the object's run-time toolkit type.

#include <jni.h>

#include <Orvex/SbString.h>

#include "OrvexJavaExport.h"

class SoBase;
class SoTypedObject;

// The Java object standing for `object`. `javaClassName` is slash-separated.
// For fields, actions, events and details (recognised by the package in
// `javaClassName`) the class is derived from the object's toolkit type name
// and searched in the binding's packages (found names are cached); any other
// class name is used as it is. Null when no class is found. The two flags are
// handed on to the creation step (makeManagedJavaObject). The address given
// to Java is that of `object`, which for these families is the address of
// the field, action, event or detail itself.
ORVEXJAVA_API jobject MakeJavaObj(JNIEnv* env, const char* javaClassName, const SoTypedObject* object,
                                  bool flag1, bool flag2);

// The Java object standing for a native SoBase-derived object, through the
// static com.orvexa.orvex.misc.SoBase.newInstance(long, String); null for null.
ORVEXJAVA_API jobject SoBaseJava(JNIEnv* env, const SoBase* object);

// Creation step shared with the list conversions: the object that the Java
// ObjectManager keeps for the native address, as an instance of the
// slash-separated class `javaClassName`; null when the class does not exist.
// The two flags do not change the lookup: ObjectManager decides whether the
// wrapper is new or reused.
ORVEXJAVA_API jobject makeManagedJavaObject(JNIEnv* env, const char* javaClassName, jlong address,
                                            bool flag1, bool flag2);

namespace orvexjava {
// The Java simple class name for a toolkit type name: "So" put in front
// unless the name starts with "So" or "Po"; cut after "Int" of the first
// "Int32", then after "i" of the first "i32"; "SoSFU"/"SoMFU" followed by an
// upper-case letter lose the "U".
ORVEXJAVA_API SbString deriveJavaSimpleName(const char* toolkitTypeName);
// How many times the package search ran (cache misses), for diagnostics.
ORVEXJAVA_API long getJavaClassSearchCount();
}  // namespace orvexjava
