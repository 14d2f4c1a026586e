#pragma once
#include <Orvex/misc/SoBaseList.h>

class SoNode;

// A list of nodes, each referenced while in the list.
class SoNodeList : public SoBaseList {
 public:
  SoNodeList() = default;
  explicit SoNodeList(int initialSize) : SoBaseList(initialSize) {}
  void append(SoNode* node);
  void insert(SoNode* node, int addBefore);
  void set(int i, SoNode* node);
  int find(const SoNode* node) const;
  SoNode* get(int i) const { return static_cast<SoNode*>(SbPList::get(i)); }
  SoNode* operator[](int i) const { return get(i); }
};
