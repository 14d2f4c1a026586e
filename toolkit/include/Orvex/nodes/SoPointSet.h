#pragma once
#include <Orvex/fields/SoSFInt32.h>
#include <Orvex/nodes/SoNonIndexedShape.h>
#include <Orvex/nodes/SoSubNode.h>

// Points; numPoints -1 uses every remaining coordinate.
class SoPointSet : public SoNonIndexedShape {
  SO_NODE_HEADER(SoPointSet);

 public:
  SoSFInt32 numPoints;

  SoPointSet();
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;

 protected:
  ~SoPointSet() override;
  void generatePrimitives(SoAction* action) override;
};
