#pragma once
#include <Orvex/engines/SoInterpolate.h>
#include <Orvex/fields/SoMFRotation.h>

// Interpolates rotations, along the shortest arc; output is a SoMFRotation.
class SoInterpolateRotation : public SoInterpolate {
  SO_ENGINE_HEADER(SoInterpolateRotation);

 public:
  SoMFRotation input0;
  SoMFRotation input1;

  SoInterpolateRotation();

 protected:
  ~SoInterpolateRotation() override;
  void evaluate() override;
};
