#pragma once
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoSubNode.h>

// A box centred on the origin.
class SoCube : public SoShape {
  SO_NODE_HEADER(SoCube);

 public:
  SoSFFloat width;
  SoSFFloat height;
  SoSFFloat depth;

  SoCube();

 protected:
  ~SoCube() override;
};
