#pragma once
#include <Orvex/elements/SoFloatElement.h>

// The size of points, in pixels (0: the device's default).
class SoPointSizeElement : public SoFloatElement {
  SO_ELEMENT_HEADER(SoPointSizeElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, float value);
  static float get(SoState* state);
  static float getDefault() { return 0.0f; }

 protected:
  ~SoPointSizeElement() override;
};
