#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFVec4f.h>

// Splits 4D vectors into their components.
class SoDecomposeVec4f : public SoEngine {
  SO_ENGINE_HEADER(SoDecomposeVec4f);

 public:
  SoMFVec4f vector;
  SoEngineOutput x;  // SoMFFloat
  SoEngineOutput y;  // SoMFFloat
  SoEngineOutput z;  // SoMFFloat
  SoEngineOutput w;  // SoMFFloat

  SoDecomposeVec4f();

 protected:
  ~SoDecomposeVec4f() override;
  void evaluate() override;
};
