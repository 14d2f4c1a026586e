// The SoInput entry points the generated class cannot express: the input
// buffer. The toolkit reads a buffer without owning it, so the binding keeps
// a native copy of the last buffer given to setBuffer and remembers its
// address in the Java object's `nativBuff` field; the next setBuffer (or the
// release of the SoInput) frees it.

#include <jni.h>

#include <Orvex/SoInput.h>

#include <cstdlib>
#include <cstring>

#include "ArrayHelper.h"

namespace {
jfieldID bufferField(JNIEnv* env, jobject input) {
  jclass cls = env->GetObjectClass(input);
  const jfieldID field = env->GetFieldID(cls, "nativBuff", "J");
  env->DeleteLocalRef(cls);
  return field;
}

// Frees the block the object remembers and remembers `block` instead.
void replaceBlock(JNIEnv* env, jobject input, jfieldID field, void* block) {
  void* previous = reinterpret_cast<void*>(env->GetLongField(input, field));
  std::free(previous);
  env->SetLongField(input, field, reinterpret_cast<jlong>(block));
}
}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoInput_setBufferImpl(JNIEnv* env, jobject self, jlong handle,
                                                                   jbyteArray data, jint size) {
  ArrayHelper dataArrayHelper(env);
  const char* bytes = dataArrayHelper.toNativeArray(data, ArrayHelper::READ_ONLY);
  const jfieldID field = bufferField(env, self);
  void* block = std::malloc(size > 0 ? static_cast<size_t>(size) : 1);
  if (block == nullptr) return;  // the toolkit reads nothing; the old buffer stays
  if (size > 0) std::memcpy(block, bytes, static_cast<size_t>(size));
  replaceBlock(env, self, field, block);
  reinterpret_cast<SoInput*>(handle)->setBuffer(block, static_cast<size_t>(size));
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoInput_setBufferImpl2(JNIEnv* env, jobject self, jlong handle,
                                                                    jstring text, jint size) {
  const char* chars = env->GetStringUTFChars(text, nullptr);
  if (chars == nullptr) return;  // out of memory: the exception is pending
  const jfieldID field = bufferField(env, self);
  const size_t length = std::strlen(chars);
  void* block = std::malloc(length + 1);
  if (block != nullptr) std::memcpy(block, chars, length + 1);
  env->ReleaseStringUTFChars(text, chars);
  if (block == nullptr) return;
  replaceBlock(env, self, field, block);
  // The caller's size, not the text's: the caller decides how much is read.
  reinterpret_cast<SoInput*>(handle)->setBuffer(block, static_cast<size_t>(size));
}

// Frees the buffer block of a released SoInput (after the native object).
JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoInput_freeBufferImpl(JNIEnv*, jclass, jlong block) {
  std::free(reinterpret_cast<void*>(block));
}

}  // extern "C"
