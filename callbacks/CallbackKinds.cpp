#include "CallbackKinds.h"

#include <Orvex/SoPath.h>
#include <Orvex/SoPickedPoint.h>
#include <Orvex/SoPrimitiveVertex.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/nodes/SoSelection.h>
#include <Orvex/actions/SoAction.h>
#include <Orvex/nodes/SoEventCallback.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/nodes/SoWWWAnchor.h>
#include <Orvex/nodes/SoWWWInline.h>

#include "CallbackUpcall.h"
#include "MakeJavaObj.h"
#include "StringHelper.h"

using orvexjava::CallbackUpcall;

namespace {

using LocalRef = ScopedLocalRef<jobject>;

// The action of a traversal callback, as the wrapper of its own class (the
// one the Java program applies, when it is one).
jobject callbackActionObject(JNIEnv* env, SoCallbackAction* action) {
  return MakeJavaObj(env, "com/orvexa/orvex/actions/SoCallbackAction", action, false, true);
}

// Any action; a toolkit action class that has no Java class of its own
// comes as an SoAction.
jobject actionObject(JNIEnv* env, SoAction* action) {
  if (action == nullptr) return nullptr;
  jobject wrapper = MakeJavaObj(env, "com/orvexa/orvex/actions/SoAction", action, false, true);
  if (wrapper == nullptr && !env->ExceptionCheck()) {
    wrapper = makeManagedJavaObject(env, "com/orvexa/orvex/actions/SoAction", reinterpret_cast<jlong>(action),
                                    false, true);
  }
  return wrapper;
}

// A vertex that lives only during the callback: the Java callback object
// lets go of its wrapper when the call returns.
jobject vertexObject(JNIEnv* env, const SoPrimitiveVertex* vertex) {
  return makeManagedJavaObject(env, "com/orvexa/orvex/SoPrimitiveVertex", reinterpret_cast<jlong>(vertex), false,
                               true);
}

jobject baseObject(JNIEnv* env, const SoBase* object) { return object == nullptr ? nullptr : SoBaseJava(env, object); }

template <typename Callback>
const Callback* self(void* data) {
  return static_cast<const Callback*>(data);
}

}  // namespace

// ---- SoCallbackActionCB --------------------------------------------------------

SoCallbackAction::Response SoCallbackActionCallback::RealCallback(void* data, SoCallbackAction* action,
                                                                  const SoNode* node) {
  PRINTDBG("DEBUG: NTV MTHD->SoCallbackActionCallback::RealCallback\n");
  return self<SoCallbackActionCallback>(data)->invoke(action, node);
}

SoCallbackAction::Response SoCallbackActionCallback::invoke(SoCallbackAction* action, const SoNode* node) const {
  PRINTDBG("DEBUG: NTV MTHD->SoCallbackActionCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke", "(Lcom/orvexa/orvex/actions/SoCallbackAction;Lcom/orvexa/orvex/nodes/SoNode;)I");
  if (!upcall.ready()) return upcall.exceptionLeftForJava() ? SoCallbackAction::ABORT : SoCallbackAction::CONTINUE;
  JNIEnv* env = upcall.env();
  const LocalRef jaction(env, upcall.argument([&] { return callbackActionObject(env, action); }));
  const LocalRef jnode(env, upcall.argument([&] { return baseObject(env, node); }));
  if (!upcall.argumentsMade()) return upcall.exceptionLeftForJava() ? SoCallbackAction::ABORT : SoCallbackAction::CONTINUE;
  jint response = SoCallbackAction::CONTINUE;
  const bool ok = upcall.call([&](JNIEnv* e, jobject target, jmethodID method) {
    response = e->CallIntMethod(target, method, jaction.get(), jnode.get());
  });
  // A traversal whose callback failed for a Java caller stops, so that the
  // exception reaches that caller without further nodes being visited.
  if (!ok) return upcall.exceptionLeftForJava() ? SoCallbackAction::ABORT : SoCallbackAction::CONTINUE;
  return static_cast<SoCallbackAction::Response>(response);
}

// ---- SoTriangleCB, SoLineSegmentCB, SoPointCB -----------------------------------

void SoTriangleCallback::RealCallback(void* data, SoCallbackAction* action, const SoPrimitiveVertex* v1,
                                      const SoPrimitiveVertex* v2, const SoPrimitiveVertex* v3) {
  PRINTDBG("DEBUG: NTV MTHD->SoTriangleCallback::RealCallback\n");
  self<SoTriangleCallback>(data)->invoke(action, v1, v2, v3);
}

