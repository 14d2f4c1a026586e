#pragma once
#include <Orvex/fields/SoMFInt32.h>
#include <Orvex/nodes/SoNonIndexedShape.h>
#include <Orvex/nodes/SoSubNode.h>

// Polygons, numVertices vertices each (-1: the remaining coordinates).
class SoFaceSet : public SoNonIndexedShape {
  SO_NODE_HEADER(SoFaceSet);

 public:
  SoMFInt32 numVertices;

  SoFaceSet();
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;

 protected:
  ~SoFaceSet() override;
  void generatePrimitives(SoAction* action) override;
};
