#pragma once
#include <Orvex/engines/SoInterpolate.h>
#include <Orvex/fields/SoMFFloat.h>

// Interpolates floats, linearly; output is a SoMFFloat.
class SoInterpolateFloat : public SoInterpolate {
  SO_ENGINE_HEADER(SoInterpolateFloat);

 public:
  SoMFFloat input0;
  SoMFFloat input1;

  SoInterpolateFloat();

 protected:
  ~SoInterpolateFloat() override;
  void evaluate() override;
};
