#pragma once
// Binary scene files store numbers little-endian; these convert in place on
// hosts of the other order and do nothing on little-endian hosts.

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace orvex {

constexpr bool kHostIsLittleEndian =
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    false;
#else
    true;
#endif

template <class T>
inline void swapBytes(T& value) {
  unsigned char bytes[sizeof(T)];
  std::memcpy(bytes, &value, sizeof(T));
  for (size_t i = 0; i < sizeof(T) / 2; ++i) {
    const unsigned char b = bytes[i];
    bytes[i] = bytes[sizeof(T) - 1 - i];
    bytes[sizeof(T) - 1 - i] = b;
  }
  std::memcpy(&value, bytes, sizeof(T));
}

template <class T>
inline void fromLittleEndian(T* values, size_t count) {
  if constexpr (!kHostIsLittleEndian)
    for (size_t i = 0; i < count; ++i) swapBytes(values[i]);
}

}  // namespace orvex
