// The node and path lists.

#include <Orvex/SoNodeList.h>
#include <Orvex/SoPath.h>
#include <Orvex/SoPathList.h>
#include <Orvex/nodes/SoNode.h>

#include <algorithm>
#include <functional>
#include <vector>

void SoNodeList::append(SoNode* node) { SoBaseList::append(node); }
void SoNodeList::insert(SoNode* node, int addBefore) { SoBaseList::insert(node, addBefore); }
void SoNodeList::set(int i, SoNode* node) { SoBaseList::set(i, node); }
int SoNodeList::find(const SoNode* node) const { return SbPList::find(static_cast<const SoBase*>(node)); }

void SoPathList::append(SoPath* path) { SoBaseList::append(path); }
void SoPathList::insert(SoPath* path, int addBefore) { SoBaseList::insert(path, addBefore); }
void SoPathList::set(int i, SoPath* path) { SoBaseList::set(i, path); }

int SoPathList::findPath(const SoPath& path) const {
  for (int i = 0; i < getLength(); ++i)
    if (get(i) && *get(i) == path) return i;
  return -1;
}

namespace {
// Orders paths by head address, then by child indices along the path; a
// path comes before the paths that continue it.
bool pathLess(const SoPath* a, const SoPath* b) {
  if (a->getHead() != b->getHead()) return std::less<const SoNode*>()(a->getHead(), b->getHead());
  const int n = std::min(a->getLength(), b->getLength());
  for (int i = 1; i < n; ++i)
    if (a->getIndex(i) != b->getIndex(i)) return a->getIndex(i) < b->getIndex(i);
  return a->getLength() < b->getLength();
}
}  // namespace

void SoPathList::sort() {
  std::vector<SoPath*> paths;
  for (int i = 0; i < getLength(); ++i) paths.push_back(get(i));
  std::stable_sort(paths.begin(), paths.end(), pathLess);
  // Same objects in another order: references are unchanged.
  for (int i = 0; i < getLength(); ++i) SbPList::set(i, paths[static_cast<size_t>(i)]);
}

void SoPathList::uniquify() {
  // Sorted, the paths that repeat or continue a path follow it in one run,
  // so each is compared with the last path kept (not merely its neighbour:
  // in "g, g/0, g/0/1, g/2" the last one continues the first).
  int kept = 0;
  for (int i = 1; i < getLength();) {
    const SoPath* cover = get(kept);
    const SoPath* path = get(i);
    if (cover && path && cover->getHead() == path->getHead() && cover->getLength() <= path->getLength() &&
        path->containsPath(cover)) {
      remove(i);
    } else {
      kept = i++;
    }
  }
}
