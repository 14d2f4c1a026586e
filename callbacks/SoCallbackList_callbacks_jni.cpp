// Java functions in an SoCallbackList. The list's entries are mirrored in
// holdings that live as long as the native list (NativeCallbackHoldings).
// A list invoked from Java hands each function the Java object given to the
// invocation; the toolkit only carries a pointer, so the invocation passes
// a marker of its own thread, which the trampoline recognises.

#include <jni.h>

#include <Orvex/misc/SoCallbackList.h>

#include "CallbackHoldings.h"
#include "CallbackKinds.h"
#include "CallbackUpcall.h"

using orvexjava::CallbackHoldings;
using orvexjava::CallbackUpcall;

namespace {

// The Java data of the invocation running on this thread; the trampoline is
// given the marker's address as the invocation's data.
struct JavaInvocation {
  jobject data = nullptr;
};
thread_local JavaInvocation* t_invocation = nullptr;

SoCallbackList* listAt(jlong address) { return reinterpret_cast<SoCallbackList*>(address); }
CallbackHoldings& holdingsAt(jlong address) { return *reinterpret_cast<CallbackHoldings*>(address); }

constexpr uint64_t kEntries = 0;

}  // namespace

void SoCallbackListCallback::RealCallback(void* data, void* callbackData) {
  PRINTDBG("DEBUG: NTV MTHD->SoCallbackListCallback::RealCallback\n");
  static_cast<const SoCallbackListCallback*>(data)->invoke(callbackData);
}

void SoCallbackListCallback::invoke(void* callbackData) const {
  PRINTDBG("DEBUG: NTV MTHD->SoCallbackListCallback::invoke\n");
  CallbackUpcall upcall(this, "internInvoke", "(Ljava/lang/Object;)V");
  if (!upcall.ready()) return;
  // Data that is not this thread's Java invocation means nothing to Java.
  const jobject javaData = t_invocation != nullptr && callbackData == t_invocation ? t_invocation->data : nullptr;
  upcall.call([&](JNIEnv* e, jobject target, jmethodID method) { e->CallVoidMethod(target, method, javaData); });
}

#define LIST_ENTRY(ret, name) extern "C" JNIEXPORT ret JNICALL Java_com_orvexa_orvex_misc_SoCallbackList_##name

LIST_ENTRY(void, addCCallback)(JNIEnv* env, jclass, jlong self, jlong holdings, jobject cb, jobject userData) {
  auto* callback = orvexjava::nativeCallbackOf<SoCallbackListCallback>(env, cb);
  holdingsAt(holdings).add(env, cb, callback, kEntries);
  orvexjava::storeUserData(env, cb, userData);
  listAt(self)->addCallback(&SoCallbackListCallback::RealCallback, callback);
}

LIST_ENTRY(void, removeCCallback)(JNIEnv* env, jclass, jlong self, jlong holdings, jobject cb) {
  auto* callback = orvexjava::nativeCallbackOf<SoCallbackListCallback>(env, cb);
  if (callback == nullptr) return;  // never added anywhere
  listAt(self)->removeCallback(&SoCallbackListCallback::RealCallback, callback);
  holdingsAt(holdings).remove(callback, kEntries);
}

LIST_ENTRY(void, clearCCallbacks)(JNIEnv*, jclass, jlong self, jlong holdings) {
  listAt(self)->clearCallbacks();
  holdingsAt(holdings).clear();
}

LIST_ENTRY(void, invokeCCallbacks)(JNIEnv*, jclass, jlong self, jobject callbackData) {
  JavaInvocation invocation{callbackData};
  JavaInvocation* const outer = t_invocation;  // a function may invoke a list in turn
  t_invocation = &invocation;
  listAt(self)->invokeCallbacks(&invocation);
  t_invocation = outer;
}
