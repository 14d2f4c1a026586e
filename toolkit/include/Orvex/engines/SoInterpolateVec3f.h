#pragma once
#include <Orvex/engines/SoInterpolate.h>
#include <Orvex/fields/SoMFVec3f.h>

// Interpolates 3D vectors, linearly; output is a SoMFVec3f.
class SoInterpolateVec3f : public SoInterpolate {
  SO_ENGINE_HEADER(SoInterpolateVec3f);

 public:
  SoMFVec3f input0;
  SoMFVec3f input1;

  SoInterpolateVec3f();

 protected:
  ~SoInterpolateVec3f() override;
  void evaluate() override;
};
