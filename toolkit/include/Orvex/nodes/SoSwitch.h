#pragma once
#include <Orvex/fields/SoSFInt32.h>
#include <Orvex/nodes/SoGroup.h>

// No child, all children, or the one whose index is whichChild.
#define SO_SWITCH_NONE (-1)
#define SO_SWITCH_INHERIT (-2)
#define SO_SWITCH_ALL (-3)

// A group that traverses one of its children (or none, or all). With
// SO_SWITCH_INHERIT it takes the choice of the last switch traversed before
// it. Searches that look at every node traverse all children.
class SoSwitch : public SoGroup {
  SO_NODE_HEADER(SoSwitch);

 public:
  SoSFInt32 whichChild;

  SoSwitch();
  explicit SoSwitch(int nChildren);

  bool affectsState() const override;
  void doAction(SoAction* action) override;
  // Only the chosen children count.
  void getBoundingBox(SoGetBoundingBoxAction* action) override;
  void getMatrix(SoGetMatrixAction* action) override;
  void search(SoSearchAction* action) override;
  void write(SoWriteAction* action) override;

 protected:
  ~SoSwitch() override;

 private:
  void traverseChildren(SoAction* action);
};
