#pragma once
#include <Orvex/fields/SoSFBool.h>
#include <Orvex/fields/SoSFColor.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoSubNode.h>

// Base of the light sources.
class SoLight : public SoNode {
  SO_NODE_ABSTRACT_HEADER(SoLight);

 public:
  SoSFBool on;
  SoSFFloat intensity;
  SoSFColor color;


 protected:
  SoLight();
  ~SoLight() override;
};
