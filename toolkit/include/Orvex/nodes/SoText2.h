#pragma once
#include <Orvex/fields/SoMFString.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoShape.h>
#include <Orvex/nodes/SoSubNode.h>

// Text drawn parallel to the screen at the pixel size of the current font,
// one line per string, its origin (the left end of the first baseline,
// for LEFT justification) at the object-space origin. Lines are
// `spacing` times the font size apart. Its box and pick area are the
// rectangle the text covers on the screen, carried back into object space
// at the depth of the origin.
class SoText2 : public SoShape {
  SO_NODE_HEADER(SoText2);

 public:
  enum Justification { LEFT = 1, RIGHT = 2, CENTER = 3 };

  SoMFString string;
  SoSFFloat spacing;
  SoSFEnum justification;

  SoText2();
  void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) override;

 protected:
  ~SoText2() override;
  // One rectangle (two triangles) per line, where the line shows.
  void generatePrimitives(SoAction* action) override;
};
