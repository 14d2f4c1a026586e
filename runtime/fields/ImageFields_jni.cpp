// The image fields' values from Java: size, components and pixels, to and
// from Java byte arrays and direct buffers. The field always keeps its own
// copy of what Java gives (Java arrays move, and buffers die with their
// last Java reference), and gives Java copies.
//
// The Java side checks sizes against the arrays and buffers; the one thing
// checked here is memory: an image the process cannot hold becomes a Java
// OutOfMemoryError rather than an abort.

#include <jni.h>

#include <Orvex/SbVec2i32.h>
#include <Orvex/SbVec2s.h>
#include <Orvex/SbVec3s.h>
#include <Orvex/devices/SoBufferObject.h>
#include <Orvex/fields/SoSFImage.h>
#include <Orvex/fields/SoSFImage3.h>

#include <climits>
#include <cstring>
#include <new>

#include "ArrayHelper.h"

namespace {

void throwOutOfMemory(JNIEnv* env, const char* message) {
  jclass cls = env->FindClass("java/lang/OutOfMemoryError");
  if (cls == nullptr) return;
  env->ThrowNew(cls, message);
  env->DeleteLocalRef(cls);
}

// Runs a setter that copies pixels. When the copy cannot be allocated the
// field keeps its value and Java gets an OutOfMemoryError.
template <class Set>
void copyingPixels(JNIEnv* env, Set set) {
  try {
    set();
  } catch (const std::bad_alloc&) {
    throwOutOfMemory(env, "no memory for the image's pixels");
  }
}

// A new Java array holding `bytes` bytes of pixels (empty for none).
jbyteArray pixelArray(JNIEnv* env, const unsigned char* pixels, size_t bytes) {
  if (bytes > static_cast<size_t>(INT_MAX)) {
    throwOutOfMemory(env, "the image is larger than a Java array can hold");
    return nullptr;
  }
  if (bytes == 0 || pixels == nullptr) return env->NewByteArray(0);
  return ArrayHelper::fromNativeArray(env, pixels, bytes);
}

}  // namespace

