#pragma once
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/nodes/SoSubNode.h>
#include <Orvex/nodes/SoTransformation.h>

// A scale.
class SoScale : public SoTransformation {
  SO_NODE_HEADER(SoScale);

 public:
  SoSFVec3f scaleFactor;

  SoScale();
  void doAction(SoAction* action) override;
  void getMatrix(SoGetMatrixAction* action) override;

 protected:
  ~SoScale() override;
};
