// Registration of Java callbacks with an SoSelection node: selection and
// deselection (SoSelectionPathCB), start, finish and change
// (SoSelectionClassCB), and the pick filter (SoSelectionPickCB). As for
// every node, the registrations are mirrored in holdings attached to the
// node, which let go of the callbacks when it is destroyed.

#include <jni.h>

#include <Orvex/nodes/SoSelection.h>

#include "CallbackHoldings.h"
#include "CallbackKinds.h"
#include "CallbackObject.h"

using orvexjava::BaseCallbackHoldings;
using orvexjava::CallbackHoldings;

namespace {

// The selection's lists, as slots of its holdings.
enum SelectionList { kSelection, kDeselection, kStart, kFinish, kChange, kPickFilter };

template <typename F>
using Member = void (SoSelection::*)(F*, void*);

SoSelection* selectionAt(jlong address) { return reinterpret_cast<SoSelection*>(address); }

template <typename Callback, typename F>
void add(JNIEnv* env, jlong self, jobject javaCB, jobject userData, SelectionList list, Member<F> addMember) {
  if (javaCB == nullptr) return;
  Callback* callback = orvexjava::nativeCallbackOf<Callback>(env, javaCB);
  SoSelection* selection = selectionAt(self);
  BaseCallbackHoldings::of(selection).add(env, javaCB, callback, CallbackHoldings::slot(list));
  orvexjava::storeUserData(env, javaCB, userData);
  (selection->*addMember)(&Callback::RealCallback, callback);
}

template <typename Callback, typename F>
void remove(JNIEnv* env, jlong self, jobject javaCB, SelectionList list, Member<F> removeMember) {
  if (javaCB == nullptr) return;
  Callback* callback = orvexjava::nativeCallbackOf<Callback>(env, javaCB);
  if (callback == nullptr) return;  // never registered anywhere
  SoSelection* selection = selectionAt(self);
  (selection->*removeMember)(&Callback::RealCallback, callback);
  BaseCallbackHoldings::of(selection).remove(callback, CallbackHoldings::slot(list));
}

}  // namespace

#define SELECTION_ENTRY(ret, name) extern "C" JNIEXPORT ret JNICALL Java_com_orvexa_orvex_nodes_SoSelection_##name
#define SELECTION_PAIR(Name, Callback, list)                                                                      \
  SELECTION_ENTRY(void, add##Name##Impl)(JNIEnv * env, jclass, jlong self, jobject cb, jobject userData) {        \
    add<Callback>(env, self, cb, userData, list, &SoSelection::add##Name);                                       \
  }                                                                                                               \
  SELECTION_ENTRY(void, remove##Name##Impl)(JNIEnv * env, jclass, jlong self, jobject cb) {                       \
    remove<Callback>(env, self, cb, list, &SoSelection::remove##Name);                                           \
  }

SELECTION_PAIR(SelectionCallback, SoSelectionPathCallback, kSelection)
SELECTION_PAIR(DeselectionCallback, SoSelectionPathCallback, kDeselection)
SELECTION_PAIR(StartCallback, SoSelectionClassCallback, kStart)
SELECTION_PAIR(FinishCallback, SoSelectionClassCallback, kFinish)
SELECTION_PAIR(ChangeCallback, SoSelectionClassCallback, kChange)

// Makes `cb` the pick filter (null: none); the filter set before is let go.
SELECTION_ENTRY(void, setPickFilterCallbackImpl)(JNIEnv* env, jclass, jlong self, jobject cb, jobject userData,
                                                 jboolean callOnlyIfSelectable) {
  SoSelection* selection = selectionAt(self);
  orvexjava::setOnlyCallback<SoSelectionPickCallback>(
      env, BaseCallbackHoldings::of(selection), CallbackHoldings::slot(kPickFilter), cb, userData,
      [&](SoSelectionPickCB* function, void* data) {
        selection->setPickFilterCallback(function, data, callOnlyIfSelectable == JNI_TRUE);
      });
}
