#pragma once
#include <Orvex/elements/SoFloatElement.h>

// The size of the current font (points, or object units for 3D text).
class SoFontSizeElement : public SoFloatElement {
  SO_ELEMENT_HEADER(SoFontSizeElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, float value);
  static float get(SoState* state);
  static float getDefault() { return 10.0f; }

 protected:
  ~SoFontSizeElement() override;
};
