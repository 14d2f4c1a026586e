// Database queries of com.orvexa.orvex.SoDB beyond start-up.

#include <jni.h>

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoPath.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/nodes/SoSeparator.h>

#include "ArrayHelper.h"
#include "StringHelper.h"

extern "C" {

JNIEXPORT jstring JNICALL Java_com_orvexa_orvex_SoDB_getVersionImpl(JNIEnv* env, jclass) {
  return StringHelper::fromNativeString(env, SoDB::getVersion());
}

// Reads one node (or path) from the input into element 0 of `result` (0 when
// there is none); answers the toolkit's success flag. The node is handed to
// Java unreferenced, as the toolkit returns it: the Java wrapper takes the
// first reference.
JNIEXPORT jboolean JNICALL Java_com_orvexa_orvex_SoDB_readImpl(JNIEnv* env, jclass, jlong input, jlongArray result) {
  SoNode* rootNodeTmp = nullptr;
  const bool ok = SoDB::read(reinterpret_cast<SoInput*>(input), rootNodeTmp);
  ArrayHelper resultArrayHelper(env);
  *resultArrayHelper.toNativeArray(result, ArrayHelper::READ_WRITE) = reinterpret_cast<jlong>(rootNodeTmp);
  return ok ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jboolean JNICALL Java_com_orvexa_orvex_SoDB_readPathImpl(JNIEnv* env, jclass, jlong input,
                                                                  jlongArray result) {
  SoPath* pathTmp = nullptr;
  const bool ok = SoDB::read(reinterpret_cast<SoInput*>(input), pathTmp);
  ArrayHelper resultArrayHelper(env);
  *resultArrayHelper.toNativeArray(result, ArrayHelper::READ_WRITE) = reinterpret_cast<jlong>(pathTmp);
  return ok ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jlong JNICALL Java_com_orvexa_orvex_SoDB_readAllImpl(JNIEnv*, jclass, jlong input) {
  return reinterpret_cast<jlong>(SoDB::readAll(reinterpret_cast<SoInput*>(input)));
}

JNIEXPORT jboolean JNICALL Java_com_orvexa_orvex_SoDB_isValidHeaderImpl(JNIEnv* env, jclass, jstring text) {
  StringHelper textStrHelper(env, text);
  return SoDB::isValidHeader(textStrHelper.toUTFString()) ? JNI_TRUE : JNI_FALSE;
}

}  // extern "C"
