#include <Orvex/elements/SoGLLightIdElement.h>

SO_ELEMENT_SOURCE(SoGLLightIdElement)

void SoGLLightIdElement::initClass() { SO_ELEMENT_INIT_CLASS(SoGLLightIdElement, SoInt32Element); }

SoGLLightIdElement::SoGLLightIdElement() { SO_ELEMENT_CONSTRUCTOR(SoGLLightIdElement); }

SoGLLightIdElement::~SoGLLightIdElement() = default;

void SoGLLightIdElement::init(SoState* state) {
  SoInt32Element::init(state);
  data = getDefault();
}

int32_t SoGLLightIdElement::increment(SoState* state) {
  const int32_t next = get(state) + 1;
  if (next >= getMaxGLSources()) return -1;
  SoInt32Element::set(getClassStackIndex(), state, next);
  return next;
}

int32_t SoGLLightIdElement::get(SoState* state) { return SoInt32Element::get(getClassStackIndex(), state); }
