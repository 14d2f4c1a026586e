#pragma once
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFVec2f.h>
#include <Orvex/nodes/SoSubNode.h>

// A transformation of the texture coordinates of the shapes that follow:
// scaled by scaleFactor and rotated by rotation (radians) about center,
// then translated by translation.
class SoTexture2Transform : public SoNode {
  SO_NODE_HEADER(SoTexture2Transform);

 public:
  SoSFVec2f translation;
  SoSFFloat rotation;
  SoSFVec2f scaleFactor;
  SoSFVec2f center;

  SoTexture2Transform();
  void doAction(SoAction* action) override;

 protected:
  ~SoTexture2Transform() override;
};
