#include <Orvex/elements/SoGLPointSizeElement.h>

#include <GL/gl.h>

SO_ELEMENT_SOURCE(SoGLPointSizeElement)

void SoGLPointSizeElement::initClass() { SO_ELEMENT_INIT_CLASS(SoGLPointSizeElement, SoPointSizeElement); }

SoGLPointSizeElement::SoGLPointSizeElement() { SO_ELEMENT_CONSTRUCTOR(SoGLPointSizeElement); }

SoGLPointSizeElement::~SoGLPointSizeElement() = default;

void SoGLPointSizeElement::init(SoState* state) {
  SoPointSizeElement::init(state);
  send();
}

void SoGLPointSizeElement::pop(SoState*, const SoElement* prevTopElement) {
  if (static_cast<const SoGLPointSizeElement*>(prevTopElement)->data != data) send();
}

void SoGLPointSizeElement::setElt(float value) {
  SoPointSizeElement::setElt(value);
  send();
}

// 0 (and anything not positive) stands for the default of 1 pixel.
void SoGLPointSizeElement::send() const { glPointSize(data > 0.0f ? data : 1.0f); }
