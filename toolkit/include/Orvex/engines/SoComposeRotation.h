#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFRotation.h>
#include <Orvex/fields/SoMFVec3f.h>

// Makes rotations from axes and angles (radians).
// Inputs of different lengths give as many values as the longest; the
// shorter ones repeat their last value.
class SoComposeRotation : public SoEngine {
  SO_ENGINE_HEADER(SoComposeRotation);

 public:
  SoMFVec3f axis;
  SoMFFloat angle;
  SoEngineOutput rotation;  // SoMFRotation

  SoComposeRotation();

 protected:
  ~SoComposeRotation() override;
  void evaluate() override;
};
