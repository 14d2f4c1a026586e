#pragma once
#include <Orvex/nodes/SoGroup.h>

// A group that keeps its children's transformations to itself but lets
// every other change of the traversal state out.
class SoTransformSeparator : public SoGroup {
  SO_NODE_HEADER(SoTransformSeparator);

 public:
  SoTransformSeparator();
  // Restores the transformation (and the local box matrix) after the children.
  void getBoundingBox(SoGetBoundingBoxAction* action) override;
  // Off the path its transformations do not reach the tail.
  void getMatrix(SoGetMatrixAction* action) override;
  explicit SoTransformSeparator(int nChildren);

  void doAction(SoAction* action) override;

 protected:
  ~SoTransformSeparator() override;
};