void SoTriangleCallback::invoke(SoCallbackAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2,
                                const SoPrimitiveVertex* v3) const {
  PRINTDBG("DEBUG: NTV MTHD->SoTriangleCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke",
                        "(Lcom/orvexa/orvex/actions/SoCallbackAction;Lcom/orvexa/orvex/SoPrimitiveVertex;"
                        "Lcom/orvexa/orvex/SoPrimitiveVertex;Lcom/orvexa/orvex/SoPrimitiveVertex;)V");
  if (!upcall.ready()) return;
  JNIEnv* env = upcall.env();
  const LocalRef jaction(env, upcall.argument([&] { return callbackActionObject(env, action); }));
  const LocalRef j1(env, upcall.argument([&] { return vertexObject(env, v1); }));
  const LocalRef j2(env, upcall.argument([&] { return vertexObject(env, v2); }));
  const LocalRef j3(env, upcall.argument([&] { return vertexObject(env, v3); }));
  if (!upcall.argumentsMade()) return;
  upcall.call([&](JNIEnv* e, jobject target, jmethodID method) {
    e->CallVoidMethod(target, method, jaction.get(), j1.get(), j2.get(), j3.get());
  });
}

void SoLineSegmentCallback::RealCallback(void* data, SoCallbackAction* action, const SoPrimitiveVertex* v1,
                                         const SoPrimitiveVertex* v2) {
  PRINTDBG("DEBUG: NTV MTHD->SoLineSegmentCallback::RealCallback\n");
  self<SoLineSegmentCallback>(data)->invoke(action, v1, v2);
}

void SoLineSegmentCallback::invoke(SoCallbackAction* action, const SoPrimitiveVertex* v1,
                                   const SoPrimitiveVertex* v2) const {
  PRINTDBG("DEBUG: NTV MTHD->SoLineSegmentCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke",
                        "(Lcom/orvexa/orvex/actions/SoCallbackAction;Lcom/orvexa/orvex/SoPrimitiveVertex;"
                        "Lcom/orvexa/orvex/SoPrimitiveVertex;)V");
  if (!upcall.ready()) return;
  JNIEnv* env = upcall.env();
  const LocalRef jaction(env, upcall.argument([&] { return callbackActionObject(env, action); }));
  const LocalRef j1(env, upcall.argument([&] { return vertexObject(env, v1); }));
  const LocalRef j2(env, upcall.argument([&] { return vertexObject(env, v2); }));
  if (!upcall.argumentsMade()) return;
  upcall.call([&](JNIEnv* e, jobject target, jmethodID method) {
    e->CallVoidMethod(target, method, jaction.get(), j1.get(), j2.get());
  });
}

void SoPointCallback::RealCallback(void* data, SoCallbackAction* action, const SoPrimitiveVertex* v) {
  PRINTDBG("DEBUG: NTV MTHD->SoPointCallback::RealCallback\n");
  self<SoPointCallback>(data)->invoke(action, v);
}

void SoPointCallback::invoke(SoCallbackAction* action, const SoPrimitiveVertex* v) const {
  PRINTDBG("DEBUG: NTV MTHD->SoPointCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke",
                        "(Lcom/orvexa/orvex/actions/SoCallbackAction;Lcom/orvexa/orvex/SoPrimitiveVertex;)V");
  if (!upcall.ready()) return;
  JNIEnv* env = upcall.env();
  const LocalRef jaction(env, upcall.argument([&] { return callbackActionObject(env, action); }));
  const LocalRef jv(env, upcall.argument([&] { return vertexObject(env, v); }));
  if (!upcall.argumentsMade()) return;
  upcall.call([&](JNIEnv* e, jobject target, jmethodID method) {
    e->CallVoidMethod(target, method, jaction.get(), jv.get());
  });
}

// ---- SoEventCallbackCB, SoCallbackCB, SoSensorManagerCB -------------------------

void SoEventCallbackCallback::RealCallback(void* data, SoEventCallback* node) {
  PRINTDBG("DEBUG: NTV MTHD->SoEventCallbackCallback::RealCallback\n");
  self<SoEventCallbackCallback>(data)->invoke(node);
}

void SoEventCallbackCallback::invoke(SoEventCallback* node) const {
  PRINTDBG("DEBUG: NTV MTHD->SoEventCallbackCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke", "(Lcom/orvexa/orvex/nodes/SoEventCallback;)V");
  if (!upcall.ready()) return;
  JNIEnv* env = upcall.env();
  const LocalRef jnode(env, upcall.argument([&] { return baseObject(env, node); }));
  if (!upcall.argumentsMade()) return;
  upcall.call([&](JNIEnv* e, jobject target, jmethodID method) { e->CallVoidMethod(target, method, jnode.get()); });
}

void SoCallbackCallback::RealCallback(void* data, SoAction* action) {
  PRINTDBG("DEBUG: NTV MTHD->SoCallbackCallback::RealCallback\n");
  self<SoCallbackCallback>(data)->invoke(action);
}

