// Buffer objects from Java: a reference-counted block of memory that image
// fields can use in place. Java holds a reference through its wrapper and
// reaches the content only by copies; the Java side checks ranges.

#include <jni.h>

#include <Orvex/devices/SoBufferObject.h>
#include <Orvex/devices/SoCpuBufferObject.h>

#include "ExceptionHelper.h"

namespace {
SoBufferObject* bufferOf(jlong handle) { return reinterpret_cast<SoBufferObject*>(handle); }
}  // namespace

extern "C" {

JNIEXPORT jlong JNICALL Java_com_orvexa_orvex_devices_SoCpuBufferObject_ctorImpl(JNIEnv*, jclass) {
  // The handle is the address as a SoBufferObject, which the entry points below cast back to.
  return reinterpret_cast<jlong>(static_cast<SoBufferObject*>(new SoCpuBufferObject));
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_devices_SoBufferObject_refImpl(JNIEnv*, jclass, jlong handle) {
  bufferOf(handle)->ref();
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_devices_SoBufferObject_unrefImpl(JNIEnv*, jclass, jlong handle) {
  bufferOf(handle)->unref();
}

JNIEXPORT jlong JNICALL Java_com_orvexa_orvex_devices_SoBufferObject_getSizeImpl(JNIEnv*, jclass, jlong handle) {
  return static_cast<jlong>(bufferOf(handle)->getSize());
}

JNIEXPORT jboolean JNICALL Java_com_orvexa_orvex_devices_SoBufferObject_setSizeImpl(JNIEnv*, jclass, jlong handle,
                                                                                 jlong size) {
  return bufferOf(handle)->setSize(static_cast<size_t>(size)) ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_devices_SoBufferObject_copyImpl(JNIEnv* env, jclass, jlong handle,
                                                                          jlong offset, jbyteArray bytes,
                                                                          jboolean intoBuffer) {
  SoBufferObject* buffer = bufferOf(handle);
  const jsize length = env->GetArrayLength(bytes);
  if (offset < 0 || static_cast<size_t>(offset) > buffer->getSize() ||
      static_cast<size_t>(length) > buffer->getSize() - static_cast<size_t>(offset)) {
    ExceptionHelper::throwIllegalArgException(env, "bytes outside the buffer");
    return;
  }
  if (length == 0) return;
  auto* memory = static_cast<jbyte*>(buffer->map(intoBuffer ? SoBufferObject::READ_WRITE : SoBufferObject::READ_ONLY));
  if (memory != nullptr) {
    if (intoBuffer)
      env->GetByteArrayRegion(bytes, 0, length, memory + offset);
    else
      env->SetByteArrayRegion(bytes, 0, length, memory + offset);
  }
  buffer->unmap();
}

}  // extern "C"
