#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFVec4f.h>

// Makes 4D vectors from their components.
// Inputs of different lengths give as many values as the longest; the
// shorter ones repeat their last value.
class SoComposeVec4f : public SoEngine {
  SO_ENGINE_HEADER(SoComposeVec4f);

 public:
  SoMFFloat x;
  SoMFFloat y;
  SoMFFloat z;
  SoMFFloat w;
  SoEngineOutput vector;  // SoMFVec4f

  SoComposeVec4f();

 protected:
  ~SoComposeVec4f() override;
  void evaluate() override;
};
