#pragma once
#include <Orvex/nodes/SoIndexedShape.h>
#include <Orvex/nodes/SoSubNode.h>

// Polylines through indexed coordinates.
class SoIndexedLineSet : public SoIndexedShape {
  SO_NODE_HEADER(SoIndexedLineSet);

 public:
  SoIndexedLineSet();
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;

 protected:
  ~SoIndexedLineSet() override;
  void generatePrimitives(SoAction* action) override;
};
