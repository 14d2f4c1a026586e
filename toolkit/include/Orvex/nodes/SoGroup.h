#pragma once
#include <Orvex/misc/SoChildList.h>
#include <Orvex/nodes/SoSubNode.h>

// A node with ordered children, traversed in order. Children are
// referenced while they belong to the group.
class SoGroup : public SoNode {
  SO_NODE_HEADER(SoGroup);

 public:
  SoGroup();
  // The center of a group is the average of its children's centers.
  void getBoundingBox(SoGetBoundingBoxAction* action) override;
  // Only along a path: nodes under the tail do not count.
  void getMatrix(SoGetMatrixAction* action) override;
  // Room for nChildren children.
  explicit SoGroup(int nChildren);

  virtual void addChild(SoNode* child);
  virtual void insertChild(SoNode* child, int newChildIndex);
  virtual SoNode* getChild(int index) const;
  // Index of the child, or -1.
  virtual int findChild(const SoNode* child) const;
  virtual int getNumChildren() const;
  virtual void removeChild(int index);
  virtual void removeChild(SoNode* child);
  virtual void removeAllChildren();
  virtual void replaceChild(int index, SoNode* newChild);
  virtual void replaceChild(SoNode* oldChild, SoNode* newChild);

  SoChildList* getChildren() const override;
  void doAction(SoAction* action) override;
  void search(SoSearchAction* action) override;
  void write(SoWriteAction* action) override;
  bool readInstance(SoInput* in, unsigned short flags) override;
  void copyContents(const SoFieldContainer* from, bool copyConnections) override;

 protected:
  ~SoGroup() override;
  // Reads child nodes until the closing brace (ASCII) or the stated count
  // (binary).
  virtual bool readChildren(SoInput* in);
  // The children that `action` (at this node) would write.
  int getNumChildrenToWrite(SoAction* action) const;

  // Mutable so that const queries can hand out the list.
  mutable SoChildList children;
};
