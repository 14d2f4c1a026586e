#pragma once
// Helpers shared by the scene-graph tests.

#include <Orvex/SoDB.h>
#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/misc/SoAuditorList.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/nodes/SoSeparator.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace orvextest {

// Holds a reference to a toolkit object for the lifetime of the holder.
template <class T>
class Ref {
 public:
  Ref() = default;
  explicit Ref(T* object) : m_object(object) {
    if (m_object) m_object->ref();
  }
  Ref(const Ref& other) : Ref(other.m_object) {}
  Ref& operator=(const Ref& other) {
    if (other.m_object) other.m_object->ref();
    if (m_object) m_object->unref();
    m_object = other.m_object;
    return *this;
  }
  ~Ref() {
    if (m_object) m_object->unref();
  }
  T* get() const { return m_object; }
  T* operator->() const { return m_object; }
  T& operator*() const { return *m_object; }
  explicit operator bool() const { return m_object != nullptr; }

 private:
  T* m_object = nullptr;
};

template <class T>
Ref<T> make(T* object) {
  return Ref<T>(object);
}

// Writes a graph to a memory buffer and answers the text.
inline std::string writeToString(SoNode* node, bool binary = false) {
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  out.setBinary(binary);
  SoWriteAction action(&out);
  action.apply(node);
  void* buffer = nullptr;
  size_t size = 0;
  out.getBuffer(buffer, size);
  return std::string(static_cast<const char*>(buffer), size);
}

// Reads every node of a text (kept alive by the caller's reference).
inline Ref<SoSeparator> readFromString(const std::string& text) {
  SoInput in;
  in.setBuffer(const_cast<char*>(text.data()), text.size());
  return Ref<SoSeparator>(SoDB::readAll(&in));
}

// A sensor-like observer that records the notifications it receives.
struct Listener : SoAuditor {
  std::vector<SoNotRec::OperationType> operations;
  std::vector<SoBase*> origins;
  std::vector<SoField*> fields;
  std::vector<int> recordCounts;
  int dying = 0;
  void notify(SoNotList* list) override {
    operations.push_back(list->getFirstRec() ? list->getFirstRec()->getOperationType() : SoNotRec::UNSPECIFIED);
    origins.push_back(list->getFirstRec() ? list->getFirstRec()->getBase() : nullptr);
    fields.push_back(list->getFirstField());
    recordCounts.push_back(list->getNumRecs());
  }
  void dyingReference(SoBase*) override { ++dying; }
  size_t count() const { return operations.size(); }
};

}  // namespace orvextest
