#pragma once
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoSubNode.h>

// A sphere centred on the origin.
class SoSphere : public SoShape {
  SO_NODE_HEADER(SoSphere);

 public:
  SoSFFloat radius;

  SoSphere();

 protected:
  ~SoSphere() override;
};
