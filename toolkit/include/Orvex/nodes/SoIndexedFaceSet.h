#pragma once
#include <Orvex/nodes/SoIndexedShape.h>
#include <Orvex/nodes/SoSubNode.h>

// Polygons through indexed coordinates.
class SoIndexedFaceSet : public SoIndexedShape {
  SO_NODE_HEADER(SoIndexedFaceSet);

 public:
  SoIndexedFaceSet();

 protected:
  ~SoIndexedFaceSet() override;
};
