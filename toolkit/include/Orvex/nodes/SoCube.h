#pragma once
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoSubNode.h>

// A box centred on the origin.
class SoCube : public SoShape {
  SO_NODE_HEADER(SoCube);

 public:
  SoSFFloat width;
  SoSFFloat height;
  SoSFFloat depth;

  SoCube();
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;

 protected:
  ~SoCube() override;
  void generatePrimitives(SoAction* action) override;
  // The detail of each face names it (0 front, 1 back, 2 left, 3 right, 4 top, 5 bottom).
  SoDetail* createTriangleDetail(SoRayPickAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2,
                                 const SoPrimitiveVertex* v3, SoPickedPoint* pp) override;
};
