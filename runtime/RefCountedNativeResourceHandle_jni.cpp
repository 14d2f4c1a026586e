// Reference counting of toolkit objects driven by their Java wrappers: a
// handle of this kind is the address of an SoBase-derived object.

#include <jni.h>

#include <Orvex/misc/SoBase.h>

extern "C" {

JNIEXPORT void JNICALL Java_com_orvexa_internal_RefCountedNativeResourceHandle_refImpl(JNIEnv*, jclass,
                                                                                      jlong handle) {
  reinterpret_cast<SoBase*>(handle)->ref();
}

// Destroys the object when the count reaches zero.
JNIEXPORT void JNICALL Java_com_orvexa_internal_RefCountedNativeResourceHandle_unrefImpl(JNIEnv*, jclass,
                                                                                        jlong handle) {
  reinterpret_cast<SoBase*>(handle)->unref();
}

JNIEXPORT jint JNICALL Java_com_orvexa_internal_RefCountedNativeResourceHandle_getRefCount(JNIEnv*, jclass,
                                                                                          jlong handle) {
  return reinterpret_cast<SoBase*>(handle)->getRefCount();
}

}  // extern "C"
