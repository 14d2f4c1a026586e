// The bases of replaced and accumulated elements.

#include <Orvex/elements/SoAccumulatedElement.h>
#include <Orvex/elements/SoReplacedElement.h>
#include <Orvex/nodes/SoNode.h>

#include <cinttypes>

// ---- SoReplacedElement --------------------------------------------------------------

SO_ELEMENT_ABSTRACT_SOURCE(SoReplacedElement)

SoReplacedElement::SoReplacedElement() = default;
SoReplacedElement::~SoReplacedElement() = default;

void SoReplacedElement::initClass() { SO_ELEMENT_INIT_ABSTRACT_CLASS(SoReplacedElement, SoElement); }

void SoReplacedElement::init(SoState*) { nodeId = 0; }

bool SoReplacedElement::matches(const SoElement* elt) const {
  return elt && elt->getTypeId() == getTypeId() && static_cast<const SoReplacedElement*>(elt)->nodeId == nodeId;
}

SoElement* SoReplacedElement::copyMatchInfo() const {
  auto* copy = static_cast<SoReplacedElement*>(getTypeId().createInstance());
  if (copy) copy->nodeId = nodeId;
  return copy;
}

void SoReplacedElement::print(FILE* fp) const {
  SoElement::print(fp);
  std::fprintf(fp, "    set by node %" PRIu64 "\n", nodeId);
}

SoElement* SoReplacedElement::getElement(SoState* state, int stackIndex, SoNode* node) {
  auto* elt = static_cast<SoReplacedElement*>(SoElement::getElement(state, stackIndex));
  if (elt) elt->nodeId = node ? node->getNodeId() : 0;
  return elt;
}

// ---- SoAccumulatedElement -----------------------------------------------------------

SO_ELEMENT_ABSTRACT_SOURCE(SoAccumulatedElement)

SoAccumulatedElement::SoAccumulatedElement() = default;
SoAccumulatedElement::~SoAccumulatedElement() = default;

void SoAccumulatedElement::initClass() { SO_ELEMENT_INIT_ABSTRACT_CLASS(SoAccumulatedElement, SoElement); }

void SoAccumulatedElement::init(SoState*) { nodeIds.clear(); }

void SoAccumulatedElement::push(SoState*) {
  if (const auto* below = static_cast<const SoAccumulatedElement*>(getNextInStack())) nodeIds = below->nodeIds;
}

bool SoAccumulatedElement::matches(const SoElement* elt) const {
  return elt && elt->getTypeId() == getTypeId() && static_cast<const SoAccumulatedElement*>(elt)->nodeIds == nodeIds;
}

SoElement* SoAccumulatedElement::copyMatchInfo() const {
  auto* copy = static_cast<SoAccumulatedElement*>(getTypeId().createInstance());
  if (copy) copy->nodeIds = nodeIds;
  return copy;
}

void SoAccumulatedElement::print(FILE* fp) const {
  SoElement::print(fp);
  std::fprintf(fp, "    %zu contributing nodes\n", nodeIds.size());
}

void SoAccumulatedElement::addNodeId(const SoNode* node) {
  if (node) nodeIds.push_back(node->getNodeId());
}

void SoAccumulatedElement::setNodeId(const SoNode* node) {
  nodeIds.clear();
  addNodeId(node);
}
