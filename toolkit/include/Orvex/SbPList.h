#pragma once
#include <Orvex/SbBase.h>

// A growable list of untyped pointers; the base of the toolkit's typed lists.
class SbPList {
 public:
  SbPList();
  explicit SbPList(int initialSize);
  SbPList(const SbPList& other);
  SbPList& operator=(const SbPList& other);
  ~SbPList();

  void append(void* ptr);
  int find(const void* ptr) const;  // index or -1
  void insert(void* ptr, int addBefore);
  void remove(int which);
  void removeFast(int which);  // moves the last element into the hole
  int getLength() const { return m_num; }
  void truncate(int start);
  void copy(const SbPList& other) { *this = other; }
  void** getArrayPtr() const { return m_ptrs; }
  void* get(int i) const { return m_ptrs[i]; }
  void set(int i, void* p) { m_ptrs[i] = p; }
  void*& operator[](int i) const;  // grows the list when i is past the end
  bool operator==(const SbPList& other) const;
  bool operator!=(const SbPList& other) const { return !(*this == other); }

 private:
  void grow(int minSize) const;
  mutable void** m_ptrs = nullptr;
  mutable int m_num = 0;
  mutable int m_size = 0;
};

// A list of integers stored in an SbPList.
class SbIntList : public SbPList {
 public:
  void append(int v) { SbPList::append(reinterpret_cast<void*>(static_cast<intptr_t>(v))); }
  int find(int v) const { return SbPList::find(reinterpret_cast<void*>(static_cast<intptr_t>(v))); }
  void insert(int v, int before) { SbPList::insert(reinterpret_cast<void*>(static_cast<intptr_t>(v)), before); }
  int operator[](int i) const { return static_cast<int>(reinterpret_cast<intptr_t>(get(i))); }
};
