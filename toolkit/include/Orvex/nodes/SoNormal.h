#pragma once
#include <Orvex/fields/SoMFVec3f.h>
#include <Orvex/nodes/SoSubNode.h>

// The normals the shapes that follow use.
class SoNormal : public SoNode {
  SO_NODE_HEADER(SoNormal);

 public:
  SoMFVec3f vector;

  SoNormal();
  void doAction(SoAction* action) override;

 protected:
  ~SoNormal() override;
};
