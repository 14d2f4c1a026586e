#pragma once
#include <Orvex/fields/SoSFInt32.h>
#include <Orvex/nodes/SoSubNode.h>
#include <Orvex/nodes/SoVertexShape.h>

// Base of the vertex shapes that use consecutive coordinates from startIndex
// on.
class SoNonIndexedShape : public SoVertexShape {
  SO_NODE_ABSTRACT_HEADER(SoNonIndexedShape);

 public:
  SoSFInt32 startIndex;


 protected:
  SoNonIndexedShape();
  ~SoNonIndexedShape() override;
};
