#pragma once
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFName.h>
#include <Orvex/nodes/SoSubNode.h>

// The font of the text nodes that follow. The name is a family, optionally
// with a style after a colon ("DejaVu Sans", "DejaVu Serif:Bold",
// "Courier"); a name no installed font matches gives DejaVu Sans. The size
// is in pixels for screen-aligned text and in object units for 3D text.
class SoFont : public SoNode {
  SO_NODE_HEADER(SoFont);

 public:
  SoSFName name;
  SoSFFloat size;

  SoFont();
  void doAction(SoAction* action) override;

 protected:
  ~SoFont() override;
};
