#pragma once
#include <Orvex/nodes/SoSubNode.h>

// Base of the nodes that change the current transformation.
class SoTransformation : public SoNode {
  SO_NODE_ABSTRACT_HEADER(SoTransformation);

 public:

 protected:
  SoTransformation();
  ~SoTransformation() override;
};
