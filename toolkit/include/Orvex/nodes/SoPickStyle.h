#pragma once
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/nodes/SoSubNode.h>

// How the shapes that follow are picked: by their geometry, by their bounding
// box, or not at all.
class SoPickStyle : public SoNode {
  SO_NODE_HEADER(SoPickStyle);

 public:
  enum Style { SHAPE = 0, BOUNDING_BOX = 1, UNPICKABLE = 2 };

  SoSFEnum style;

  SoPickStyle();
  void doAction(SoAction* action) override;

 protected:
  ~SoPickStyle() override;
};
