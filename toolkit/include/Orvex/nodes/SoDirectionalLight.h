#pragma once
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/nodes/SoLight.h>
#include <Orvex/nodes/SoSubNode.h>

// A light from far away in one direction.
class SoDirectionalLight : public SoLight {
  SO_NODE_HEADER(SoDirectionalLight);

 public:
  SoSFVec3f direction;

  SoDirectionalLight();

 protected:
  ~SoDirectionalLight() override;
};
