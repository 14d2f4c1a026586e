#include <Orvex/SbPList.h>

#include <algorithm>
#include <cstring>

SbPList::SbPList() = default;

SbPList::SbPList(int initialSize) {
  if (initialSize > 0) grow(initialSize);
}

SbPList::SbPList(const SbPList& other) { *this = other; }

SbPList& SbPList::operator=(const SbPList& other) {
  if (this == &other) return *this;
  m_num = 0;
  grow(other.m_num);
  if (other.m_num > 0) std::memcpy(m_ptrs, other.m_ptrs, sizeof(void*) * other.m_num);
  m_num = other.m_num;
  return *this;
}

SbPList::~SbPList() { delete[] m_ptrs; }

// Makes room for at least minSize entries, doubling to keep appends cheap.
void SbPList::grow(int minSize) const {
  if (minSize <= m_size) return;
  const int newSize = std::max(minSize, std::max(8, m_size * 2));
  void** bigger = new void*[newSize];
  if (m_num > 0) std::memcpy(bigger, m_ptrs, sizeof(void*) * m_num);
  delete[] m_ptrs;
  m_ptrs = bigger;
  m_size = newSize;
}

void SbPList::append(void* ptr) {
  grow(m_num + 1);
  m_ptrs[m_num++] = ptr;
}

int SbPList::find(const void* ptr) const {
  for (int i = 0; i < m_num; ++i)
    if (m_ptrs[i] == ptr) return i;
  return -1;
}

void SbPList::insert(void* ptr, int addBefore) {
  addBefore = std::clamp(addBefore, 0, m_num);
  grow(m_num + 1);
  std::memmove(m_ptrs + addBefore + 1, m_ptrs + addBefore, sizeof(void*) * (m_num - addBefore));
  m_ptrs[addBefore] = ptr;
  ++m_num;
}

void SbPList::remove(int which) {
  if (which < 0 || which >= m_num) return;
  std::memmove(m_ptrs + which, m_ptrs + which + 1, sizeof(void*) * (m_num - which - 1));
  --m_num;
}

void SbPList::removeFast(int which) {
  if (which < 0 || which >= m_num) return;
  m_ptrs[which] = m_ptrs[--m_num];
}

void SbPList::truncate(int start) {
  if (start >= 0 && start < m_num) m_num = start;
}

void*& SbPList::operator[](int i) const {
  if (i >= m_num) {
    grow(i + 1);
    std::fill(m_ptrs + m_num, m_ptrs + i + 1, nullptr);
    m_num = i + 1;
  }
  return m_ptrs[i];
}

bool SbPList::operator==(const SbPList& other) const {
  return m_num == other.m_num &&
         (m_num == 0 || std::memcmp(m_ptrs, other.m_ptrs, sizeof(void*) * m_num) == 0);
}
