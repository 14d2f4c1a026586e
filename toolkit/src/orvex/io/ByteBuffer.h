#pragma once
// A growable block of bytes for file content of unknown size (a stream, a
// decompressed file). Unlike std::vector it grows with realloc, which for
// large blocks moves pages instead of copying them: a buffer growing to a
// gigabyte never holds its old and new copies at once (which would double
// the peak memory) and spends no time copying.

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace orvex {

class ByteBuffer {
 public:
  ByteBuffer() = default;
  ~ByteBuffer() { std::free(m_data); }
  ByteBuffer(const ByteBuffer&) = delete;
  ByteBuffer& operator=(const ByteBuffer&) = delete;
  ByteBuffer(ByteBuffer&& other) noexcept { swap(other); }
  ByteBuffer& operator=(ByteBuffer&& other) noexcept {
    ByteBuffer(std::move(other)).swap(*this);
    return *this;
  }

  const char* data() const { return m_data; }
  char* data() { return m_data; }
  size_t size() const { return m_size; }
  bool empty() const { return m_size == 0; }

  // Makes room for `capacity` bytes in all; throws std::bad_alloc when the
  // memory cannot be had.
  void reserve(size_t capacity) {
    if (capacity <= m_capacity) return;
    void* grown = std::realloc(m_data, capacity);
    if (!grown) throw std::bad_alloc();
    m_data = static_cast<char*>(grown);
    m_capacity = capacity;
  }

  void append(const char* bytes, size_t count) {
    if (count == 0) return;
    if (count > m_capacity - m_size) {
      // Doubling keeps appends cheap; capacity beyond the size is never
      // written, so it costs address space, not memory.
      const size_t needed = m_size + count;
      reserve(needed > m_capacity * 2 ? needed : m_capacity * 2);
    }
    std::memcpy(m_data + m_size, bytes, count);
    m_size += count;
  }

  // Frees the memory.
  void reset() { ByteBuffer().swap(*this); }

  void swap(ByteBuffer& other) noexcept {
    std::swap(m_data, other.m_data);
    std::swap(m_size, other.m_size);
    std::swap(m_capacity, other.m_capacity);
  }

 private:
  char* m_data = nullptr;
  size_t m_size = 0;
  size_t m_capacity = 0;
};

}  // namespace orvex
