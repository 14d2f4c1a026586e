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
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;
  // Picks the exact sphere, not its tessellation.
  void rayPick(SoRayPickAction* action) override;

 protected:
  ~SoSphere() override;
  void generatePrimitives(SoAction* action) override;
};
