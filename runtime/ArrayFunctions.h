#pragma once
// Copying conversions between Java primitive arrays and native arrays, with
// no borrowing kept: the native copies belong to the caller (array delete).

#include <jni.h>

#include <cstdint>

#include "OrvexJavaExport.h"

// The toolkit's "long" of these functions is 32 bits wide on every platform
// (the native long of the Windows ABI).
#if defined(_WIN32)
using OrxLong32 = long;
#else
using OrxLong32 = int32_t;
#endif

// New native copies of a Java array; null for a null array. Java longs are
// truncated to their low 32 bits.
ORVEXJAVA_API int* getIntArrayFunc(JNIEnv* env, jintArray array);
ORVEXJAVA_API short* getShortArrayFunc(JNIEnv* env, jshortArray array);
ORVEXJAVA_API OrxLong32* getLongArrayFunc(JNIEnv* env, jlongArray array);
ORVEXJAVA_API float* getFloatArrayFunc(JNIEnv* env, jfloatArray array);

// New Java arrays holding a copy of `count` native values; null for null
// data, an empty array for a count of 0. 32-bit longs are sign-extended.
ORVEXJAVA_API jintArray getJIntArrayFunc(JNIEnv* env, int count, const int* data);
ORVEXJAVA_API jshortArray getJShortArrayFunc(JNIEnv* env, int count, const short* data);
ORVEXJAVA_API jlongArray getJLongArrayFunc(JNIEnv* env, int count, const OrxLong32* data);
ORVEXJAVA_API jfloatArray getJFloatArrayFunc(JNIEnv* env, int count, const float* data);
