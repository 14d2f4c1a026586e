#pragma once
#include <Orvex/elements/SoFloatElement.h>

// The distance from the current camera to the point it focuses on.
class SoFocalDistanceElement : public SoFloatElement {
  SO_ELEMENT_HEADER(SoFocalDistanceElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, float value);
  static float get(SoState* state);
  static float getDefault() { return 5.0f; }

 protected:
  ~SoFocalDistanceElement() override;
};
