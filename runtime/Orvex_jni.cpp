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
// What Java does with the text, including any exception it raises, follows
// the upcall rules of JNIEnvHelper: the exception is cleared after a trace on
// a thread the bridge attached, and left to the Java caller otherwise. When
// Java cannot be called, the toolkit prints the error itself.
void errorHandlerCB(const SoError* error, void* data) {
  JNIEnv* env = JNIEnvHelper::getEnv();
  if (env == nullptr || !JNIEnvHelper::readyForUpcall(env)) {
    SoError::defaultHandlerCB(error, data);
    return;
  }
  // Errors posted on a toolkit thread never return to a Java frame, so the
  // local references are given back here rather than accumulating.
  const ScopedLocalRef<jclass> orvex(env, env->FindClass("com/orvexa/orvex/Orvex"));
  jmethodID print = orvex ? env->GetStaticMethodID(orvex.get(), "printErrorMessage", "(Ljava/lang/String;)V") : nullptr;
  // Full Unicode: the toolkit's text is standard UTF-8, not the virtual
  // machine's modified form.
  const ScopedLocalRef<jstring> message(
      env, print != nullptr ? StringHelper::fromNativeString(env, error->getDebugString()) : nullptr);
  if (!message) {
    JNIEnvHelper::settleUpcall(env);
    SoError::defaultHandlerCB(error, data);
    return;
  }
  {
    const JNIEnvHelper::UpcallScope upcall;
    env->CallStaticVoidMethod(orvex.get(), print, message.get());
  }
  JNIEnvHelper::settleUpcall(env);
}

// A type name the toolkit does not know is offered to the Java side, which
// may register a type for it and answer that type's name.
//
// A failed lookup is reported as a toolkit debug error instead of the lookup's
// own exception, which is cleared first: the debug error's handler may itself
// call into Java, which must not happen with an exception pending. An
// exception raised by the Java side follows the upcall rules of JNIEnvHelper
// (left to a Java caller, cleared after a trace otherwise); the type stays
// bad.
intptr_t unknownTypeCB(const SbName& name) {
  SoType result = SoType::badType();
  JNIEnv* env = JNIEnvHelper::getEnv();
  // No Java to ask, or an exception already pending for the Java caller: the
  // bad type (key 0).
  if (env == nullptr || !JNIEnvHelper::readyForUpcall(env)) return 0;
  const ScopedLocalRef<jclass> manager(env, env->FindClass("com/orvexa/internal/DynamicTypeManager"));
  jmethodID handle = nullptr;
  if (!manager) {
    env->ExceptionClear();
    SoDebugError::post("soTypeNativeFromNameCB",
                       "The class com/orvexa/internal/DynamicTypeManager cannot be found.");
  } else {
    handle = env->GetStaticMethodID(manager.get(), "handleUnknownType", "(Ljava/lang/String;)Ljava/lang/String;");
    if (handle == nullptr) {
      env->ExceptionClear();
      SoDebugError::post("soTypeNativeFromNameCB",
                         "The method handleUnknownType of class com/orvexa/internal/DynamicTypeManager cannot be "
                         "found.");
    }
  }
  if (handle == nullptr) return 0;

  // Toolkit threads may resolve many names without returning to Java.
  const ScopedLocalRef<jstring> unknown(env, StringHelper::fromNativeString(env, name));
  if (!unknown) {
    JNIEnvHelper::settleUpcall(env);
    return 0;
  }
  jstring answer = nullptr;
  {
    const JNIEnvHelper::UpcallScope upcall;
    answer = static_cast<jstring>(env->CallStaticObjectMethod(manager.get(), handle, unknown.get()));
  }
  const ScopedLocalRef<jstring> answerRef(env, answer);
  if (JNIEnvHelper::settleUpcall(env)) return 0;
  {
    StringHelper answerHelper(env, answer);
    const char* typeName = answerHelper.toUTFString();
    if (typeName != nullptr) result = SoType::fromName(SbName(typeName));
  }
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
