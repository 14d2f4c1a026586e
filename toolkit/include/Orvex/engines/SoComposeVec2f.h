#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFVec2f.h>

// Makes 2D vectors from their components.
// Inputs of different lengths give as many values as the longest; the
// shorter ones repeat their last value.
class SoComposeVec2f : public SoEngine {
  SO_ENGINE_HEADER(SoComposeVec2f);

 public:
  SoMFFloat x;
  SoMFFloat y;
  SoEngineOutput vector;  // SoMFVec2f

  SoComposeVec2f();

 protected:
  ~SoComposeVec2f() override;
  void evaluate() override;
};
