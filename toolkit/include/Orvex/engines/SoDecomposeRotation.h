#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFRotation.h>
#include <Orvex/fields/SoMFVec3f.h>

// Splits rotations into axes and angles (radians).
class SoDecomposeRotation : public SoEngine {
  SO_ENGINE_HEADER(SoDecomposeRotation);

 public:
  SoMFRotation rotation;
  SoEngineOutput axis;  // SoMFVec3f
  SoEngineOutput angle;  // SoMFFloat

  SoDecomposeRotation();

 protected:
  ~SoDecomposeRotation() override;
  void evaluate() override;
};
