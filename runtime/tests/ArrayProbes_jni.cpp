// Probes of the array helpers: ArrayHelper and the free copy functions.

#include <vector>

#include "ArrayFunctions.h"
#include "ArrayHelper.h"
#include "RuntimeProbe.h"

using probe::throwState;

#define FILL_PROBE(Name, JArray, JValue)                                                       \
  PROBE(jboolean, Name)(JNIEnv * env, jclass, JArray array, jint mode, JValue value) {         \
    ArrayHelper helper(env);                                                                   \
    auto* elements = helper.toNativeArray(array, static_cast<ArrayHelper::AccessMode>(mode)); \
    if (elements == nullptr) return false;                                                     \
    const jsize count = env->GetArrayLength(array);                                            \
    for (jsize i = 0; i < count; ++i) elements[i] = value;                                     \
    return true;                                                                               \
  }

FILL_PROBE(fillFloats, jfloatArray, jfloat)
FILL_PROBE(fillDoubles, jdoubleArray, jdouble)
FILL_PROBE(fillLongs, jlongArray, jlong)
FILL_PROBE(fillInts, jintArray, jint)
FILL_PROBE(fillShorts, jshortArray, jshort)
FILL_PROBE(fillBytes, jbyteArray, jbyte)

PROBE(jlong, unsignedIntAt)(JNIEnv* env, jclass, jintArray array, jint index) {
  ArrayHelper helper(env);
  return static_cast<jlong>(helper.toUnsignedNativeArray(array, ArrayHelper::READ_ONLY)[index]);
}

PROBE(jint, unsignedShortAt)(JNIEnv* env, jclass, jshortArray array, jint index) {
  ArrayHelper helper(env);
  return static_cast<jint>(helper.toUnsignedNativeArray(array, ArrayHelper::READ_ONLY)[index]);
}

PROBE(jint, unsignedByteAt)(JNIEnv* env, jclass, jbyteArray array, jint index) {
  ArrayHelper helper(env);
  return static_cast<jint>(helper.toUnsignedNativeArray(array, ArrayHelper::READ_ONLY)[index]);
}

PROBE(jboolean, sameViewTwice)(JNIEnv* env, jclass, jintArray array, jint mode) {
  ArrayHelper helper(env);
  const auto m = static_cast<ArrayHelper::AccessMode>(mode);
  int* first = helper.toNativeArray(array, m);
  return first != nullptr && helper.toNativeArray(array, m) == first;
}

// Re-borrowing under another mode releases the first borrow under its own
// mode: a READ_ONLY write is dropped, the READ_WRITE one that follows is kept.
PROBE(void, writeUnderTwoModes)(JNIEnv* env, jclass, jintArray array, jint firstValue, jint secondValue) {
  ArrayHelper helper(env);
  helper.toNativeArray(array, ArrayHelper::READ_ONLY)[0] = firstValue;
  helper.toNativeArray(array, ArrayHelper::READ_WRITE)[1] = secondValue;
}

PROBE(jboolean, secondArrayRefused)(JNIEnv* env, jclass, jintArray first, jintArray second) {
  ArrayHelper helper(env);
  return helper.toNativeArray(first, ArrayHelper::READ_WRITE) != nullptr &&
         helper.toNativeArray(second, ArrayHelper::READ_WRITE) == nullptr &&
         helper.toNativeArray(first, ArrayHelper::READ_WRITE) != nullptr;
}

PROBE(jintArray, booleanView)(JNIEnv* env, jclass, jbooleanArray array, jint mode, jintArray replacement) {
  ArrayHelper helper(env);
  int* view = helper.toNativeArray(array, static_cast<ArrayHelper::AccessMode>(mode));
  const jsize count = env->GetArrayLength(array);
  jintArray before = env->NewIntArray(count);
  env->SetIntArrayRegion(before, 0, count, view);
  env->GetIntArrayRegion(replacement, 0, count, view);  // what the native code "wrote"
  return before;
}

