#pragma once
// Test helper: records what is posted to one error class for the lifetime of
// the object, then gives the class its previous handler back.

#include <Orvex/errors/SoDebugError.h>

#include <mutex>
#include <string>
#include <vector>

template <class ErrorClass>
class ErrorCapture {
 public:
  struct Record {
    std::string text;
    SoType type;
  };

  ErrorCapture()
      : m_previousCb(ErrorClass::getHandlerCallback()), m_previousData(ErrorClass::getHandlerCallbackData()) {
    ErrorClass::setHandlerCallback(&ErrorCapture::record, this);
  }
  ~ErrorCapture() { ErrorClass::setHandlerCallback(m_previousCb, m_previousData); }
  ErrorCapture(const ErrorCapture&) = delete;
  ErrorCapture& operator=(const ErrorCapture&) = delete;

  std::vector<Record> records() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_records;
  }
  size_t count() const { return records().size(); }
  std::string last() const {
    auto r = records();
    return r.empty() ? std::string() : r.back().text;
  }

 private:
  static void record(const SoError* error, void* data) {
    auto* self = static_cast<ErrorCapture*>(data);
    std::lock_guard<std::mutex> lock(self->m_mutex);
    self->m_records.push_back({error->getDebugString().getString(), error->getTypeId()});
  }

  SoErrorCB* m_previousCb;
  void* m_previousData;
  mutable std::mutex m_mutex;
  std::vector<Record> m_records;
};
