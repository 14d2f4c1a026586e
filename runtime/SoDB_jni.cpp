// Database queries of com.orvexa.orvex.SoDB beyond start-up.

#include <jni.h>

#include <Orvex/SoDB.h>

#include "StringHelper.h"

extern "C" {

JNIEXPORT jstring JNICALL Java_com_orvexa_orvex_SoDB_getVersionImpl(JNIEnv* env, jclass) {
  return StringHelper::fromNativeString(env, SoDB::getVersion());
}

}  // extern "C"
