#pragma once
#include <Orvex/nodes/SoGroup.h>

// A group that keeps its children's transformations to itself but lets
// every other change of the traversal state out.
class SoTransformSeparator : public SoGroup {
  SO_NODE_HEADER(SoTransformSeparator);

 public:
  SoTransformSeparator();
  explicit SoTransformSeparator(int nChildren);

  void doAction(SoAction* action) override;

 protected:
  ~SoTransformSeparator() override;
};
