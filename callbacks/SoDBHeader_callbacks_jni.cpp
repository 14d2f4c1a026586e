// Headers registered from Java with pre and post functions. A registration
// is permanent (the database has no way to take one back), so its record and
// the holds of its functions last for the life of the process.

#include <jni.h>

#include <Orvex/SbString.h>
#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>

#include "CallbackHoldings.h"
#include "CallbackKinds.h"
#include "CallbackUpcall.h"
#include "MakeJavaObj.h"
#include "StringHelper.h"

using orvexjava::CallbackHoldings;
using orvexjava::CallbackUpcall;
using orvexjava::HeaderRecord;

namespace {

// Never destroyed: a file may be closed, calling a post function, while the process exits.
CallbackHoldings& headerHoldings() {
  static CallbackHoldings* holdings = new CallbackHoldings;
  return *holdings;
}

// Calls `method` (SoInput) of the callback's Java object with the input that reads.
void invokeWithInput(const JCallback* callback, const char* method, SoInput* in) {
  CallbackUpcall upcall(callback, method, "(Lcom/orvexa/orvex/SoInput;)V");
  if (!upcall.ready()) return;
  JNIEnv* env = upcall.env();
  const ScopedLocalRef<jobject> jin(env, upcall.argument([&] {
    return makeManagedJavaObject(env, "com/orvexa/orvex/SoInput", reinterpret_cast<jlong>(in), false, true);
  }));
  if (!upcall.argumentsMade()) return;
  upcall.call([&](JNIEnv* e, jobject target, jmethodID m) { e->CallVoidMethod(target, m, jin.get()); });
}

}  // namespace

void SoDBHeaderPreCallback::RealCallback(void* record, SoInput* in) {
  PRINTDBG("DEBUG: NTV MTHD->SoDBHeaderPreCallback::RealCallback\n");
  static_cast<const HeaderRecord*>(record)->pre->invoke(in);
}

void SoDBHeaderPreCallback::invoke(SoInput* in) const {
  PRINTDBG("DEBUG: NTV MTHD->SoDBHeaderPreCallback::invoke\n");
  invokeWithInput(this, "invokePre", in);
}

void SoDBHeaderPostCallback::RealCallback(void* record, SoInput* in) {
  PRINTDBG("DEBUG: NTV MTHD->SoDBHeaderPostCallback::RealCallback\n");
  static_cast<const HeaderRecord*>(record)->post->invoke(in);
}

void SoDBHeaderPostCallback::invoke(SoInput* in) const {
  PRINTDBG("DEBUG: NTV MTHD->SoDBHeaderPostCallback::invoke\n");
  invokeWithInput(this, "invokePost", in);
}

extern "C" {

// Registers `header` with the Java functions `preCB` and `postCB` (either
// may be null); false, with nothing held, when the database refuses it
// (already registered, or no header line).
JNIEXPORT jboolean JNICALL Java_com_orvexa_orvex_SoDB_registerHeaderImpl(JNIEnv* env, jclass, jstring header,
                                                                        jboolean isBinary, jfloat version,
                                                                        jobject preCB, jobject postCB,
                                                                        jobject userData) {
  StringHelper text(env, header);
  auto* pre = preCB != nullptr ? orvexjava::nativeCallbackOf<SoDBHeaderPreCallback>(env, preCB) : nullptr;
  auto* post = postCB != nullptr ? orvexjava::nativeCallbackOf<SoDBHeaderPostCallback>(env, postCB) : nullptr;
  auto* record = new HeaderRecord{pre, post};
  // The functions see their user data from their first call on.
  if (pre != nullptr) orvexjava::storeUserData(env, preCB, userData);
  if (post != nullptr) orvexjava::storeUserData(env, postCB, userData);
  const bool registered = SoDB::registerHeader(
      SbString(text.toUTFString()), isBinary == JNI_TRUE, version,
      pre != nullptr ? &SoDBHeaderPreCallback::RealCallback : nullptr,
      post != nullptr ? &SoDBHeaderPostCallback::RealCallback : nullptr, record);
  if (!registered) {
    delete record;
    if (pre != nullptr) pre->letGoIfUnheld();
    if (post != nullptr) post->letGoIfUnheld();
    return JNI_FALSE;
  }
  if (pre != nullptr) headerHoldings().add(env, preCB, pre, CallbackHoldings::slot(0));
  if (post != nullptr) headerHoldings().add(env, postCB, post, CallbackHoldings::slot(0));
  return JNI_TRUE;
}

}  // extern "C"
