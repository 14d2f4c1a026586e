#pragma once
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/nodes/SoSubNode.h>

// How materials are bound to the shapes that follow.
class SoMaterialBinding : public SoNode {
  SO_NODE_HEADER(SoMaterialBinding);

 public:
  enum Binding { OVERALL = 2, PER_PART = 3, PER_PART_INDEXED = 4, PER_FACE = 5, PER_FACE_INDEXED = 6, PER_VERTEX = 7, PER_VERTEX_INDEXED = 8 };

  SoSFEnum value;

  SoMaterialBinding();
  void doAction(SoAction* action) override;

 protected:
  ~SoMaterialBinding() override;
};
