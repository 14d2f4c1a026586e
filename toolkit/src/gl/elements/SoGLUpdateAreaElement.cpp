#include <Orvex/elements/SoGLUpdateAreaElement.h>

SO_ELEMENT_SOURCE(SoGLUpdateAreaElement)

void SoGLUpdateAreaElement::initClass() { SO_ELEMENT_INIT_CLASS(SoGLUpdateAreaElement, SoElement); }

SoGLUpdateAreaElement::SoGLUpdateAreaElement() { SO_ELEMENT_CONSTRUCTOR(SoGLUpdateAreaElement); }

SoGLUpdateAreaElement::~SoGLUpdateAreaElement() = default;

void SoGLUpdateAreaElement::init(SoState*) {
  m_origin = getDefaultOrigin();
  m_size = getDefaultSize();
}

void SoGLUpdateAreaElement::push(SoState*) {
  if (const auto* below = static_cast<const SoGLUpdateAreaElement*>(getNextInStack())) {
    m_origin = below->m_origin;
    m_size = below->m_size;
  }
}

bool SoGLUpdateAreaElement::matches(const SoElement* elt) const {
  if (!elt || elt->getTypeId() != getTypeId()) return false;
  const auto* other = static_cast<const SoGLUpdateAreaElement*>(elt);
  return other->m_origin == m_origin && other->m_size == m_size;
}

SoElement* SoGLUpdateAreaElement::copyMatchInfo() const {
  auto* copy = static_cast<SoGLUpdateAreaElement*>(getTypeId().createInstance());
  if (copy) {
    copy->m_origin = m_origin;
    copy->m_size = m_size;
  }
  return copy;
}

void SoGLUpdateAreaElement::set(SoState* state, const SbVec2f& origin, const SbVec2f& size) {
  if (auto* elt = static_cast<SoGLUpdateAreaElement*>(getElement(state, getClassStackIndex()))) {
    elt->m_origin = origin;
    elt->m_size = size;
  }
}

bool SoGLUpdateAreaElement::get(SoState* state, SbVec2f& origin, SbVec2f& size) {
  const auto* elt = static_cast<const SoGLUpdateAreaElement*>(getConstElement(state, getClassStackIndex()));
  origin = elt ? elt->m_origin : getDefaultOrigin();
  size = elt ? elt->m_size : getDefaultSize();
  return origin != getDefaultOrigin() || size != getDefaultSize();
}
