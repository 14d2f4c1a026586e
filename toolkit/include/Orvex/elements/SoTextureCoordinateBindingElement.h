#pragma once
#include <Orvex/elements/SoInt32Element.h>

// How the current texture coordinates map onto the vertices of shapes.
class SoTextureCoordinateBindingElement : public SoInt32Element {
  SO_ELEMENT_HEADER(SoTextureCoordinateBindingElement);

 public:
  enum Binding { PER_VERTEX = 7, PER_VERTEX_INDEXED = 8 };

  void init(SoState* state) override;
  static void set(SoState* state, Binding value);
  static Binding get(SoState* state);
  static Binding getDefault() { return PER_VERTEX_INDEXED; }

 protected:
  ~SoTextureCoordinateBindingElement() override;
};
