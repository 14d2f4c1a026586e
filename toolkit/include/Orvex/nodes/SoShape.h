#pragma once
#include <Orvex/nodes/SoSubNode.h>

// Base of the shapes.
class SoShape : public SoNode {
  SO_NODE_ABSTRACT_HEADER(SoShape);

 public:
  bool affectsState() const override;

 protected:
  SoShape();
  ~SoShape() override;
};
