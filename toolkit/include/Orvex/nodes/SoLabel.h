#pragma once
#include <Orvex/fields/SoSFName.h>
#include <Orvex/nodes/SoSubNode.h>

// A label kept in the scene; it changes nothing.
class SoLabel : public SoNode {
  SO_NODE_HEADER(SoLabel);

 public:
  SoSFName label;

  SoLabel();
  bool affectsState() const override;

 protected:
  ~SoLabel() override;
};
