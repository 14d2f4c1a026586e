#pragma once
#include <Orvex/misc/SoBaseList.h>

class SoPath;

// A list of paths, each referenced while in the list.
class SoPathList : public SoBaseList {
 public:
  SoPathList() = default;
  explicit SoPathList(int initialSize) : SoBaseList(initialSize) {}
  void append(SoPath* path);
  void insert(SoPath* path, int addBefore);
  void set(int i, SoPath* path);
  SoPath* get(int i) const { return static_cast<SoPath*>(SbPList::get(i)); }
  SoPath* operator[](int i) const { return get(i); }
  // Index of a path equal to `path` (same nodes and indices), or -1.
  int findPath(const SoPath& path) const;
  // Sorts by head, then by child indices from the head down, so that paths
  // through the same nodes are next to each other.
  void sort();
  // After sort(): removes duplicates and paths that continue another path
  // of the list (which already covers them).
  void uniquify();
};
