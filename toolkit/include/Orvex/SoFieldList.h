#pragma once
#include <Orvex/SbPList.h>

class SoField;

// A list of fields; the list does not own them.
class SoFieldList : public SbPList {
 public:
  SoFieldList() = default;
  explicit SoFieldList(int initialSize) : SbPList(initialSize) {}
  void append(SoField* field) { SbPList::append(field); }
  void insert(SoField* field, int addBefore) { SbPList::insert(field, addBefore); }
  int find(const SoField* field) const { return SbPList::find(field); }
  void set(int i, SoField* field) { SbPList::set(i, field); }
  SoField* get(int i) const { return static_cast<SoField*>(SbPList::get(i)); }
  SoField* operator[](int i) const { return get(i); }
};
