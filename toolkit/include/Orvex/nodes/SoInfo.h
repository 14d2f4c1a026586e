#pragma once
#include <Orvex/fields/SoSFString.h>
#include <Orvex/nodes/SoSubNode.h>

// Text kept in the scene (notes, credits); it changes nothing.
class SoInfo : public SoNode {
  SO_NODE_HEADER(SoInfo);

 public:
  SoSFString string;

  SoInfo();
  bool affectsState() const override;

 protected:
  ~SoInfo() override;
};
