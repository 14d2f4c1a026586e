// Destruction of traversal-state elements that Java owns, for
// com.orvexa.internal.ElementManager.

#include <jni.h>

#include <Orvex/elements/SoElement.h>

extern "C" {

// Destroys the element through its virtual destructor, so that every element
// class is freed whole; a null handle is ignored.
JNIEXPORT void JNICALL Java_com_orvexa_internal_ElementManager_deleteNativeHandleImpl(JNIEnv*, jclass,
                                                                                     jlong address) {
  if (address != 0) delete reinterpret_cast<SoElement*>(address);
}

}  // extern "C"
