#pragma once
// The handler of one error class: a callback and its data, read and replaced
// atomically as a pair so that errors can be posted from any thread.

#include <Orvex/errors/SoError.h>

#include <mutex>

namespace orvex {

class HandlerSlot {
 public:
  // Constant-initialised: usable by errors posted during static construction.
  constexpr HandlerSlot() = default;

  void set(SoErrorCB* cb, void* data) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_cb = cb;
    m_data = data;
  }
  SoErrorCB* get(void*& data) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    data = m_data;
    return m_cb;
  }
  SoErrorCB* callback() const {
    void* ignored;
    return get(ignored);
  }
  void* data() const {
    void* d;
    get(d);
    return d;
  }

 private:
  mutable std::mutex m_mutex;
  SoErrorCB* m_cb = &SoError::defaultHandlerCB;
  void* m_data = nullptr;
};

// "Orvex <kind> in <method>(): <message>", or "Orvex <kind>: <message>" when
// no method is named.
SbString composeMessage(const char* kind, const char* methodName, const SbString& message);

}  // namespace orvex
