// The pass and abort callbacks of an SoGLRenderAction. The action keeps one
// function of each; its registrations are mirrored in holdings that live as
// long as the native action (made by NativeCallbackHoldings), which may
// outlive its Java wrapper while a renderer holds it.

#include <jni.h>

#include <Orvex/actions/SoGLRenderAction.h>

#include "CallbackHoldings.h"
#include "CallbackKinds.h"

using orvexjava::CallbackHoldings;

namespace {

// The action's functions, as slots of its holdings.
enum RenderActionFunction { kPass, kAbort };

SoGLRenderAction* actionAt(jlong address) { return reinterpret_cast<SoGLRenderAction*>(address); }
CallbackHoldings& holdingsAt(jlong address) { return *reinterpret_cast<CallbackHoldings*>(address); }

}  // namespace

extern "C" {

// Makes `cb` the function called before each rendering pass after the first (null: none).
JNIEXPORT void JNICALL Java_com_orvexa_orvex_actions_SoGLRenderAction_setPassCallbackImpl(JNIEnv* env, jclass,
                                                                                         jlong self, jlong holdings,
                                                                                         jobject cb,
                                                                                         jobject userData) {
  SoGLRenderAction* action = actionAt(self);
  orvexjava::setOnlyCallback<SoGLRenderPassCallback>(
      env, holdingsAt(holdings), CallbackHoldings::slot(kPass), cb, userData,
      [action](SoGLRenderAction::SoGLRenderPassCB* function, void* data) { action->setPassCallback(function, data); });
}

// Makes `cb` the function asked before each node whether to go on (null: none).
JNIEXPORT void JNICALL Java_com_orvexa_orvex_actions_SoGLRenderAction_setAbortCallbackImpl(JNIEnv* env, jclass,
                                                                                          jlong self, jlong holdings,
                                                                                          jobject cb,
                                                                                          jobject userData) {
  SoGLRenderAction* action = actionAt(self);
  orvexjava::setOnlyCallback<SoGLRenderAbortCallback>(
      env, holdingsAt(holdings), CallbackHoldings::slot(kAbort), cb, userData,
      [action](SoGLRenderAction::SoGLRenderAbortCB* function, void* data) { action->setAbortCallback(function, data); });
}

}  // extern "C"
