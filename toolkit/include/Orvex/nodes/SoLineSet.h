#pragma once
#include <Orvex/fields/SoMFInt32.h>
#include <Orvex/nodes/SoNonIndexedShape.h>
#include <Orvex/nodes/SoSubNode.h>

// Polylines, numVertices vertices each (-1: the remaining coordinates).
class SoLineSet : public SoNonIndexedShape {
  SO_NODE_HEADER(SoLineSet);

 public:
  SoMFInt32 numVertices;

  SoLineSet();
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;

 protected:
  ~SoLineSet() override;
  void generatePrimitives(SoAction* action) override;
};
