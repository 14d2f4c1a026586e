#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFMatrix.h>
#include <Orvex/fields/SoMFRotation.h>
#include <Orvex/fields/SoMFVec3f.h>

// Splits transformation matrices into the parts SoTransform uses (about
// the given centers).
// Inputs of different lengths give as many values as the longest; the
// shorter ones repeat their last value.
class SoDecomposeMatrix : public SoEngine {
  SO_ENGINE_HEADER(SoDecomposeMatrix);

 public:
  SoMFMatrix matrix;
  SoMFVec3f center;
  SoEngineOutput translation;  // SoMFVec3f
  SoEngineOutput rotation;  // SoMFRotation
  SoEngineOutput scaleFactor;  // SoMFVec3f
  SoEngineOutput scaleOrientation;  // SoMFRotation

  SoDecomposeMatrix();

 protected:
  ~SoDecomposeMatrix() override;
  void evaluate() override;
};
