#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFVec3f.h>

// Makes 3D vectors from their components.
// Inputs of different lengths give as many values as the longest; the
// shorter ones repeat their last value.
class SoComposeVec3f : public SoEngine {
  SO_ENGINE_HEADER(SoComposeVec3f);

 public:
  SoMFFloat x;
  SoMFFloat y;
  SoMFFloat z;
  SoEngineOutput vector;  // SoMFVec3f

  SoComposeVec3f();

 protected:
  ~SoComposeVec3f() override;
  void evaluate() override;
};
