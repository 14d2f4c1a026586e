#pragma once
#include <Orvex/fields/SoMFString.h>
#include <Orvex/fields/SoSFBitMask.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoSubNode.h>

// Text as geometry in the plane z = 0, the glyph outlines of the current
// font at its size (object units per em), one line per string, the first
// baseline on the x axis. FRONT faces +z; BACK lies a fifth of the font
// size behind, facing -z; SIDES join the two along the outlines. Lines are
// `spacing` times the font size apart. Texture coordinates are the
// position in ems (s right, t up from the first baseline's origin); with a
// material binding other than OVERALL the front takes material 0, the
// sides 1 and the back 2. Curves are cut more finely with more complexity.
class SoText3 : public SoShape {
  SO_NODE_HEADER(SoText3);

 public:
  enum Justification { LEFT = 1, RIGHT = 2, CENTER = 3 };
  enum Part { FRONT = 1, SIDES = 2, BACK = 4, ALL = 7 };

  SoMFString string;
  SoSFFloat spacing;
  SoSFEnum justification;
  SoSFBitMask parts;

  SoText3();
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;

 protected:
  ~SoText3() override;
  void generatePrimitives(SoAction* action) override;
};
