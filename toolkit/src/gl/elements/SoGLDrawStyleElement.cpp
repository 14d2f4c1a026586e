#include <Orvex/elements/SoGLDrawStyleElement.h>

#include <GL/gl.h>

SO_ELEMENT_SOURCE(SoGLDrawStyleElement)

void SoGLDrawStyleElement::initClass() { SO_ELEMENT_INIT_CLASS(SoGLDrawStyleElement, SoDrawStyleElement); }

SoGLDrawStyleElement::SoGLDrawStyleElement() { SO_ELEMENT_CONSTRUCTOR(SoGLDrawStyleElement); }

SoGLDrawStyleElement::~SoGLDrawStyleElement() = default;

void SoGLDrawStyleElement::init(SoState* state) {
  SoDrawStyleElement::init(state);
  send();
}

void SoGLDrawStyleElement::pop(SoState*, const SoElement* prevTopElement) {
  if (static_cast<const SoGLDrawStyleElement*>(prevTopElement)->data != data) send();
}

void SoGLDrawStyleElement::setElt(int32_t value) {
  SoDrawStyleElement::setElt(value);
  send();
}

void SoGLDrawStyleElement::send() const {
  // INVISIBLE shapes are not drawn at all; their mode does not matter.
  switch (data) {
    case LINES: glPolygonMode(GL_FRONT_AND_BACK, GL_LINE); break;
    case POINTS: glPolygonMode(GL_FRONT_AND_BACK, GL_POINT); break;
    default: glPolygonMode(GL_FRONT_AND_BACK, GL_FILL); break;
  }
}
