#pragma once
#include <Orvex/elements/SoFloatElement.h>

// The angle (radians) below which the edge between two faces is smoothed
// when normals are generated.
class SoCreaseAngleElement : public SoFloatElement {
  SO_ELEMENT_HEADER(SoCreaseAngleElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, float value);
  static float get(SoState* state);
  static float getDefault() { return 0.0f; }

 protected:
  ~SoCreaseAngleElement() override;
};
