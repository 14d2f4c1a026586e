// Setting an input's parameters from com.orvexa.orvex.SoInput: the Java input
// keeps the parameters' wrapper reachable while it is set.

#include <jni.h>

#include <Orvex/SoInput.h>
#include <Orvex/SoInputParameters.h>

extern "C" {

JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoInput_setInputParametersImpl(JNIEnv*, jclass, jlong input,
                                                                           jlong parameters) {
  reinterpret_cast<SoInput*>(input)->setInputParameters(reinterpret_cast<SoInputParameters*>(parameters));
}

}  // extern "C"
