#pragma once
#include <Orvex/fields/SoMFInt32.h>
#include <Orvex/nodes/SoSubNode.h>
#include <Orvex/nodes/SoVertexShape.h>

// Base of the vertex shapes that pick coordinates by index; -1 ends a polygon
// or polyline.
class SoIndexedShape : public SoVertexShape {
  SO_NODE_ABSTRACT_HEADER(SoIndexedShape);

 public:
  SoMFInt32 coordIndex;
  SoMFInt32 materialIndex;
  SoMFInt32 normalIndex;
  SoMFInt32 textureCoordIndex;


 protected:
  SoIndexedShape();
  ~SoIndexedShape() override;
};