PROBE(jobject, fromNativeArray)(JNIEnv* env, jclass, jint kind, jint count) {
  const auto n = static_cast<size_t>(count);
  switch (kind) {
    case 0: {
      std::vector<float> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = 1.5f * static_cast<float>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 1: {
      std::vector<double> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = 0.25 * static_cast<double>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 2: {
      std::vector<long long> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = i == 0 ? -1LL : (1LL << 40) + static_cast<long long>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 3: {
      std::vector<unsigned long> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = i == 0 ? ~0UL : i;
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 4: {
      std::vector<int> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = -static_cast<int>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 5: {
      std::vector<unsigned int> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = i == 0 ? 0xFFFFFFFFu : static_cast<unsigned int>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 6: {
      std::vector<short> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = static_cast<short>(-static_cast<int>(i));
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 7: {
      std::vector<unsigned short> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = i == 0 ? 65535 : static_cast<unsigned short>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    case 8: {
      std::vector<unsigned char> d(n + 1);
      for (size_t i = 0; i < n; ++i) d[i] = i == 0 ? 255 : static_cast<unsigned char>(i);
      return ArrayHelper::fromNativeArray(env, d.data(), n);
    }
    default:
      throwState(env, "unknown kind");
      return nullptr;
  }
}

PROBE(jboolean, fromNativeArrayOfNullDataIsNull)(JNIEnv* env, jclass) {
  return ArrayHelper::fromNativeArray(env, static_cast<const float*>(nullptr), 3) == nullptr &&
         ArrayHelper::fromNativeArray(env, static_cast<const int*>(nullptr), 3) == nullptr &&
         ArrayHelper::fromNativeArray(env, static_cast<const unsigned char*>(nullptr), 3) == nullptr;
}

PROBE(jintArray, copyInts)(JNIEnv* env, jclass, jintArray array) {
  int* copy = getIntArrayFunc(env, array);
  jintArray result = getJIntArrayFunc(env, array == nullptr ? 0 : env->GetArrayLength(array), copy);
  delete[] copy;
  return result;
}

PROBE(jshortArray, copyShorts)(JNIEnv* env, jclass, jshortArray array) {
  short* copy = getShortArrayFunc(env, array);
  jshortArray result = getJShortArrayFunc(env, array == nullptr ? 0 : env->GetArrayLength(array), copy);
  delete[] copy;
  return result;
}

PROBE(jfloatArray, copyFloats)(JNIEnv* env, jclass, jfloatArray array) {
  float* copy = getFloatArrayFunc(env, array);
  jfloatArray result = getJFloatArrayFunc(env, array == nullptr ? 0 : env->GetArrayLength(array), copy);
  delete[] copy;
  return result;
}

PROBE(jlongArray, copyLongs)(JNIEnv* env, jclass, jlongArray array) {
  OrxLong32* copy = getLongArrayFunc(env, array);
  jlongArray result = getJLongArrayFunc(env, array == nullptr ? 0 : env->GetArrayLength(array), copy);
  delete[] copy;
  return result;
}

PROBE(jintArray, truncatedLongs)(JNIEnv* env, jclass, jlongArray array) {
  OrxLong32* copy = getLongArrayFunc(env, array);
  jintArray result = env->NewIntArray(env->GetArrayLength(array));
  env->SetIntArrayRegion(result, 0, env->GetArrayLength(array), reinterpret_cast<const jint*>(copy));
  delete[] copy;
  return result;
}

PROBE(jlongArray, widenInts)(JNIEnv* env, jclass, jintArray values) {
  const jsize count = env->GetArrayLength(values);
  std::vector<OrxLong32> data(static_cast<size_t>(count) + 1);
  env->GetIntArrayRegion(values, 0, count, reinterpret_cast<jint*>(data.data()));
  return getJLongArrayFunc(env, count, data.data());
}

PROBE(jboolean, emptyCopiesAreEmptyArrays)(JNIEnv* env, jclass) {
  const int i = 1;
  const short s = 1;
  const OrxLong32 l = 1;
  const float f = 1;
  jarray arrays[] = {getJIntArrayFunc(env, 0, &i), getJShortArrayFunc(env, 0, &s), getJLongArrayFunc(env, 0, &l),
                     getJFloatArrayFunc(env, 0, &f)};
  for (jarray a : arrays) {
    if (a == nullptr || env->GetArrayLength(a) != 0) return false;
  }
  return getJIntArrayFunc(env, 2, nullptr) == nullptr && getJLongArrayFunc(env, 2, nullptr) == nullptr &&
         getJFloatArrayFunc(env, 2, nullptr) == nullptr && getIntArrayFunc(env, nullptr) == nullptr &&
         getLongArrayFunc(env, nullptr) == nullptr;
}
