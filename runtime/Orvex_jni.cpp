// Start-up of the binding: the entry points that com.orvexa.orvex.Orvex calls
// when it loads, the two process-wide callbacks through which the toolkit
// talks back to Java (errors, unknown type names), the Java-driven timer
// queue, and the database start-up entry points of com.orvexa.orvex.SoDB.

#include <jni.h>

#include <cstdint>

#include <ImageLux/SoImageLux.h>
#include <MeshLux/PoMeshLux.h>
#include <Orvex/SbString.h>
#include <Orvex/SbThreadLocalStorage.h>
#include <Orvex/SbTime.h>
#include <Orvex/SoDB.h>
#include <Orvex/SoInteraction.h>
#include <Orvex/SoPreferences.h>
#include <Orvex/SoType.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoGLError.h>
#include <Orvex/errors/SoMemoryError.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/gui/SoGui.h>
#include <Orvex/nodekits/SoNodeKit.h>
#include <Orvex/sensors/SoSensorManager.h>
#include <Orvex/sensors/SoTimerSensor.h>
#include <RemoteLux/RemoteLuxClient.h>
#include <ScaleLux/SoScaleLux.h>
#include <VolumeLux/SoVolumeRendering.h>

#include "JNIEnvHelper.h"
#include "NativeDebug.h"
#include "StringHelper.h"

