#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFRotation.h>
#include <Orvex/fields/SoMFVec3f.h>

// Makes the rotations that turn each `from` direction onto its `to`.
// Inputs of different lengths give as many values as the longest; the
// shorter ones repeat their last value.
class SoComposeRotationFromTo : public SoEngine {
  SO_ENGINE_HEADER(SoComposeRotationFromTo);

 public:
  SoMFVec3f from;
  SoMFVec3f to;
  SoEngineOutput rotation;  // SoMFRotation

  SoComposeRotationFromTo();

 protected:
  ~SoComposeRotationFromTo() override;
  void evaluate() override;
};
