#pragma once
#include <Orvex/elements/SoFloatElement.h>

// The width of lines, in pixels (0: the device's default).
class SoLineWidthElement : public SoFloatElement {
  SO_ELEMENT_HEADER(SoLineWidthElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, float value);
  static float get(SoState* state);
  static float getDefault() { return 0.0f; }

 protected:
  ~SoLineWidthElement() override;
};
