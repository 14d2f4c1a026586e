#pragma once
#include <Orvex/SbRotation.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoSubNode.h>
#include <Orvex/nodes/SoTransformation.h>

// A rotation about one of the principal axes.
class SoRotationXYZ : public SoTransformation {
  SO_NODE_HEADER(SoRotationXYZ);

 public:
  enum Axis { X = 0, Y = 1, Z = 2 };

  SoSFEnum axis;
  SoSFFloat angle;

  SoRotationXYZ();
  void doAction(SoAction* action) override;
  void getMatrix(SoGetMatrixAction* action) override;
  // The rotation the fields describe.
  SbRotation getRotation() const;

 protected:
  ~SoRotationXYZ() override;
};
