#pragma once
#include <Orvex/fields/SoMFVec2f.h>
#include <Orvex/nodes/SoSubNode.h>

// The texture coordinates the shapes that follow use.
class SoTextureCoordinate2 : public SoNode {
  SO_NODE_HEADER(SoTextureCoordinate2);

 public:
  SoMFVec2f point;

  SoTextureCoordinate2();
  void doAction(SoAction* action) override;

 protected:
  ~SoTextureCoordinate2() override;
};
