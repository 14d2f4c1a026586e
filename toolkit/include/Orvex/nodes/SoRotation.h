#pragma once
#include <Orvex/fields/SoSFRotation.h>
#include <Orvex/nodes/SoSubNode.h>
#include <Orvex/nodes/SoTransformation.h>

// A rotation.
class SoRotation : public SoTransformation {
  SO_NODE_HEADER(SoRotation);

 public:
  SoSFRotation rotation;

  SoRotation();
  void doAction(SoAction* action) override;
  void getMatrix(SoGetMatrixAction* action) override;

 protected:
  ~SoRotation() override;
};
