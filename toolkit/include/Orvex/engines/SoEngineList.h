#pragma once
#include <Orvex/misc/SoBaseList.h>

class SoEngine;

// A list of engines, each referenced while in the list.
class SoEngineList : public SoBaseList {
 public:
  SoEngineList() = default;
  explicit SoEngineList(int initialSize) : SoBaseList(initialSize) {}
  void append(SoEngine* engine);
  SoEngine* get(int i) const { return static_cast<SoEngine*>(SbPList::get(i)); }
  SoEngine* operator[](int i) const { return get(i); }
};
