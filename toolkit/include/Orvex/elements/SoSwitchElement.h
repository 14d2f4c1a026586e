#pragma once
#include <Orvex/elements/SoInt32Element.h>

// The child index that switches inheriting their choice use (what the last
// switch traversed chose).
class SoSwitchElement : public SoInt32Element {
  SO_ELEMENT_HEADER(SoSwitchElement);

 public:
  static void set(SoState* state, int32_t index);
  static int32_t get(SoState* state);
  static int32_t getDefault() { return -1; }
  void init(SoState* state) override;

 protected:
  ~SoSwitchElement() override;
};
