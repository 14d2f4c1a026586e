#pragma once
#include <Orvex/SbBase.h>
#include <atomic>

// Intrusive reference count. unref() to zero deletes the object.
class SoRefCounter {
 public:
  void ref() const;
  void unref() const;
  // Decrements without deleting at zero.
  void unrefNoDelete() const;
  int getRefCount() const { return m_refCount.load(std::memory_order_relaxed); }

 protected:
  SoRefCounter() = default;
  SoRefCounter(const SoRefCounter&) : m_refCount(0) {}
  SoRefCounter& operator=(const SoRefCounter&) { return *this; }
  virtual ~SoRefCounter() = default;
  // Called when the count reaches zero; deletes the object.
  virtual void destroy();

 private:
  mutable std::atomic<int> m_refCount{0};
};