void SoCallbackCallback::invoke(SoAction* action) const {
  PRINTDBG("DEBUG: NTV MTHD->SoCallbackCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke", "(Lcom/orvexa/orvex/actions/SoAction;)V");
  if (!upcall.ready()) return;
  JNIEnv* env = upcall.env();
  const LocalRef jaction(env, upcall.argument([&] { return actionObject(env, action); }));
  if (!upcall.argumentsMade()) return;
  upcall.call([&](JNIEnv* e, jobject target, jmethodID method) { e->CallVoidMethod(target, method, jaction.get()); });
}

void SoSensorManagerCallback::RealCallback(void* data) {
  PRINTDBG("DEBUG: NTV MTHD->SoSensorManagerCallback::RealCallback\n");
  self<SoSensorManagerCallback>(data)->invoke();
}

void SoSensorManagerCallback::invoke() const {
  PRINTDBG("DEBUG: NTV MTHD->SoSensorManagerCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke", "()V");
  if (!upcall.ready()) return;
  upcall.call([](JNIEnv* e, jobject target, jmethodID method) { e->CallVoidMethod(target, method); });
}

// ---- SoSelectionPathCB, SoSelectionClassCB, SoSelectionPickCB ---------------------

void SoSelectionPathCallback::RealCallback(void* data, SoPath* path) {
  PRINTDBG("DEBUG: NTV MTHD->SoSelectionPathCallback::RealCallback\n");
  self<SoSelectionPathCallback>(data)->invoke(path);
}

void SoSelectionPathCallback::invoke(SoPath* path) const {
  PRINTDBG("DEBUG: NTV MTHD->SoSelectionPathCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke", "(Lcom/orvexa/orvex/SoPath;)V");
  if (!upcall.ready()) return;
  JNIEnv* env = upcall.env();
  const LocalRef jpath(env, upcall.argument([&] { return baseObject(env, path); }));
  if (!upcall.argumentsMade()) return;
  upcall.call([&](JNIEnv* e, jobject target, jmethodID method) { e->CallVoidMethod(target, method, jpath.get()); });
}

void SoSelectionClassCallback::RealCallback(void* data, SoSelection* selection) {
  PRINTDBG("DEBUG: NTV MTHD->SoSelectionClassCallback::RealCallback\n");
  self<SoSelectionClassCallback>(data)->invoke(selection);
}

void SoSelectionClassCallback::invoke(SoSelection* selection) const {
  PRINTDBG("DEBUG: NTV MTHD->SoSelectionClassCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke", "(Lcom/orvexa/orvex/nodes/SoSelection;)V");
  if (!upcall.ready()) return;
  JNIEnv* env = upcall.env();
  const LocalRef jselection(env, upcall.argument([&] { return baseObject(env, selection); }));
  if (!upcall.argumentsMade()) return;
  upcall.call(
      [&](JNIEnv* e, jobject target, jmethodID method) { e->CallVoidMethod(target, method, jselection.get()); });
}

SoPath* SoSelectionPickCallback::RealCallback(void* data, const SoPickedPoint* pick) {
  PRINTDBG("DEBUG: NTV MTHD->SoSelectionPickCallback::RealCallback\n");
  return self<SoSelectionPickCallback>(data)->invoke(pick);
}

// The path Java answers, by its native handle; null when Java answers null
// or cannot be asked (the selection then uses no path).
SoPath* SoSelectionPickCallback::invoke(const SoPickedPoint* pick) const {
  PRINTDBG("DEBUG: NTV MTHD->SoSelectionPickCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke", "(Lcom/orvexa/orvex/SoPickedPoint;)Lcom/orvexa/orvex/SoPath;");
  if (!upcall.ready()) return nullptr;
  JNIEnv* env = upcall.env();
  const LocalRef jpick(env, upcall.argument([&] {
    return makeManagedJavaObject(env, "com/orvexa/orvex/SoPickedPoint", reinterpret_cast<jlong>(pick), false, true);
  }));
  if (!upcall.argumentsMade()) return nullptr;
  jobject answer = nullptr;
  if (!upcall.call([&](JNIEnv* e, jobject target, jmethodID method) {
        answer = e->CallObjectMethod(target, method, jpick.get());
      })) {
    return nullptr;
  }
  const LocalRef jpath(env, answer);
  if (jpath.get() == nullptr) return nullptr;
  const ScopedLocalRef<jclass> pathClass(env, env->FindClass("com/orvexa/orvex/SoPath"));
  if (!pathClass) {
    JNIEnvHelper::settleUpcall(env);
    SoDebugError::post("SoSelectionPickCallback::invoke", "The class com/orvexa/orvex/SoPath cannot be found.");
    return nullptr;
  }
  const jmethodID handleOf = env->GetMethodID(pathClass.get(), "getNativeResourceHandleInternal", "()J");
  if (handleOf == nullptr) {
    JNIEnvHelper::settleUpcall(env);
    return nullptr;
  }
  const jlong handle = env->CallLongMethod(jpath.get(), handleOf);
  if (JNIEnvHelper::settleUpcall(env)) return nullptr;
  return reinterpret_cast<SoPath*>(handle);
}

