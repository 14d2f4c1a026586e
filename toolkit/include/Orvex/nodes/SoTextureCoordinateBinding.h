#pragma once
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/nodes/SoSubNode.h>

// How texture coordinates are bound to the vertices of the shapes that
// follow: in order (PER_VERTEX) or through the shapes' texture coordinate
// indices (PER_VERTEX_INDEXED).
class SoTextureCoordinateBinding : public SoNode {
  SO_NODE_HEADER(SoTextureCoordinateBinding);

 public:
  enum Binding { PER_VERTEX = 7, PER_VERTEX_INDEXED = 8 };

  SoSFEnum value;

  SoTextureCoordinateBinding();
  void doAction(SoAction* action) override;

 protected:
  ~SoTextureCoordinateBinding() override;
};
