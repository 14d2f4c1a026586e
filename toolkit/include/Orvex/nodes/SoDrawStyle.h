#pragma once
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFUShort.h>
#include <Orvex/nodes/SoSubNode.h>

// How the shapes that follow are drawn: filled, as lines, as points, or not at
// all.
class SoDrawStyle : public SoNode {
  SO_NODE_HEADER(SoDrawStyle);

 public:
  enum Style { FILLED = 0, LINES = 1, POINTS = 2, INVISIBLE = 3 };

  SoSFEnum style;
  SoSFFloat pointSize;
  SoSFFloat lineWidth;
  SoSFUShort linePattern;

  SoDrawStyle();
  void doAction(SoAction* action) override;

 protected:
  ~SoDrawStyle() override;
};
