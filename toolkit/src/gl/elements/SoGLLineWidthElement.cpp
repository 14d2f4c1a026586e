#include <Orvex/elements/SoGLLineWidthElement.h>

#include <GL/gl.h>

SO_ELEMENT_SOURCE(SoGLLineWidthElement)

void SoGLLineWidthElement::initClass() { SO_ELEMENT_INIT_CLASS(SoGLLineWidthElement, SoLineWidthElement); }

SoGLLineWidthElement::SoGLLineWidthElement() { SO_ELEMENT_CONSTRUCTOR(SoGLLineWidthElement); }

SoGLLineWidthElement::~SoGLLineWidthElement() = default;

void SoGLLineWidthElement::init(SoState* state) {
  SoLineWidthElement::init(state);
  send();
}

void SoGLLineWidthElement::pop(SoState*, const SoElement* prevTopElement) {
  if (static_cast<const SoGLLineWidthElement*>(prevTopElement)->data != data) send();
}

void SoGLLineWidthElement::setElt(float value) {
  SoLineWidthElement::setElt(value);
  send();
}

// 0 (and anything not positive) stands for the default of 1 pixel.
void SoGLLineWidthElement::send() const { glLineWidth(data > 0.0f ? data : 1.0f); }
