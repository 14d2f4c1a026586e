#pragma once
#include <Orvex/engines/SoInterpolate.h>
#include <Orvex/fields/SoMFVec2f.h>

// Interpolates 2D vectors, linearly; output is a SoMFVec2f.
class SoInterpolateVec2f : public SoInterpolate {
  SO_ENGINE_HEADER(SoInterpolateVec2f);

 public:
  SoMFVec2f input0;
  SoMFVec2f input1;

  SoInterpolateVec2f();

 protected:
  ~SoInterpolateVec2f() override;
  void evaluate() override;
};
