#pragma once
#include <Orvex/SbPList.h>

class SoBase;

// A list of toolkit objects. By default the list holds a reference to each
// object it contains (ref() on insertion, unref() on removal).
class SoBaseList : public SbPList {
 public:
  SoBaseList();
  explicit SoBaseList(int initialSize);
  SoBaseList(const SoBaseList& other);
  SoBaseList& operator=(const SoBaseList& other);
  ~SoBaseList();

  void append(SoBase* object);
  void insert(SoBase* object, int addBefore);
  void remove(int which);
  void truncate(int start);
  void set(int i, SoBase* object);
  int find(const SoBase* object) const { return SbPList::find(object); }
  SoBase* operator[](int i) const { return static_cast<SoBase*>(get(i)); }

  // Whether objects are referenced; only an empty list may change it.
  void addReferences(bool flag);
  bool isReferencing() const { return m_addRefs; }

 private:
  bool m_addRefs = true;
};
