#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFMatrix.h>
#include <Orvex/fields/SoMFRotation.h>
#include <Orvex/fields/SoMFVec3f.h>

// Makes transformation matrices the way SoTransform composes its fields.
// Inputs of different lengths give as many values as the longest; the
// shorter ones repeat their last value.
class SoComposeMatrix : public SoEngine {
  SO_ENGINE_HEADER(SoComposeMatrix);

 public:
  SoMFVec3f translation;
  SoMFRotation rotation;
  SoMFVec3f scaleFactor;
  SoMFRotation scaleOrientation;
  SoMFVec3f center;
  SoEngineOutput matrix;  // SoMFMatrix

  SoComposeMatrix();

 protected:
  ~SoComposeMatrix() override;
  void evaluate() override;
};
