// The integer and float element bases and the switch element.

#include <Orvex/elements/SoFloatElement.h>
#include <Orvex/elements/SoInt32Element.h>
#include <Orvex/elements/SoSwitchElement.h>

// ---- SoInt32Element ---------------------------------------------------------------

SO_ELEMENT_ABSTRACT_SOURCE(SoInt32Element)

SoInt32Element::SoInt32Element() = default;
SoInt32Element::~SoInt32Element() = default;

void SoInt32Element::initClass() { SO_ELEMENT_INIT_ABSTRACT_CLASS(SoInt32Element, SoElement); }

void SoInt32Element::set(int stackIndex, SoState* state, int32_t value) {
  if (auto* elt = static_cast<SoInt32Element*>(getElement(state, stackIndex))) elt->setElt(value);
}

int32_t SoInt32Element::get(int stackIndex, SoState* state) {
  const auto* elt = static_cast<const SoInt32Element*>(getConstElement(state, stackIndex));
  return elt ? elt->data : 0;
}

void SoInt32Element::init(SoState*) { data = 0; }

void SoInt32Element::push(SoState*) {
  if (const auto* below = static_cast<const SoInt32Element*>(getNextInStack())) data = below->data;
}

bool SoInt32Element::matches(const SoElement* elt) const {
  return elt && elt->getTypeId() == getTypeId() && static_cast<const SoInt32Element*>(elt)->data == data;
}

SoElement* SoInt32Element::copyMatchInfo() const {
  auto* copy = static_cast<SoInt32Element*>(getTypeId().createInstance());
  if (copy) copy->data = data;
  return copy;
}

void SoInt32Element::print(FILE* fp) const {
  SoElement::print(fp);
  std::fprintf(fp, "    value = %d\n", data);
}

// ---- SoFloatElement ---------------------------------------------------------------

SO_ELEMENT_ABSTRACT_SOURCE(SoFloatElement)

SoFloatElement::SoFloatElement() = default;
SoFloatElement::~SoFloatElement() = default;

void SoFloatElement::initClass() { SO_ELEMENT_INIT_ABSTRACT_CLASS(SoFloatElement, SoElement); }

void SoFloatElement::set(int stackIndex, SoState* state, float value) {
  if (auto* elt = static_cast<SoFloatElement*>(getElement(state, stackIndex))) elt->setElt(value);
}

float SoFloatElement::get(int stackIndex, SoState* state) {
  const auto* elt = static_cast<const SoFloatElement*>(getConstElement(state, stackIndex));
  return elt ? elt->data : 0.0f;
}

void SoFloatElement::init(SoState*) { data = 0; }

void SoFloatElement::push(SoState*) {
  if (const auto* below = static_cast<const SoFloatElement*>(getNextInStack())) data = below->data;
}

bool SoFloatElement::matches(const SoElement* elt) const {
  return elt && elt->getTypeId() == getTypeId() && static_cast<const SoFloatElement*>(elt)->data == data;
}

SoElement* SoFloatElement::copyMatchInfo() const {
  auto* copy = static_cast<SoFloatElement*>(getTypeId().createInstance());
  if (copy) copy->data = data;
  return copy;
}

void SoFloatElement::print(FILE* fp) const {
  SoElement::print(fp);
  std::fprintf(fp, "    value = %g\n", data);
}

// ---- SoSwitchElement --------------------------------------------------------------

SO_ELEMENT_SOURCE(SoSwitchElement)

SoSwitchElement::SoSwitchElement() { SO_ELEMENT_CONSTRUCTOR(SoSwitchElement); }
SoSwitchElement::~SoSwitchElement() = default;

void SoSwitchElement::initClass() { SO_ELEMENT_INIT_CLASS(SoSwitchElement, SoInt32Element); }

void SoSwitchElement::set(SoState* state, int32_t index) { SoInt32Element::set(s_classStackIndex, state, index); }
int32_t SoSwitchElement::get(SoState* state) { return SoInt32Element::get(s_classStackIndex, state); }
void SoSwitchElement::init(SoState*) { data = getDefault(); }
