#pragma once
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/nodes/SoSubNode.h>

// The lighting model of the shapes that follow.
class SoLightModel : public SoNode {
  SO_NODE_HEADER(SoLightModel);

 public:
  enum Model { BASE_COLOR = 0, PHONG = 1 };

  SoSFEnum model;

  SoLightModel();
  void doAction(SoAction* action) override;

 protected:
  ~SoLightModel() override;
};
