#pragma once
#include <Orvex/elements/SoSubElement.h>

#include <cstdint>
#include <vector>

class SoNode;

// Base of elements whose value nodes combine with what is already there (a
// transformation multiplied into the current one). The element keeps the
// ids of every node that contributed since the value was last replaced:
// two elements match when the same nodes made them.
class SoAccumulatedElement : public SoElement {
  SO_ELEMENT_ABSTRACT_HEADER(SoAccumulatedElement);

 public:
  void init(SoState* state) override;
  // Starts with the contributors of the element beneath.
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;
  void print(FILE* fp) const override;
  const std::vector<uint64_t>& getNodeIds() const { return nodeIds; }

 protected:
  ~SoAccumulatedElement() override;
  void clearNodeIds() { nodeIds.clear(); }
  // Adds a contributor.
  void addNodeId(const SoNode* node);
  // The node replaced the value: it is the only contributor.
  void setNodeId(const SoNode* node);

  std::vector<uint64_t> nodeIds;
};
