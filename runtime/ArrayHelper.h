#pragma once
// A stack view of Java primitive arrays: borrows the elements of one Java
// array for the duration of a native call and gives them back, copied back or
// not, when it is destroyed. Also makes new Java arrays from native data.

#include <jni.h>

#include <cstddef>

#include "OrvexJavaExport.h"

class ORVEXJAVA_API ArrayHelper {
 public:
  // Handed unchanged to the virtual machine as the release mode.
  enum AccessMode : int {
    READ_WRITE = 0,  // copy back, free the buffer
    COMMIT = JNI_COMMIT,     // copy back, keep the buffer
    READ_ONLY = JNI_ABORT,   // free without copying back
  };
  static_assert(JNI_COMMIT == 1 && JNI_ABORT == 2, "release modes must match the virtual machine's");

  explicit ArrayHelper(JNIEnv* env);
  // Releases everything borrowed under the recorded mode; a boolean buffer is
  // written back (low byte of each int) only under READ_WRITE. A helper that
  // has borrowed anything must not be copied.
  virtual ~ArrayHelper();

  // The borrowed elements; null for a null array, for an array other than
  // the one this helper is bound to, or for mode -1. The same mode twice
  // gives the same pointer; another mode re-borrows.
  float* toNativeArray(jfloatArray array, AccessMode mode);
  double* toNativeArray(jdoubleArray array, AccessMode mode);
  jlong* toNativeArray(jlongArray array, AccessMode mode);
  int* toNativeArray(jintArray array, AccessMode mode);
  short* toNativeArray(jshortArray array, AccessMode mode);
  char* toNativeArray(jbyteArray array, AccessMode mode);
  // The same elements seen as unsigned (bits unchanged).
  unsigned int* toUnsignedNativeArray(jintArray array, AccessMode mode);
  unsigned short* toUnsignedNativeArray(jshortArray array, AccessMode mode);
  unsigned char* toUnsignedNativeArray(jbyteArray array, AccessMode mode);
  // A converted copy, one int (0 or 1) per boolean.
  int* toNativeArray(jbooleanArray array, AccessMode mode);

  // New Java arrays filled with one region copy; null for null data or a
  // count of 0. Unsigned values keep their bits.
  static jfloatArray fromNativeArray(JNIEnv* env, const float* data, size_t count);
  static jdoubleArray fromNativeArray(JNIEnv* env, const double* data, size_t count);
  static jlongArray fromNativeArray(JNIEnv* env, const long long* data, size_t count);
  // Reads `count` 64-bit elements from `data` (no widening): callers pass 64-bit data.
  static jlongArray fromNativeArray(JNIEnv* env, const unsigned long* data, size_t count);
  static jintArray fromNativeArray(JNIEnv* env, const int* data, size_t count);
  static jintArray fromNativeArray(JNIEnv* env, const unsigned int* data, size_t count);
  static jshortArray fromNativeArray(JNIEnv* env, const short* data, size_t count);
  static jshortArray fromNativeArray(JNIEnv* env, const unsigned short* data, size_t count);
  static jbyteArray fromNativeArray(JNIEnv* env, const unsigned char* data, size_t count);

 private:
  // Shared steps 1-5 of every borrowing conversion: false when the call must yield null.
  bool bind(jarray array, AccessMode mode);
  template <typename J, typename A>
  J* borrow(A array, AccessMode mode, J*& slot,
            J* (JNIEnv::*get)(A, jboolean*), void (JNIEnv::*release)(A, J*, jint));
  void releaseAll();

  JNIEnv* m_env;
  jarray m_array = nullptr;
  int m_mode = -1;  // -1 until the first conversion
  jfloat* m_floats = nullptr;
  jdouble* m_doubles = nullptr;
  jint* m_ints = nullptr;      // shared by the signed and unsigned views
  jlong* m_longs = nullptr;
  jshort* m_shorts = nullptr;  // shared by the signed and unsigned views
  jbyte* m_bytes = nullptr;    // shared by the signed and unsigned views
  int* m_booleans = nullptr;   // owned copy standing for a boolean[]
};
