#include "ArrayHelper.h"

ArrayHelper::ArrayHelper(JNIEnv* env) : m_env(env) {}

ArrayHelper::~ArrayHelper() {
  releaseAll();
  if (m_booleans != nullptr) {
    if (m_mode == READ_WRITE) {
      auto array = static_cast<jbooleanArray>(m_array);
      const jsize count = m_env->GetArrayLength(array);
      jboolean* elements = m_env->GetBooleanArrayElements(array, nullptr);
      if (elements != nullptr) {
        // Only the low byte survives, as the virtual machine stores a jboolean.
        for (jsize i = 0; i < count; ++i) elements[i] = static_cast<jboolean>(m_booleans[i] & 0xFF);
        m_env->ReleaseBooleanArrayElements(array, elements, 0);
      }
    }
    delete[] m_booleans;
  }
}

void ArrayHelper::releaseAll() {
  if (m_floats != nullptr) m_env->ReleaseFloatArrayElements(static_cast<jfloatArray>(m_array), m_floats, m_mode);
  if (m_doubles != nullptr) m_env->ReleaseDoubleArrayElements(static_cast<jdoubleArray>(m_array), m_doubles, m_mode);
  if (m_longs != nullptr) m_env->ReleaseLongArrayElements(static_cast<jlongArray>(m_array), m_longs, m_mode);
  if (m_ints != nullptr) m_env->ReleaseIntArrayElements(static_cast<jintArray>(m_array), m_ints, m_mode);
  if (m_shorts != nullptr) m_env->ReleaseShortArrayElements(static_cast<jshortArray>(m_array), m_shorts, m_mode);
  if (m_bytes != nullptr) m_env->ReleaseByteArrayElements(static_cast<jbyteArray>(m_array), m_bytes, m_mode);
}

bool ArrayHelper::bind(jarray array, AccessMode mode) {
  if (array == nullptr) return false;
  if (m_array != nullptr && !m_env->IsSameObject(m_array, array)) return false;  // one array per helper
  if (static_cast<int>(mode) == -1) return false;
  if (m_array == nullptr) m_array = array;
  return true;
}

template <typename J, typename A>
J* ArrayHelper::borrow(A array, AccessMode mode, J*& slot,
                       J* (JNIEnv::*get)(A, jboolean*), void (JNIEnv::*release)(A, J*, jint)) {
  if (!bind(array, mode)) return nullptr;
  if (slot != nullptr && m_mode != mode) {
    // Another mode was asked for: give the old borrow back under its own mode.
    (m_env->*release)(static_cast<A>(m_array), slot, m_mode);
    slot = nullptr;
  }
  if (slot == nullptr) {
    slot = (m_env->*get)(static_cast<A>(m_array), nullptr);
    m_mode = mode;
  }
  return slot;
}

float* ArrayHelper::toNativeArray(jfloatArray array, AccessMode mode) {
  return borrow(array, mode, m_floats, &JNIEnv::GetFloatArrayElements, &JNIEnv::ReleaseFloatArrayElements);
}

double* ArrayHelper::toNativeArray(jdoubleArray array, AccessMode mode) {
  return borrow(array, mode, m_doubles, &JNIEnv::GetDoubleArrayElements, &JNIEnv::ReleaseDoubleArrayElements);
}

jlong* ArrayHelper::toNativeArray(jlongArray array, AccessMode mode) {
  return borrow(array, mode, m_longs, &JNIEnv::GetLongArrayElements, &JNIEnv::ReleaseLongArrayElements);
}

int* ArrayHelper::toNativeArray(jintArray array, AccessMode mode) {
  return borrow(array, mode, m_ints, &JNIEnv::GetIntArrayElements, &JNIEnv::ReleaseIntArrayElements);
}

short* ArrayHelper::toNativeArray(jshortArray array, AccessMode mode) {
  return borrow(array, mode, m_shorts, &JNIEnv::GetShortArrayElements, &JNIEnv::ReleaseShortArrayElements);
}

char* ArrayHelper::toNativeArray(jbyteArray array, AccessMode mode) {
  return reinterpret_cast<char*>(
      borrow(array, mode, m_bytes, &JNIEnv::GetByteArrayElements, &JNIEnv::ReleaseByteArrayElements));
}

