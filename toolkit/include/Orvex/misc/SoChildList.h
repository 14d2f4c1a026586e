#pragma once
#include <Orvex/SoNodeList.h>

#include <memory>
#include <vector>

class SoAction;
class SoNode;
class SoPath;

// The children of a group. Each change registers or unregisters the parent
// as an auditor of the child (so that the child's changes reach the
// parent), notifies the parent with what changed, and tells the paths that
// run through the parent so that they keep their child indices right.
class SoChildList : public SoNodeList {
 public:
  explicit SoChildList(SoNode* parent);
  SoChildList(SoNode* parent, int size);
  SoChildList(SoNode* parent, const SoChildList& other);
  ~SoChildList();
  SoChildList(const SoChildList&) = delete;
  SoChildList& operator=(const SoChildList&) = delete;

  void append(SoNode* child);
  void insert(SoNode* child, int addBefore);
  void remove(int which);
  void truncate(int start);
  void copy(const SoChildList& other);
  void set(int which, SoNode* child);

  // Traverses the children with the action, following its path code:
  // children off the path are only traversed when they affect the state.
  void traverse(SoAction* action);
  void traverse(SoAction* action, int childIndex);
  void traverse(SoAction* action, SoNode* node);
  void traverse(SoAction* action, int firstChild, int lastChild);

  // Paths through the parent, told about index changes.
  void addPathAuditor(SoPath* path);
  void removePathAuditor(SoPath* path);

 private:
  void notifyParent(int operation, SoNode* child, int index, SoNode* prevChild);

  SoNode* m_parent;
  std::unique_ptr<std::vector<SoPath*>> m_pathAuditors;
};
