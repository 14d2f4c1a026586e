#include "ExceptionHelper.h"

#include "JNIEnvHelper.h"

void ExceptionHelper::throwIllegalArgException(JNIEnv* env, const char* message) {
  if (env->ExceptionCheck()) {
    env->ExceptionDescribe();
    env->ExceptionClear();
  }
  jclass cls = env->FindClass("java/lang/IllegalArgumentException");
  if (cls == nullptr) return;  // the lookup's own error stays pending
  env->ThrowNew(cls, message);
  env->DeleteLocalRef(cls);
}

void ExceptionHelper::throwIllegalAccessException(JNIEnv* env, const char* message) {
  jclass cls = env->FindClass("java/lang/IllegalAccessException");
  if (cls == nullptr) return;
  env->ThrowNew(cls, message);
  env->DeleteLocalRef(cls);
}

void ExceptionHelper::throwIllegalAccessException(const char* message) {
  JNIEnv* env = JNIEnvHelper::getEnv();
  if (env != nullptr) throwIllegalAccessException(env, message);
}
