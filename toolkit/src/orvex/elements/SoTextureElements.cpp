// The element holding the current texture image.

#include <Orvex/elements/SoTextureImageElement.h>
#include <Orvex/nodes/SoNode.h>

SO_ELEMENT_SOURCE(SoTextureImageElement)

SoTextureImageElement::SoTextureImageElement() { SO_ELEMENT_CONSTRUCTOR(SoTextureImageElement); }
SoTextureImageElement::~SoTextureImageElement() = default;

void SoTextureImageElement::initClass() { SO_ELEMENT_INIT_CLASS(SoTextureImageElement, SoReplacedElement); }

void SoTextureImageElement::init(SoState* state) {
  SoReplacedElement::init(state);
  texture = Texture();
}

// The node id identifies the texture: the same node unchanged gives the
// same image and parameters.
bool SoTextureImageElement::matches(const SoElement* elt) const {
  return elt && elt->getTypeId() == getTypeId() && static_cast<const SoTextureImageElement*>(elt)->nodeId == nodeId;
}

SoElement* SoTextureImageElement::copyMatchInfo() const {
  auto* copy = static_cast<SoTextureImageElement*>(getTypeId().createInstance());
  if (copy) copy->nodeId = nodeId;
  return copy;
}

void SoTextureImageElement::set(SoState* state, SoNode* node, const Texture& value) {
  if (auto* elt = static_cast<SoTextureImageElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node))) {
    elt->texture = value;
    elt->texture.nodeId = node ? node->getNodeId() : 0;
  }
}

const SoTextureImageElement::Texture& SoTextureImageElement::get(SoState* state) {
  static const Texture none;
  const auto* elt = static_cast<const SoTextureImageElement*>(getConstElement(state, s_classStackIndex));
  return elt ? elt->texture : none;
}

bool SoTextureImageElement::isEnabled(SoState* state) {
  if (s_classStackIndex < 0 || !state->isElementEnabled(s_classStackIndex)) return false;
  const Texture& t = get(state);
  return t.pixels && t.size[0] > 0 && t.size[1] > 0 && t.numComponents >= 1 && t.numComponents <= 4;
}