// ---- SoGLRenderPassCB, SoGLRenderAbortCB ------------------------------------------

void SoGLRenderPassCallback::RealCallback(void* data) {
  PRINTDBG("DEBUG: NTV MTHD->SoGLRenderPassCallback::RealCallback\n");
  self<SoGLRenderPassCallback>(data)->invoke();
}

void SoGLRenderPassCallback::invoke() const {
  PRINTDBG("DEBUG: NTV MTHD->SoGLRenderPassCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke", "()V");
  if (!upcall.ready()) return;
  upcall.call([](JNIEnv* e, jobject target, jmethodID method) { e->CallVoidMethod(target, method); });
}

SoGLRenderAction::AbortCode SoGLRenderAbortCallback::RealCallback(void* data) {
  PRINTDBG("DEBUG: NTV MTHD->SoGLRenderAbortCallback::RealCallback\n");
  return self<SoGLRenderAbortCallback>(data)->invoke();
}

// A render whose abort callback failed for a Java caller stops, so that the
// exception reaches that caller without further nodes being drawn; one that
// cannot ask Java otherwise goes on.
SoGLRenderAction::AbortCode SoGLRenderAbortCallback::invoke() const {
  PRINTDBG("DEBUG: NTV MTHD->SoGLRenderAbortCallback::invoke\n");
  CallbackUpcall upcall(this, "invoke", "()I");
  if (!upcall.ready()) return upcall.exceptionLeftForJava() ? SoGLRenderAction::ABORT : SoGLRenderAction::CONTINUE;
  jint code = SoGLRenderAction::CONTINUE;
  const bool ok = upcall.call([&](JNIEnv* e, jobject target, jmethodID method) { code = e->CallIntMethod(target, method); });
  if (!ok) return upcall.exceptionLeftForJava() ? SoGLRenderAction::ABORT : SoGLRenderAction::CONTINUE;
  return static_cast<SoGLRenderAction::AbortCode>(code);
}

// ---- SoWWWInlineFetchURLCB, SoWWWAnchorCB -------------------------------------------

namespace {

// Calls `invoke` (String, node) of the callback's Java object with the URL
// and the node that asks.
void invokeWithURL(const JCallback* callback, const char* signature, const SbString& url, const SoBase* node) {
  CallbackUpcall upcall(callback, "invoke", signature);
  if (!upcall.ready()) return;
  JNIEnv* env = upcall.env();
  const LocalRef jurl(env, upcall.argument([&] { return StringHelper::fromNativeString(env, url); }));
  const LocalRef jnode(env, upcall.argument([&] { return baseObject(env, node); }));
  if (!upcall.argumentsMade()) return;
  upcall.call([&](JNIEnv* e, jobject target, jmethodID method) {
    e->CallVoidMethod(target, method, jurl.get(), jnode.get());
  });
}

}  // namespace

void SoWWWInlineFetchURLCallback::RealCallback(const SbString& url, void* data, SoWWWInline* node) {
  PRINTDBG("DEBUG: NTV MTHD->SoWWWInlineFetchURLCallback::RealCallback\n");
  self<SoWWWInlineFetchURLCallback>(data)->invoke(url, node);
}

void SoWWWInlineFetchURLCallback::invoke(const SbString& url, SoWWWInline* node) const {
  PRINTDBG("DEBUG: NTV MTHD->SoWWWInlineFetchURLCallback::invoke\n");
  invokeWithURL(this, "(Ljava/lang/String;Lcom/orvexa/orvex/nodes/SoWWWInline;)V", url, node);
}

void SoWWWAnchorCallback::RealCallback(const SbString& url, void* data, SoWWWAnchor* anchor) {
  PRINTDBG("DEBUG: NTV MTHD->SoWWWAnchorCallback::RealCallback\n");
  self<SoWWWAnchorCallback>(data)->invoke(url, anchor);
}

void SoWWWAnchorCallback::invoke(const SbString& url, SoWWWAnchor* anchor) const {
  PRINTDBG("DEBUG: NTV MTHD->SoWWWAnchorCallback::invoke\n");
  invokeWithURL(this, "(Ljava/lang/String;Lcom/orvexa/orvex/nodes/SoWWWAnchor;)V", url, anchor);
}
