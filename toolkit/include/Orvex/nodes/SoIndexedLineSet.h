#pragma once
#include <Orvex/nodes/SoIndexedShape.h>
#include <Orvex/nodes/SoSubNode.h>

// Polylines through indexed coordinates.
class SoIndexedLineSet : public SoIndexedShape {
  SO_NODE_HEADER(SoIndexedLineSet);

 public:
  SoIndexedLineSet();

 protected:
  ~SoIndexedLineSet() override;
};
