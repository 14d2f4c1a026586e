// The process-wide functions of the SoWWWInline and SoWWWAnchor nodes: the
// inline's fetch function, the anchor's fetch and highlight functions. Each
// is one function for every node of the class, so the callbacks are held in
// holdings of the process, which keep each until another replaces it.

#include <jni.h>

#include <Orvex/nodes/SoWWWAnchor.h>
#include <Orvex/nodes/SoWWWInline.h>

#include "CallbackHoldings.h"
#include "CallbackKinds.h"

using orvexjava::CallbackHoldings;

namespace {

enum WWWFunction { kInlineFetch, kAnchorFetch, kAnchorHighlight };

// Never destroyed: nodes may still call the functions while the process exits.
CallbackHoldings& processHoldings() {
  static CallbackHoldings* holdings = new CallbackHoldings;
  return *holdings;
}

}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_com_orvexa_orvex_nodes_SoWWWInline_setNativeFetchURLCallBack(JNIEnv* env, jclass,
                                                                                        jobject cb, jobject userData) {
  orvexjava::setOnlyCallback<SoWWWInlineFetchURLCallback>(
      env, processHoldings(), CallbackHoldings::slot(kInlineFetch), cb, userData,
      [](SoWWWInlineFetchURLCB* function, void* data) { SoWWWInline::setFetchURLCallBack(function, data); });
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_nodes_SoWWWAnchor_setFetchURLCallBackImpl(JNIEnv* env, jclass,
                                                                                      jobject cb, jobject userData) {
  orvexjava::setOnlyCallback<SoWWWAnchorCallback>(
      env, processHoldings(), CallbackHoldings::slot(kAnchorFetch), cb, userData,
      [](SoWWWAnchorCB* function, void* data) { SoWWWAnchor::setFetchURLCallBack(function, data); });
}

JNIEXPORT void JNICALL Java_com_orvexa_orvex_nodes_SoWWWAnchor_setHighlightURLCallBackImpl(JNIEnv* env, jclass,
                                                                                          jobject cb,
                                                                                          jobject userData) {
  orvexjava::setOnlyCallback<SoWWWAnchorCallback>(
      env, processHoldings(), CallbackHoldings::slot(kAnchorHighlight), cb, userData,
      [](SoWWWAnchorCB* function, void* data) { SoWWWAnchor::setHighlightURLCallBack(function, data); });
}

}  // extern "C"
