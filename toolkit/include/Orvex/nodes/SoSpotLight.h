#pragma once
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/nodes/SoLight.h>
#include <Orvex/nodes/SoSubNode.h>

// A light shining from a point in a cone around a direction.
class SoSpotLight : public SoLight {
  SO_NODE_HEADER(SoSpotLight);

 public:
  SoSFVec3f location;
  SoSFVec3f direction;
  SoSFFloat dropOffRate;
  SoSFFloat cutOffAngle;

  SoSpotLight();

 protected:
  ~SoSpotLight() override;
};