extern "C" {

JNIEXPORT jbyteArray JNICALL Java_com_orvexa_orvex_fields_SoSFImage_getValueImpl(JNIEnv* env, jclass, jlong handle,
                                                                                 jintArray size,
                                                                                 jintArray numComponents) {
  const SoSFImage* field = reinterpret_cast<SoSFImage*>(handle);
  ArrayHelper sizeArrayHelper(env);
  auto* sizeNativeArg = reinterpret_cast<SbVec2i32*>(sizeArrayHelper.toNativeArray(size, ArrayHelper::READ_WRITE));
  int nc = 0;
  const unsigned char* pixels = field->getValue(*sizeNativeArg, nc);
  const jint ncTmp = nc;
  env->SetIntArrayRegion(numComponents, 0, 1, &ncTmp);
  return pixelArray(env, pixels, field->getValueSize());
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_fields_SoSFImage_getValueBufferImpl(JNIEnv* env, jclass, jlong handle,
                                                                                 jobject destination, jlong room) {
  const SoSFImage* field = reinterpret_cast<SoSFImage*>(handle);
  const size_t bytes = field->getValueSize();
  void* to = env->GetDirectBufferAddress(destination);
  if (bytes == 0) return;
  if (to == nullptr || room < 0 || static_cast<size_t>(room) < bytes) {
    // The Java side measured the buffer; only a race with another thread
    // changing the image gets here.
    jclass cls = env->FindClass("java/lang/IllegalArgumentException");
    if (cls != nullptr) env->ThrowNew(cls, "the buffer has no room for the image's pixels");
    return;
  }
  SbVec2i32 size;
  int nc = 0;
  std::memcpy(to, field->getValue(size, nc), bytes);
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_fields_SoSFImage_setValueImpl(JNIEnv* env, jclass, jlong handle,
                                                                           jshortArray size, jint numComponents,
                                                                           jint /*dataType*/, jlong bufferObject,
                                                                           jint copyPolicy) {
  // Pixels in a buffer object are 8-bit components: the Java side accepts no
  // other data type, and the toolkit's setter takes none.
  SoSFImage* field = reinterpret_cast<SoSFImage*>(handle);
  ArrayHelper sizeArrayHelper(env);
  const auto* sizeNativeArg = reinterpret_cast<const SbVec2s*>(sizeArrayHelper.toNativeArray(size, ArrayHelper::READ_ONLY));
  copyingPixels(env, [&] {
    field->setValue(SbVec2i32((*sizeNativeArg)[0], (*sizeNativeArg)[1]), numComponents,
                    reinterpret_cast<SoBufferObject*>(bufferObject), static_cast<SoSFImage::CopyPolicies>(copyPolicy));
  });
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_fields_SoSFImage_setValueImpl2(JNIEnv* env, jclass, jlong handle,
                                                                            jshortArray size, jint numComponents,
                                                                            jbyteArray pixels) {
  SoSFImage* field = reinterpret_cast<SoSFImage*>(handle);
  ArrayHelper sizeArrayHelper(env);
  ArrayHelper pixelsArrayHelper(env);
  const auto* sizeNativeArg = reinterpret_cast<const SbVec2s*>(sizeArrayHelper.toNativeArray(size, ArrayHelper::READ_ONLY));
  const unsigned char* pixelsNativeArg = pixelsArrayHelper.toUnsignedNativeArray(pixels, ArrayHelper::READ_ONLY);
  copyingPixels(env, [&] { field->setValue(*sizeNativeArg, numComponents, pixelsNativeArg, SoSFImage::COPY); });
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_fields_SoSFImage_setValueBufferImpl(JNIEnv* env, jclass, jlong handle,
                                                                                 jintArray size, jint numComponents,
                                                                                 jint dataType, jobject pixels) {
  SoSFImage* field = reinterpret_cast<SoSFImage*>(handle);
  ArrayHelper sizeArrayHelper(env);
  const auto* sizeNativeArg = reinterpret_cast<const SbVec2i32*>(sizeArrayHelper.toNativeArray(size, ArrayHelper::READ_ONLY));
  const void* pixelsNativeArg = env->GetDirectBufferAddress(pixels);
  copyingPixels(env, [&] {
    field->setValue(*sizeNativeArg, numComponents, static_cast<SoSFImage::DataTypes>(dataType), pixelsNativeArg,
                    SoSFImage::COPY);
  });
}

JNIEXPORT jbyteArray JNICALL Java_com_orvexa_orvex_fields_SoSFImage3_getValueImpl(JNIEnv* env, jclass, jlong handle,
                                                                                  jshortArray size,
                                                                                  jintArray numComponents) {
  const SoSFImage3* field = reinterpret_cast<SoSFImage3*>(handle);
  ArrayHelper sizeArrayHelper(env);
  auto* sizeNativeArg = reinterpret_cast<SbVec3s*>(sizeArrayHelper.toNativeArray(size, ArrayHelper::READ_WRITE));
  int nc = 0;
  const unsigned char* pixels = field->getValue(*sizeNativeArg, nc);
  const jint ncTmp = nc;
  env->SetIntArrayRegion(numComponents, 0, 1, &ncTmp);
  return pixelArray(env, pixels, field->getValueSize());
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_fields_SoSFImage3_setValueImpl(JNIEnv* env, jclass, jlong handle,
                                                                            jshortArray size, jint numComponents,
                                                                            jbyteArray pixels) {
  SoSFImage3* field = reinterpret_cast<SoSFImage3*>(handle);
  ArrayHelper sizeArrayHelper(env);
  ArrayHelper pixelsArrayHelper(env);
  const auto* sizeNativeArg = reinterpret_cast<const SbVec3s*>(sizeArrayHelper.toNativeArray(size, ArrayHelper::READ_ONLY));
  const unsigned char* pixelsNativeArg = pixelsArrayHelper.toUnsignedNativeArray(pixels, ArrayHelper::READ_ONLY);
  copyingPixels(env, [&] { field->setValue(*sizeNativeArg, numComponents, pixelsNativeArg); });
}

}  // extern "C"
