#pragma once
// The Java primitive array that carries components of type C (jfloat,
// jdouble, jint, jlong, jshort, jbyte, jboolean), with its region copies:
// the copies that move elements straight between a Java array and native
// memory, without borrowing the array.

#include <jni.h>

template <class C>
struct JavaComponentArray;

#define ORVEX_JAVA_COMPONENT_ARRAY(C, ArrayType, Name)                                          \
  template <>                                                                                   \
  struct JavaComponentArray<C> {                                                                \
    using Array = ArrayType;                                                                    \
    static Array make(JNIEnv* env, jsize n) { return env->New##Name##Array(n); }                \
    static void read(JNIEnv* env, Array a, jsize start, jsize n, C* to) {                       \
      env->Get##Name##ArrayRegion(a, start, n, to);                                             \
    }                                                                                           \
    static void write(JNIEnv* env, Array a, jsize start, jsize n, const C* from) {              \
      env->Set##Name##ArrayRegion(a, start, n, from);                                           \
    }                                                                                           \
  };

ORVEX_JAVA_COMPONENT_ARRAY(jfloat, jfloatArray, Float)
ORVEX_JAVA_COMPONENT_ARRAY(jdouble, jdoubleArray, Double)
ORVEX_JAVA_COMPONENT_ARRAY(jint, jintArray, Int)
ORVEX_JAVA_COMPONENT_ARRAY(jlong, jlongArray, Long)
ORVEX_JAVA_COMPONENT_ARRAY(jshort, jshortArray, Short)
ORVEX_JAVA_COMPONENT_ARRAY(jbyte, jbyteArray, Byte)
ORVEX_JAVA_COMPONENT_ARRAY(jboolean, jbooleanArray, Boolean)

#undef ORVEX_JAVA_COMPONENT_ARRAY
