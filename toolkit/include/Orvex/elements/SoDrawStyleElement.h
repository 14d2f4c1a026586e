#pragma once
#include <Orvex/elements/SoInt32Element.h>

// How shapes are drawn: filled, as lines, as points or not at all.
class SoDrawStyleElement : public SoInt32Element {
  SO_ELEMENT_HEADER(SoDrawStyleElement);

 public:
  enum Style { FILLED, LINES, POINTS, INVISIBLE };

  void init(SoState* state) override;
  static void set(SoState* state, Style value);
  static Style get(SoState* state);
  static Style getDefault() { return FILLED; }

 protected:
  ~SoDrawStyleElement() override;
};
