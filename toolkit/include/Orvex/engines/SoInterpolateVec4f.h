#pragma once
#include <Orvex/engines/SoInterpolate.h>
#include <Orvex/fields/SoMFVec4f.h>

// Interpolates 4D vectors, linearly; output is a SoMFVec4f.
class SoInterpolateVec4f : public SoInterpolate {
  SO_ENGINE_HEADER(SoInterpolateVec4f);

 public:
  SoMFVec4f input0;
  SoMFVec4f input1;

  SoInterpolateVec4f();

 protected:
  ~SoInterpolateVec4f() override;
  void evaluate() override;
};