namespace {

// Toolkit errors of the routed classes become calls of the static Java
// Orvex.printErrorMessage(String), on whatever thread the error is posted.
void errorHandlerCB(const SoError* error, void* /*data*/) {
  JNIEnv* env = JNIEnvHelper::getEnv();
  if (env == nullptr) return;
  jclass orvex = env->FindClass("com/orvexa/orvex/Orvex");
  if (orvex == nullptr) return;
  jmethodID print = env->GetStaticMethodID(orvex, "printErrorMessage", "(Ljava/lang/String;)V");
  if (print == nullptr) return;
  const SbString text = error->getDebugString();
  jstring message = env->NewStringUTF(text.getString());
  // What Java does with the text, including any exception it raises, is the
  // Java side's business: a pending exception is left to the Java caller.
  env->CallStaticVoidMethod(orvex, print, message);
  // Errors posted on a toolkit thread never return to a Java frame, so the
  // local references are given back here rather than accumulating.
  env->DeleteLocalRef(message);
  env->DeleteLocalRef(orvex);
  // Marks the call as checked for the JNI checker; the outcome stays pending.
  (void)env->ExceptionCheck();
}

// A type name the toolkit does not know is offered to the Java side, which
// may register a type for it and answer that type's name.
//
// A failed lookup is reported as a toolkit debug error instead of the lookup's
// own exception, which is cleared first: the debug error's handler may itself
// call into Java, which must not happen with an exception pending.
intptr_t unknownTypeCB(const SbName& name) {
  SoType result = SoType::badType();
  JNIEnv* env = JNIEnvHelper::getEnv();
  if (env == nullptr) return 0;  // no Java to ask: the bad type (key 0)
  jclass manager = env->FindClass("com/orvexa/internal/DynamicTypeManager");
  jmethodID handle = nullptr;
  if (manager == nullptr) {
    env->ExceptionClear();
    SoDebugError::post("soTypeNativeFromNameCB",
                       "The class com/orvexa/internal/DynamicTypeManager cannot be found.");
  } else {
    handle = env->GetStaticMethodID(manager, "handleUnknownType", "(Ljava/lang/String;)Ljava/lang/String;");
    if (handle == nullptr) {
      env->ExceptionClear();
      SoDebugError::post("soTypeNativeFromNameCB",
                         "The method handleUnknownType of class com/orvexa/internal/DynamicTypeManager cannot be "
                         "found.");
    }
  }
  if (handle != nullptr) {
    jstring unknown = StringHelper::fromNativeString(env, name);
    auto answer = static_cast<jstring>(env->CallStaticObjectMethod(manager, handle, unknown));
    if (!env->ExceptionCheck()) {  // an exception raised by Java stays pending; the type stays bad
      StringHelper answerHelper(env, answer);
      const char* typeName = answerHelper.toUTFString();
      if (typeName != nullptr) result = SoType::fromName(SbName(typeName));
    }
    // Toolkit threads may resolve many names without returning to Java.
    env->DeleteLocalRef(answer);
    env->DeleteLocalRef(unknown);
  }
  env->DeleteLocalRef(manager);
  // The toolkit expects the 16-bit key sign-extended to pointer size.
  return static_cast<intptr_t>(static_cast<int16_t>(result.getKey()));
}

}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_com_orvexa_orvex_Orvex_checkJVM(JNIEnv* env, jclass) {
  if (env->GetJavaVM(&JNIEnvHelper::TheCurrentJVM) == 0) return;
  jstring message = env->NewStringUTF("***** Orvex.setNativeEnvironment ERROR : cant get current JVM *****");
  jclass errorClass = env->FindClass("com/orvexa/orvex/errors/SoOrvexError");
  jmethodID ctor = env->GetMethodID(errorClass, "<init>", "(Ljava/lang/String;)V");
  auto error = static_cast<jthrowable>(env->NewObject(errorClass, ctor, message));
  if (env->Throw(error) != 0) {
    // Without a virtual machine the binding cannot run: end the process.
    jclass system = env->FindClass("java/lang/System");
    jmethodID exitMethod = env->GetStaticMethodID(system, "exit", "(I)V");
    env->CallStaticVoidMethod(system, exitMethod, 1);
  }
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_Orvex_setNativeDebug(JNIEnv*, jclass, jboolean enable) {
  setNativeDebugFlag(enable ? 1 : 0);
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_Orvex_initNativeOrx(JNIEnv*, jclass, jint milliseconds) {
  // The order is binding: ScaleLux brings the core up before the real-time
  // step reads the database's global field.
  PRINTDBG("----> ScaleLux init\n");
  SoScaleLux::init();

  PRINTDBG("----> realTime field init\n");
  SoDB::enableRealTimeSensor(false);
  SoDB::getRealTimeSensor()->setFunction(nullptr);
  auto* realTime = static_cast<SoSFTime*>(SoDB::getGlobalField("realTime"));
  SbTime now;
  now.setMsecValue(static_cast<uint32_t>(milliseconds));
  realTime->setValue(now);
  realTime->enableNotify(true);

  PRINTDBG("----> SoNodeKit init\n");
  SoNodeKit::init();
  PRINTDBG("----> SoInteraction init\n");
  SoInteraction::init();
  PRINTDBG("----> SoGui init\n");
  SoGui::init();
  PRINTDBG("----> PoMeshLux init\n");
  PoMeshLux::init();
  PRINTDBG("----> SoVolumeRendering init\n");
  SoVolumeRendering::init();
  PRINTDBG("----> RemoteLuxClient init\n");
  RemoteLuxClient::init();
  // ImageLux is the only optional module.
  if (SoPreferences::getBool("ORX_JAVA_ENABLE_IMAGELUX", true)) {
    PRINTDBG("----> SoImageLux init\n");
    SoImageLux::init();
  }

  PRINTDBG("----> Set unknown node callback\n");
  SoType::setUnknownNameCB(unknownTypeCB);

  // Debug errors and plain errors keep the toolkit's own reporting.
  PRINTDBG("----> Set errors default callback\n");
  SoGLError::setHandlerCallback(errorHandlerCB, nullptr);
  SoMemoryError::setHandlerCallback(errorHandlerCB, nullptr);
  SoReadError::setHandlerCallback(errorHandlerCB, nullptr);
}

// The only driver of the toolkit's timer queue: called periodically from Java.
JNIEXPORT void JNICALL Java_com_orvexa_orvex_RealTimeManager_processTimerQueueNative(JNIEnv*, jclass) {
  SoDB::getSensorManager()->processTimerQueue();
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoDB_initDatabase(JNIEnv*, jclass) { SoDB::init(); }

JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoDB_initThreadLocalStorageNative(JNIEnv*, jclass) {
  SbThreadLocalStorage::initThreadLocalStorage();
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoDB_resetOrxCppMainThreadIdNative(JNIEnv*, jclass) {
  SoDB::resetMainThreadId();
}

// Gives the real-time clock back to the toolkit's own sensor.
JNIEXPORT void JNICALL Java_com_orvexa_orvex_SoDB_restoreRealTimeUpdate(JNIEnv*, jclass) {
  SoDB::restoreRealTimeSensorCB();
  SoDB::enableRealTimeSensor(true);
}

}  // extern "C"