unsigned int* ArrayHelper::toUnsignedNativeArray(jintArray array, AccessMode mode) {
  return reinterpret_cast<unsigned int*>(toNativeArray(array, mode));
}

unsigned short* ArrayHelper::toUnsignedNativeArray(jshortArray array, AccessMode mode) {
  return reinterpret_cast<unsigned short*>(toNativeArray(array, mode));
}

unsigned char* ArrayHelper::toUnsignedNativeArray(jbyteArray array, AccessMode mode) {
  return reinterpret_cast<unsigned char*>(toNativeArray(array, mode));
}

int* ArrayHelper::toNativeArray(jbooleanArray array, AccessMode mode) {
  delete[] m_booleans;
  m_booleans = nullptr;
  m_array = array;
  m_mode = mode;
  if (array == nullptr) return nullptr;  // nothing to copy, nothing to write back
  const jsize count = m_env->GetArrayLength(array);
  jboolean* elements = m_env->GetBooleanArrayElements(array, nullptr);
  if (elements == nullptr) return nullptr;  // OutOfMemoryError pending
  m_booleans = new int[static_cast<size_t>(count)];
  for (jsize i = 0; i < count; ++i) m_booleans[i] = elements[i] ? 1 : 0;
  m_env->ReleaseBooleanArrayElements(array, elements, JNI_ABORT);
  return m_booleans;
}

namespace {
// One region copy into a new Java array of `count` elements.
template <typename A, typename J>
A makeArray(JNIEnv* env, const void* data, size_t count, A (JNIEnv::*create)(jsize),
            void (JNIEnv::*fill)(A, jsize, jsize, const J*)) {
  if (data == nullptr || count == 0) return nullptr;
  const auto length = static_cast<jsize>(count);
  A array = (env->*create)(length);
  if (array == nullptr) return nullptr;  // OutOfMemoryError pending
  (env->*fill)(array, 0, length, static_cast<const J*>(data));
  return array;
}
}  // namespace

jfloatArray ArrayHelper::fromNativeArray(JNIEnv* env, const float* data, size_t count) {
  return makeArray(env, data, count, &JNIEnv::NewFloatArray, &JNIEnv::SetFloatArrayRegion);
}

jdoubleArray ArrayHelper::fromNativeArray(JNIEnv* env, const double* data, size_t count) {
  return makeArray(env, data, count, &JNIEnv::NewDoubleArray, &JNIEnv::SetDoubleArrayRegion);
}

jlongArray ArrayHelper::fromNativeArray(JNIEnv* env, const long long* data, size_t count) {
  return makeArray(env, data, count, &JNIEnv::NewLongArray, &JNIEnv::SetLongArrayRegion);
}

jlongArray ArrayHelper::fromNativeArray(JNIEnv* env, const unsigned long* data, size_t count) {
  return makeArray(env, data, count, &JNIEnv::NewLongArray, &JNIEnv::SetLongArrayRegion);
}

jintArray ArrayHelper::fromNativeArray(JNIEnv* env, const int* data, size_t count) {
  return makeArray(env, data, count, &JNIEnv::NewIntArray, &JNIEnv::SetIntArrayRegion);
}

jintArray ArrayHelper::fromNativeArray(JNIEnv* env, const unsigned int* data, size_t count) {
  return makeArray(env, data, count, &JNIEnv::NewIntArray, &JNIEnv::SetIntArrayRegion);
}

jshortArray ArrayHelper::fromNativeArray(JNIEnv* env, const short* data, size_t count) {
  return makeArray(env, data, count, &JNIEnv::NewShortArray, &JNIEnv::SetShortArrayRegion);
}

jshortArray ArrayHelper::fromNativeArray(JNIEnv* env, const unsigned short* data, size_t count) {
  return makeArray(env, data, count, &JNIEnv::NewShortArray, &JNIEnv::SetShortArrayRegion);
}

jbyteArray ArrayHelper::fromNativeArray(JNIEnv* env, const unsigned char* data, size_t count) {
  return makeArray(env, data, count, &JNIEnv::NewByteArray, &JNIEnv::SetByteArrayRegion);
}
