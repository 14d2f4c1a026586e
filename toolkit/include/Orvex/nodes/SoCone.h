#pragma once
#include <Orvex/fields/SoSFBitMask.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoSubNode.h>

// A cone along the y axis, centred on the origin, its apex up.
class SoCone : public SoShape {
  SO_NODE_HEADER(SoCone);

 public:
  enum PartType { SIDES = 1, BOTTOM = 2, ALL = 3 };

  SoSFBitMask parts;
  SoSFFloat bottomRadius;
  SoSFFloat height;

  SoCone();
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;
  // Picks the exact cone, not its tessellation.
  void rayPick(SoRayPickAction* action) override;
  void addPart(PartType part);
  void removePart(PartType part);
  bool hasPart(PartType part) const;

 protected:
  ~SoCone() override;
  void generatePrimitives(SoAction* action) override;
};
