// Baselines of the entry-point benchmark: a JNI call that does nothing, and
// one that only borrows and releases its arrays the way a generated
// value-type entry point does (the copies a value operation cannot avoid).
#include <jni.h>

extern "C" {

JNIEXPORT void JNICALL Java_com_orvexa_benchmarks_JniFloor_empty(JNIEnv*, jclass, jfloatArray, jfloatArray) {}

JNIEXPORT void JNICALL Java_com_orvexa_benchmarks_JniFloor_pinTwo(JNIEnv* env, jclass, jfloatArray a,
                                                                   jfloatArray b) {
  jfloat* pa = env->GetFloatArrayElements(a, nullptr);
  jfloat* pb = env->GetFloatArrayElements(b, nullptr);
  env->ReleaseFloatArrayElements(b, pb, 0);
  env->ReleaseFloatArrayElements(a, pa, 0);
}

JNIEXPORT void JNICALL Java_com_orvexa_benchmarks_JniFloor_pinThree(JNIEnv* env, jclass, jfloatArray a,
                                                                     jfloatArray b, jfloatArray c) {
  jfloat* pa = env->GetFloatArrayElements(a, nullptr);
  jfloat* pb = env->GetFloatArrayElements(b, nullptr);
  jfloat* pc = env->GetFloatArrayElements(c, nullptr);
  env->ReleaseFloatArrayElements(c, pc, 0);
  env->ReleaseFloatArrayElements(b, pb, 0);
  env->ReleaseFloatArrayElements(a, pa, 0);
}

}  // extern "C"
