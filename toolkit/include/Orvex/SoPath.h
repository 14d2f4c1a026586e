#pragma once
#include <Orvex/SoNodeList.h>
#include <Orvex/misc/SoBase.h>

#include <vector>

class SoNode;
class SoPathList;

// A chain of nodes from a head node down through children: each node after
// the head is a child of the node before it, identified by its child index.
// The path references its nodes. It follows changes of the groups on it:
// inserting or removing a child before the path's child adjusts the index;
// removing or replacing the child on the path cuts the path there.
class SoPath : public SoBase {
 public:
  SoPath();
  // Room for approxLength nodes.
  explicit SoPath(int approxLength);
  explicit SoPath(SoNode* head);

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();

  // Makes the path just this node (clearing what it held).
  void setHead(SoNode* node);
  SoNode* getHead() const;
  // Appends the child of the tail with that index.
  void append(int childIndex);
  // Appends a child of the tail (its first occurrence among the children).
  void append(SoNode* childNode);
  // Appends a path whose head is this path's tail.
  void append(const SoPath* fromPath);
  void push(int childIndex) { append(childIndex); }
  void pop() { truncate(getLength() - 1); }

  SoNode* getTail() const;
  SoNode* getNode(int i) const;
  SoNode* getNodeFromTail(int i) const;
  // Child index of node i in node i-1 (-1 for the head).
  int getIndex(int i) const;
  int getIndexFromTail(int i) const;
  int getLength() const;
  // Keeps the first `start` nodes.
  void truncate(int start);

  bool containsNode(const SoNode* node) const;
  // True when some node of the path is of that type (or derived).
  bool containsNode(SoType type) const;
  // True when `path` is a part of this path (same nodes and indices from
  // where its head stands in this path).
  bool containsPath(const SoPath* path) const;
  // Index of the last node both paths share from the head, or -1.
  int findFork(const SoPath* path) const;
  // Index of the node in the path, or -1.
  int findNode(const SoNode* node) const;
  // A new path with numNodes nodes (0: to the tail) from startFromNodeIndex.
  SoPath* copy(int startFromNodeIndex = 0, int numNodes = 0) const;

  friend bool operator==(const SoPath& a, const SoPath& b);
  friend bool operator!=(const SoPath& a, const SoPath& b) { return !(a == b); }

  static SoPath* getByName(const SbName& name);
  static int getByName(const SbName& name, SoPathList& list);

  // True when the change that `list` describes concerns the path: a node
  // on it, under its tail, or left of it (which can affect its state).
  bool isRelevantNotification(SoNotList* list) const;
  void notify(SoNotList* list) override;

  bool readInstance(SoInput* in, unsigned short flags) override;
  void writeInstance(SoOutput* out) override;

  // Told by the child lists of the groups on the path.
  void insertIndex(SoNode* parent, int newIndex);
  void removeIndex(SoNode* parent, int oldIndex);
  void replaceIndex(SoNode* parent, int index, SoNode* newChild);

 protected:
  ~SoPath() override;

 private:
  void appendNode(SoNode* node, int index);

  SoNodeList m_nodes;
  std::vector<int> m_indices;
};
