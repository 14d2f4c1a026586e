#include <Orvex/devices/SoBufferObject.h>

#include <Orvex/errors/SoDebugError.h>

#include <cstring>

SoType SoBufferObject::getClassTypeId() {
  // Registered once, by whichever thread asks first.
  static const SoType type = [] {
    SoTypedObject::initClass();
    return SoType::createType(SoTypedObject::getClassTypeId(), "SoBufferObject");
  }();
  return type;
}

void SoBufferObject::initClass() { getClassTypeId(); }

SoBufferObject::SoBufferObject() = default;
SoBufferObject::~SoBufferObject() = default;

bool SoBufferObject::beginMapping(AccessModes accessMode) {
  if (accessMode != READ_ONLY && accessMode != SET && accessMode != READ_WRITE) {
    SoDebugError::post("SoBufferObject::map", "Unknown access mode %d", static_cast<int>(accessMode));
    return false;
  }
  ++m_mapCount;
  return true;
}

bool SoBufferObject::endMapping() {
  if (m_mapCount == 0) {
    SoDebugError::post("SoBufferObject::unmap", "The buffer is not mapped");
    return false;
  }
  --m_mapCount;
  return true;
}

bool SoBufferObject::refuseWhileMapped(const char* method) const {
  if (m_mapCount == 0) return false;
  SoDebugError::post(method, "The buffer is mapped (%d times): unmap it first", m_mapCount);
  return true;
}

bool SoBufferObject::memcpy(SoBufferObject* sourceBufferObject, size_t destOffset, size_t sourceOffset,
                            size_t copySize) {
  if (!sourceBufferObject) {
    SoDebugError::post("SoBufferObject::memcpy", "No source buffer");
    return false;
  }
  const size_t sourceSize = sourceBufferObject->getSize();
  const size_t available = sourceOffset <= sourceSize ? sourceSize - sourceOffset : 0;
  const size_t count = copySize == SO_BUFFER_SIZE_ALL ? available : copySize;
  if (sourceOffset > sourceSize || count > available || destOffset > m_size || count > m_size - destOffset) {
    SoDebugError::post("SoBufferObject::memcpy",
                       "Copying %zu bytes from offset %zu of a buffer of %zu bytes to offset %zu of one of %zu bytes "
                       "does not fit",
                       count, sourceOffset, sourceSize, destOffset, m_size);
    return false;
  }
  if (count == 0) return true;
  if (sourceBufferObject == this) {
    auto* bytes = static_cast<unsigned char*>(map(READ_WRITE));
    if (!bytes) return false;
    std::memmove(bytes + destOffset, bytes + sourceOffset, count);
    unmap();
    return true;
  }
  const auto* from = static_cast<const unsigned char*>(sourceBufferObject->map(READ_ONLY));
  if (!from) return false;
  // Overwriting every byte needs no old content.
  auto* to = static_cast<unsigned char*>(map(count == m_size ? SET : READ_WRITE));
  if (to) {
    std::memcpy(to + destOffset, from + sourceOffset, count);
    unmap();
  }
  sourceBufferObject->unmap();
  return to != nullptr;
}

bool SoBufferObject::memset(const void* value, size_t valueSize, size_t offset, size_t count) {
  if (!value || valueSize == 0) {
    SoDebugError::post("SoBufferObject::memset", "No value to set");
    return false;
  }
  const size_t elements = m_size / valueSize;
  const size_t available = offset <= elements ? elements - offset : 0;
  const size_t n = count == SO_BUFFER_SIZE_ALL ? available : count;
  if (offset > elements || n > available) {
    SoDebugError::post("SoBufferObject::memset",
                       "Setting %zu values of %zu bytes from value %zu of a buffer of %zu bytes does not fit", n,
                       valueSize, offset, m_size);
    return false;
  }
  if (n == 0) return true;
  auto* bytes = static_cast<unsigned char*>(map(n * valueSize == m_size ? SET : READ_WRITE));
  if (!bytes) return false;
  unsigned char* at = bytes + offset * valueSize;
  if (valueSize == 1) {
    std::memset(at, *static_cast<const unsigned char*>(value), n);
  } else {
    for (size_t i = 0; i < n; ++i) std::memcpy(at + i * valueSize, value, valueSize);
  }
  unmap();
  return true;
}
