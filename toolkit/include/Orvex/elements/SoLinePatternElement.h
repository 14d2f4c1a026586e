#pragma once
#include <Orvex/elements/SoInt32Element.h>

// The 16-bit stipple pattern of lines (0xFFFF: solid).
class SoLinePatternElement : public SoInt32Element {
  SO_ELEMENT_HEADER(SoLinePatternElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, int32_t value);
  static int32_t get(SoState* state);
  static int32_t getDefault() { return 0xFFFF; }

 protected:
  ~SoLinePatternElement() override;
};
