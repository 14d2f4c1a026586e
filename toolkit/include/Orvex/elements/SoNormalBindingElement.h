#pragma once
#include <Orvex/elements/SoInt32Element.h>

// How the current normals map onto the parts, faces or vertices of shapes.
class SoNormalBindingElement : public SoInt32Element {
  SO_ELEMENT_HEADER(SoNormalBindingElement);

 public:
  enum Binding {
    OVERALL = 2,
    PER_PART = 3,
    PER_PART_INDEXED = 4,
    PER_FACE = 5,
    PER_FACE_INDEXED = 6,
    PER_VERTEX = 7,
    PER_VERTEX_INDEXED = 8
  };

  void init(SoState* state) override;
  static void set(SoState* state, Binding value);
  static Binding get(SoState* state);
  static Binding getDefault() { return PER_VERTEX_INDEXED; }

 protected:
  ~SoNormalBindingElement() override;
};
