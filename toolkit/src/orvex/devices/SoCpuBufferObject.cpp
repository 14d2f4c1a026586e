#include <Orvex/devices/SoCpuBufferObject.h>

#include <Orvex/errors/SoDebugError.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace {
void* create() { return static_cast<void*>(static_cast<SoBufferObject*>(new SoCpuBufferObject)); }
}  // namespace

SoType SoCpuBufferObject::getClassTypeId() {
  static const SoType type = SoType::createType(SoBufferObject::getClassTypeId(), "SoCpuBufferObject", &create);
  return type;
}

SoType SoCpuBufferObject::getTypeId() const { return getClassTypeId(); }

void SoCpuBufferObject::initClass() { getClassTypeId(); }

SoCpuBufferObject::SoCpuBufferObject() = default;

SoCpuBufferObject::SoCpuBufferObject(void* buffer, size_t size) { setBuffer(buffer, size); }

SoCpuBufferObject::~SoCpuBufferObject() = default;

void SoCpuBufferObject::setBuffer(void* buffer, size_t size) {
  if (refuseWhileMapped("SoCpuBufferObject::setBuffer")) return;
  m_own.reset();
  m_user = buffer ? static_cast<unsigned char*>(buffer) : nullptr;
  setStoredSize(buffer ? size : 0);
}

bool SoCpuBufferObject::setSize(size_t size) {
  if (refuseWhileMapped("SoCpuBufferObject::setSize")) return false;
  if (size == getSize() && !m_user) return true;
  std::unique_ptr<unsigned char[]> fresh;
  if (size > 0) {
    // Value-initialised: the new bytes are zero.
    fresh.reset(new (std::nothrow) unsigned char[size]());
    if (!fresh) {
      SoDebugError::post("SoCpuBufferObject::setSize", "Out of memory for %zu bytes", size);
      return false;
    }
    const unsigned char* old = m_user ? m_user : m_own.get();
    if (old) std::memcpy(fresh.get(), old, std::min(size, getSize()));
  }
  m_own = std::move(fresh);
  m_user = nullptr;
  setStoredSize(size);
  return true;
}

void* SoCpuBufferObject::map(AccessModes accessMode) {
  if (!beginMapping(accessMode)) return nullptr;
  return m_user ? static_cast<void*>(m_user) : static_cast<void*>(m_own.get());
}

void SoCpuBufferObject::unmap() { endMapping(); }

SoBufferObject* SoCpuBufferObject::createInstance() const { return new SoCpuBufferObject; }

void SoCpuBufferObject::clearInstance() {
  if (refuseWhileMapped("SoCpuBufferObject::clearInstance")) return;
  m_own.reset();
  m_user = nullptr;
  setStoredSize(0);
}
