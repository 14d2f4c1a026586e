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

 protected:
  ~SoTriangleStripSet() override;
};
