#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFVec3f.h>

// Splits 3D vectors into their components.
class SoDecomposeVec3f : public SoEngine {
  SO_ENGINE_HEADER(SoDecomposeVec3f);

 public:
  SoMFVec3f vector;
  SoEngineOutput x;  // SoMFFloat
  SoEngineOutput y;  // SoMFFloat
  SoEngineOutput z;  // SoMFFloat

  SoDecomposeVec3f();

 protected:
  ~SoDecomposeVec3f() override;
  void evaluate() override;
};
