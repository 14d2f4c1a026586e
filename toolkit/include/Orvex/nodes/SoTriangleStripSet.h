#pragma once
#include <Orvex/fields/SoMFInt32.h>
#include <Orvex/nodes/SoNonIndexedShape.h>
#include <Orvex/nodes/SoSubNode.h>

// Triangle strips, numVertices vertices each (-1: the remaining coordinates).
class SoTriangleStripSet : public SoNonIndexedShape {
  SO_NODE_HEADER(SoTriangleStripSet);

 public:
  SoMFInt32 numVertices;

  SoTriangleStripSet();
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;

 protected:
  ~SoTriangleStripSet() override;
  void generatePrimitives(SoAction* action) override;
};
