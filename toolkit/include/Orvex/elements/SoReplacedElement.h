#pragma once
#include <Orvex/elements/SoSubElement.h>

#include <cstdint>

class SoNode;

// Base of elements whose value a node replaces as a whole (coordinates,
// normals, a camera's view volume). The element remembers the id of the
// node that set it, which is all that caches need to compare: the same node
// in the same state gives the same value.
class SoReplacedElement : public SoElement {
  SO_ELEMENT_ABSTRACT_HEADER(SoReplacedElement);

 public:
  void init(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;
  void print(FILE* fp) const override;
  // Id of the node that set the value (0 for the default).
  uint64_t getNodeId() const { return nodeId; }

 protected:
  ~SoReplacedElement() override;
  // The element to change, recording `node` (which may be null) as its setter.
  static SoElement* getElement(SoState* state, int stackIndex, SoNode* node);

  uint64_t nodeId = 0;
};
