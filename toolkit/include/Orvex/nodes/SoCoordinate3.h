#pragma once
#include <Orvex/fields/SoMFVec3f.h>
#include <Orvex/nodes/SoSubNode.h>

// The coordinates the vertex shapes that follow use.
class SoCoordinate3 : public SoNode {
  SO_NODE_HEADER(SoCoordinate3);

 public:
  SoMFVec3f point;

  SoCoordinate3();
  void doAction(SoAction* action) override;

 protected:
  ~SoCoordinate3() override;
};
