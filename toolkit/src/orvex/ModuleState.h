#pragma once
// Initialisation count of a toolkit module. init() calls nest: the first one
// brings the module up, and the module goes down again only when finish()
// has been called as often as init().

#include <mutex>

namespace orvex {

class ModuleState {
 public:
  // Runs bringUp on the first init only.
  template <class BringUp>
  void init(BringUp bringUp) {
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    if (m_count++ == 0) bringUp();
  }

  // Runs tearDown when the last init is balanced; extra calls do nothing.
  template <class TearDown>
  void finish(TearDown tearDown) {
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    if (m_count == 0) return;
    if (--m_count == 0) tearDown();
  }

  bool isInitialized() const {
    std::lock_guard<std::recursive_mutex> lock(m_mutex);
    return m_count > 0;
  }

 private:
  mutable std::recursive_mutex m_mutex;
  int m_count = 0;
};

}  // namespace orvex
