#pragma once
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <vector>

// Memory of the image and array fields: the field's own copy, or a block the
// caller handed over (kept as it is, deleted with delete[] or free() when the
// policy says the field owns it).
class SoArrayStorage {
 public:
  enum Ownership { OWN_COPY, BORROWED, OWN_NEW, OWN_MALLOC };

  SoArrayStorage() = default;
  SoArrayStorage(const SoArrayStorage&) = delete;
  SoArrayStorage& operator=(const SoArrayStorage&) = delete;
  ~SoArrayStorage() { release(); }

  // Copies `size` bytes (zeros when data is null).
  void copy(const void* data, size_t size) {
    std::vector<unsigned char> fresh(size);
    if (data && size) std::memcpy(fresh.data(), data, size);
    release();
    m_own.swap(fresh);
    m_data = m_own.empty() ? nullptr : m_own.data();
    m_size = size;
    m_ownership = OWN_COPY;
  }
  // Uses the block without copying it.
  void adopt(void* data, size_t size, Ownership ownership) {
    if (data == m_data) {
      m_ownership = ownership;
      m_size = size;
      return;
    }
    release();
    m_data = static_cast<unsigned char*>(data);
    m_size = size;
    m_ownership = ownership;
  }
  // Makes the storage writable (a borrowed block is copied first).
  unsigned char* edit() {
    if (m_ownership == BORROWED) copy(m_data, m_size);
    return m_data;
  }
  const unsigned char* data() const { return m_data; }
  size_t size() const { return m_size; }
  bool sameBytes(const SoArrayStorage& o) const {
    return m_size == o.m_size && (m_size == 0 || std::memcmp(m_data, o.m_data, m_size) == 0);
  }

 private:
  void release() {
    if (m_ownership == OWN_NEW) delete[] m_data;
    if (m_ownership == OWN_MALLOC) std::free(m_data);
    m_own.clear();
    m_own.shrink_to_fit();
    m_data = nullptr;
    m_size = 0;
    m_ownership = OWN_COPY;
  }
  std::vector<unsigned char> m_own;
  unsigned char* m_data = nullptr;
  size_t m_size = 0;
  Ownership m_ownership = OWN_COPY;
};
