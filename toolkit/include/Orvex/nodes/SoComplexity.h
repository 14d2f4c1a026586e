#pragma once
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoSubNode.h>

// How finely the shapes that follow are tessellated.
class SoComplexity : public SoNode {
  SO_NODE_HEADER(SoComplexity);

 public:
  enum Type { OBJECT_SPACE = 0, SCREEN_SPACE = 1, BOUNDING_BOX = 2 };

  SoSFEnum type;
  SoSFFloat value;
  SoSFFloat textureQuality;

  SoComplexity();
  void doAction(SoAction* action) override;

 protected:
  ~SoComplexity() override;
};
