#pragma once
#include <Orvex/SbBase.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

// A function of a callback list: the data given when it was added, and the
// data of the call that invokes the list.
typedef void SoCallbackListCB(void* userData, void* callbackData);

// An ordered list of functions, each with its own user data, called one
// after the other by invokeCallbacks(). The pair (function, user data) is
// the entry: the same function added with two different user data values is
// two entries, and adding the same pair twice calls it twice.
//
// A function may change the list while it is being invoked: an entry
// removed during the pass is not called afterwards in that pass, and an
// entry added during the pass waits for the next one. The list may be
// changed and invoked from several threads; functions run without the
// list's lock held.
class SoCallbackList {
 public:
  SoCallbackList();
  ~SoCallbackList();
  SoCallbackList(const SoCallbackList&) = delete;
  SoCallbackList& operator=(const SoCallbackList&) = delete;

  // A null function is ignored.
  void addCallback(SoCallbackListCB* f, void* userData = nullptr);
  // Removes the first entry added with this function and user data; does
  // nothing when there is none.
  void removeCallback(SoCallbackListCB* f, void* userData = nullptr);
  void clearCallbacks();
  int getNumCallbacks() const;
  // Calls every entry, in the order added, with its user data and `callbackData`.
  void invokeCallbacks(void* callbackData);

 private:
  struct Entry;
  mutable std::mutex m_mutex;  // guards m_entries (not the calls)
  std::vector<std::shared_ptr<Entry>> m_entries;
};
