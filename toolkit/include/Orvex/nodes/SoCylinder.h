#pragma once
#include <Orvex/fields/SoSFBitMask.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoSubNode.h>

// A cylinder along the y axis, centred on the origin.
class SoCylinder : public SoShape {
  SO_NODE_HEADER(SoCylinder);

 public:
  enum PartType { SIDES = 1, TOP = 2, BOTTOM = 4, ALL = 7 };

  SoSFBitMask parts;
  SoSFFloat radius;
  SoSFFloat height;

  SoCylinder();
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;
  // Picks the exact cylinder, not its tessellation.
  void rayPick(SoRayPickAction* action) override;
  void addPart(PartType part);
  void removePart(PartType part);
  bool hasPart(PartType part) const;

 protected:
  ~SoCylinder() override;
  void generatePrimitives(SoAction* action) override;
};
