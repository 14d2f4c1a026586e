#pragma once
// The callback objects that one toolkit object holds, mirrored on the native
// side: the toolkit keeps raw pointers in its own lists and cannot tell when
// it lets go of one, so each registration takes a hold of the callback
// object (JCallback::hold) and is recorded here, each removal that finds
// its record gives the hold back, and whatever is left is given back when
// the holder goes.

#include <jni.h>

#include <cstdint>
#include <mutex>
#include <vector>

#include <Orvex/misc/SoAuditorList.h>

#include "CallbackObject.h"
#include "JCallback.h"

class SoBase;

namespace orvexjava {

class CallbackHoldings {
 public:
  // Which registration of the holder: the holder's list (its own numbering)
  // and, for lists kept per toolkit type, the type's key.
  static uint64_t slot(int list, unsigned typeKey = 0) { return (uint64_t(list) << 32) | typeKey; }

  CallbackHoldings() = default;
  virtual ~CallbackHoldings();
  CallbackHoldings(const CallbackHoldings&) = delete;
  CallbackHoldings& operator=(const CallbackHoldings&) = delete;

  // Takes a hold of `callback` (whose Java object is `javaCB`) for a
  // registration in `slot`.
  void add(JNIEnv* env, jobject javaCB, JCallback* callback, uint64_t slot);
  // Gives back the hold of one registration of `callback` in `slot`; false
  // when there is none (the toolkit had nothing to remove either).
  bool remove(JCallback* callback, uint64_t slot);
  // Gives back the holds of every registration in `slot`.
  void removeSlot(uint64_t slot);
  // Gives back the holds of every registration in `slot` but the newest
  // (a holder with a single function replaced it).
  void removeSlotExceptLast(uint64_t slot);
  // Gives back every hold.
  void clear();

 private:
  struct Entry {
    JCallback* callback;
    uint64_t slot;
  };
  std::vector<Entry> takeAll(bool (*match)(const Entry&, uint64_t), uint64_t slot);

  std::mutex m_mutex;
  std::vector<Entry> m_entries;
};

// Makes the Java callback `javaCB` (null: none) the one function that a
// holder keeps in `slot` (an SoCallback node's function, a render action's
// pass callback), stored on the callback with `userData`; `install(function,
// data)` hands the trampoline and the native object to the toolkit (both
// null for none). The function held before is let go only once the holder
// has switched, so the same callback set again keeps its reference.
template <typename Callback, typename Install>
void setOnlyCallback(JNIEnv* env, CallbackHoldings& holdings, uint64_t slot, jobject javaCB, jobject userData,
                     Install install) {
  if (javaCB == nullptr) {
    install(nullptr, nullptr);
    holdings.removeSlot(slot);
    return;
  }
  auto* callback = nativeCallbackOf<Callback>(env, javaCB);
  holdings.add(env, javaCB, callback, slot);
  storeUserData(env, javaCB, userData);
  install(&Callback::RealCallback, callback);
  holdings.removeSlotExceptLast(slot);
}

// The holdings of a node (or any reference-counted toolkit object): they
// watch the object as an auditor and give everything back when it is about
// to be destroyed, whether or not Java still has a wrapper of it.
class BaseCallbackHoldings : public CallbackHoldings, public SoAuditor {
 public:
  // The holdings of `holder`, made and attached on first use.
  static BaseCallbackHoldings& of(SoBase* holder);

  void notify(SoNotList*) override {}
  void dyingReference(SoBase* dying) override;

 private:
  explicit BaseCallbackHoldings(SoBase* holder) : m_holder(holder) {}
  ~BaseCallbackHoldings() override = default;
  SoBase* m_holder;
};

}  // namespace orvexjava
