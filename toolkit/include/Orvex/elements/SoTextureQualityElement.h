#pragma once
#include <Orvex/elements/SoFloatElement.h>

// How good texturing should look, from 0 (fastest) to 1 (best).
class SoTextureQualityElement : public SoFloatElement {
  SO_ELEMENT_HEADER(SoTextureQualityElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, float value);
  static float get(SoState* state);
  static float getDefault() { return 0.5f; }

 protected:
  ~SoTextureQualityElement() override;
};
