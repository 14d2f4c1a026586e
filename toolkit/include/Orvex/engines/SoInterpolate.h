#pragma once
#include <Orvex/engines/SoSubEngine.h>
#include <Orvex/fields/SoSFFloat.h>

// Base of the interpolators: output is input0 at alpha 0 and input1 at
// alpha 1, value by value (the shorter input repeats its last value).
class SoInterpolate : public SoEngine {
  SO_ENGINE_ABSTRACT_HEADER(SoInterpolate);

 public:
  SoSFFloat alpha;
  SoEngineOutput output;

 protected:
  SoInterpolate();
  ~SoInterpolate() override;
};
