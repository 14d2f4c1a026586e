#include <Orvex/elements/SoGLRenderPassElement.h>

SO_ELEMENT_SOURCE(SoGLRenderPassElement)

void SoGLRenderPassElement::initClass() { SO_ELEMENT_INIT_CLASS(SoGLRenderPassElement, SoInt32Element); }

SoGLRenderPassElement::SoGLRenderPassElement() { SO_ELEMENT_CONSTRUCTOR(SoGLRenderPassElement); }

SoGLRenderPassElement::~SoGLRenderPassElement() = default;

void SoGLRenderPassElement::init(SoState* state) {
  SoInt32Element::init(state);
  data = getDefault();
}

void SoGLRenderPassElement::set(SoState* state, int32_t pass) { SoInt32Element::set(getClassStackIndex(), state, pass); }

int32_t SoGLRenderPassElement::get(SoState* state) { return SoInt32Element::get(getClassStackIndex(), state); }
