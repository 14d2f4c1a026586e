#include "ArrayFunctions.h"

#include <memory>
#include <type_traits>

namespace {
// Borrows the elements, copies them one by one into a new native array and
// gives them back without copying back.
template <typename T, typename J, typename A>
T* copyToNative(JNIEnv* env, A array, J* (JNIEnv::*get)(A, jboolean*),
                void (JNIEnv::*release)(A, J*, jint)) {
  if (array == nullptr) return nullptr;
  const jsize count = env->GetArrayLength(array);
  J* elements = (env->*get)(array, nullptr);
  if (elements == nullptr) return nullptr;  // OutOfMemoryError pending
  T* copy = new T[static_cast<size_t>(count)];
  for (jsize i = 0; i < count; ++i) copy[i] = static_cast<T>(elements[i]);
  (env->*release)(array, elements, JNI_ABORT);
  return copy;
}

// A new Java array of `count` values. Values narrower than the Java elements
// (32-bit longs) are widened through a temporary of the Java element width;
// values of the same width fill the array straight from `data`.
template <typename J, typename T, typename A>
A copyToJava(JNIEnv* env, int count, const T* data, A (JNIEnv::*create)(jsize),
             void (JNIEnv::*fill)(A, jsize, jsize, const J*)) {
  if (data == nullptr) return nullptr;
  A array = (env->*create)(count);
  if (array == nullptr) return nullptr;  // OutOfMemoryError pending
  if constexpr (std::is_same_v<J, T>) {
    (env->*fill)(array, 0, count, data);
  } else {
    auto wide = std::make_unique<J[]>(static_cast<size_t>(count > 0 ? count : 0));
    for (int i = 0; i < count; ++i) wide[i] = static_cast<J>(data[i]);
    (env->*fill)(array, 0, count, wide.get());
  }
  return array;
}
}  // namespace

int* getIntArrayFunc(JNIEnv* env, jintArray array) {
  return copyToNative<int>(env, array, &JNIEnv::GetIntArrayElements, &JNIEnv::ReleaseIntArrayElements);
}

short* getShortArrayFunc(JNIEnv* env, jshortArray array) {
  return copyToNative<short>(env, array, &JNIEnv::GetShortArrayElements, &JNIEnv::ReleaseShortArrayElements);
}

OrxLong32* getLongArrayFunc(JNIEnv* env, jlongArray array) {
  return copyToNative<OrxLong32>(env, array, &JNIEnv::GetLongArrayElements, &JNIEnv::ReleaseLongArrayElements);
}

float* getFloatArrayFunc(JNIEnv* env, jfloatArray array) {
  return copyToNative<float>(env, array, &JNIEnv::GetFloatArrayElements, &JNIEnv::ReleaseFloatArrayElements);
}

jintArray getJIntArrayFunc(JNIEnv* env, int count, const int* data) {
  return copyToJava<jint>(env, count, data, &JNIEnv::NewIntArray, &JNIEnv::SetIntArrayRegion);
}

jshortArray getJShortArrayFunc(JNIEnv* env, int count, const short* data) {
  return copyToJava<jshort>(env, count, data, &JNIEnv::NewShortArray, &JNIEnv::SetShortArrayRegion);
}

jlongArray getJLongArrayFunc(JNIEnv* env, int count, const OrxLong32* data) {
  return copyToJava<jlong>(env, count, data, &JNIEnv::NewLongArray, &JNIEnv::SetLongArrayRegion);
}

jfloatArray getJFloatArrayFunc(JNIEnv* env, int count, const float* data) {
  return copyToJava<jfloat>(env, count, data, &JNIEnv::NewFloatArray, &JNIEnv::SetFloatArrayRegion);
}
