// Reading into out-parameters for com.orvexa.orvex.SoDB (read, readPath): the
// node or path comes back through a one-element array. The database's other
// services are generated.

#include <jni.h>

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoPath.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/nodes/SoSeparator.h>

#include "ArrayHelper.h"
#include "StringHelper.h"

extern "C" {

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

}  // extern "C"
