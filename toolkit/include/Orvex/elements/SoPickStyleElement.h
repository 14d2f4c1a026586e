#pragma once
#include <Orvex/elements/SoInt32Element.h>

// How shapes are picked: by their geometry, by their bounding box, or not
// at all.
class SoPickStyleElement : public SoInt32Element {
  SO_ELEMENT_HEADER(SoPickStyleElement);

 public:
  enum Style { SHAPE, BOUNDING_BOX, UNPICKABLE };

  void init(SoState* state) override;
  static void set(SoState* state, Style value);
  static Style get(SoState* state);
  static Style getDefault() { return SHAPE; }

 protected:
  ~SoPickStyleElement() override;
};
