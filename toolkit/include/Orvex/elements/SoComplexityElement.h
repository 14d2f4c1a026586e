#pragma once
#include <Orvex/elements/SoFloatElement.h>

// How finely shapes are tessellated, from 0 (coarsest) to 1 (finest).
class SoComplexityElement : public SoFloatElement {
  SO_ELEMENT_HEADER(SoComplexityElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, float value);
  static float get(SoState* state);
  static float getDefault() { return 0.5f; }

 protected:
  ~SoComplexityElement() override;
};
