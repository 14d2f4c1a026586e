#include <Orvex/misc/SoRefCounter.h>

#include <Orvex/errors/SoDebugError.h>

void SoRefCounter::ref() const { m_refCount.fetch_add(1, std::memory_order_relaxed); }

void SoRefCounter::unref() const {
  const int before = m_refCount.fetch_sub(1, std::memory_order_acq_rel);
  if (before == 1) {
    const_cast<SoRefCounter*>(this)->destroy();
  } else if (before <= 0) {
    m_refCount.fetch_add(1, std::memory_order_relaxed);
    SoDebugError::post("SoRefCounter::unref", "Reference count of %p is already %d",
                       static_cast<const void*>(this), before);
  }
}

void SoRefCounter::unrefNoDelete() const {
  const int before = m_refCount.fetch_sub(1, std::memory_order_acq_rel);
  if (before <= 0) {
    m_refCount.fetch_add(1, std::memory_order_relaxed);
    SoDebugError::post("SoRefCounter::unrefNoDelete", "Reference count of %p is already %d",
                       static_cast<const void*>(this), before);
  }
}

void SoRefCounter::destroy() { delete this; }
