#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFVec2f.h>

// Splits 2D vectors into their components.
class SoDecomposeVec2f : public SoEngine {
  SO_ENGINE_HEADER(SoDecomposeVec2f);

 public:
  SoMFVec2f vector;
  SoEngineOutput x;  // SoMFFloat
  SoEngineOutput y;  // SoMFFloat

  SoDecomposeVec2f();

 protected:
  ~SoDecomposeVec2f() override;
  void evaluate() override;
};
