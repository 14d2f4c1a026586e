#pragma once
// The native half of object identity: asks the Java ObjectManager for the one
// Java object that stands for a native address, asks DynamicTypeManager to
// create native objects of Java-defined types, and converts Java enumeration
// constants to and from their int values.

#include <jni.h>

#include "OrvexJavaExport.h"

class ORVEXJAVA_API ObjectHelper {
 public:
  // Resolves the Java classes and static methods used below; returns at once
  // once done. Every missing one ends the virtual machine (FatalError).
  static void init(JNIEnv* env);

  // Creates, through DynamicTypeManager.newInstance, the native object of the
  // Java-defined toolkit type `typeName` on the calling thread's environment;
  // null (with an IllegalArgumentException pending) when Java raised.
  static void* getManagedObject(const char* typeName);
  // ObjectManager.newInstance(className).
  static jobject getManagedObject(JNIEnv* env, const char* className);
  // ObjectManager.getManagedObjectForInternal(className, handle): the Java
  // object standing for the native object at `handle`.
  static jobject getManagedObject(JNIEnv* env, const char* className, jlong handle);
  // ObjectManager.getEnumValueOf(enumClassName, value).
  static jobject getEnum(JNIEnv* env, const char* enumClassName, jint value);
  // The constant's getValue(); -1 with an IllegalArgumentException pending
  // when the object has no class or no getValue()I.
  static int getEnumValue(JNIEnv* env, jobject enumConstant);

  // Process-wide cache (global class references, never released).
  static jclass s_orxInternalObjectManagerClass;
  static jmethodID s_getManagedObjectForId;
  static jmethodID s_getEnumValueOfId;
  static jmethodID s_newInstanceFromClassNameId;
  static jclass s_dynamicTypeManagerClass;
  static jmethodID s_newInstanceFromNativeTypeName;
};
