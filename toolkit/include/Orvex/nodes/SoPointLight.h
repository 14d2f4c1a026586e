#pragma once
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/nodes/SoLight.h>
#include <Orvex/nodes/SoSubNode.h>

// A light shining from a point in every direction.
class SoPointLight : public SoLight {
  SO_NODE_HEADER(SoPointLight);

 public:
  SoSFVec3f location;

  SoPointLight();

 protected:
  ~SoPointLight() override;
};
