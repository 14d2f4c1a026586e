#pragma once
#include <Orvex/fields/SoMFColor.h>
#include <Orvex/nodes/SoSubNode.h>

// Diffuse colours of the shapes that follow, without lighting terms.
class SoBaseColor : public SoNode {
  SO_NODE_HEADER(SoBaseColor);

 public:
  SoMFColor rgb;

  SoBaseColor();
  void doAction(SoAction* action) override;

 protected:
  ~SoBaseColor() override;
};
