#pragma once
#include <Orvex/elements/SoInt32Element.h>

// How complexity is read: in object space, relative to the screen size, or
// as drawing bounding boxes only.
class SoComplexityTypeElement : public SoInt32Element {
  SO_ELEMENT_HEADER(SoComplexityTypeElement);

 public:
  enum Type { OBJECT_SPACE, SCREEN_SPACE, BOUNDING_BOX };

  void init(SoState* state) override;
  static void set(SoState* state, Type value);
  static Type get(SoState* state);
  static Type getDefault() { return OBJECT_SPACE; }

 protected:
  ~SoComplexityTypeElement() override;
};
