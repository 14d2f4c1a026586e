#include "LentJavaBuffers.h"

#include "JNIEnvHelper.h"

jobject LentJavaBuffers::bufferOf(JNIEnv* env, const SoMField* field) {
  void* keeper = SoMFieldLending::lenderOf(field, &LentJavaBuffers::released);
  return keeper ? env->NewLocalRef(static_cast<jobject>(keeper)) : nullptr;
}

jobject LentJavaBuffers::allocate(JNIEnv* env, jint bytes) {
  // ByteBuffer.allocateDirect: memory the garbage collector frees once no
  // buffer over it is reachable, which is what lending relies on.
  jclass byteBuffer = env->FindClass("java/nio/ByteBuffer");
  if (byteBuffer == nullptr) return nullptr;
  const jmethodID allocateDirect = env->GetStaticMethodID(byteBuffer, "allocateDirect", "(I)Ljava/nio/ByteBuffer;");
  jobject buffer = allocateDirect ? env->CallStaticObjectMethod(byteBuffer, allocateDirect, bytes) : nullptr;
  env->DeleteLocalRef(byteBuffer);
  if (env->ExceptionCheck()) return nullptr;
  return buffer;
}

void LentJavaBuffers::released(void* keeper) {
  // Fields die on whatever thread drops their node; the reference goes with
  // them. (Deleting a global reference is allowed with an exception pending.)
  JNIEnv* env = JNIEnvHelper::getEnv();
  if (env != nullptr) env->DeleteGlobalRef(static_cast<jobject>(keeper));
}
