#include <Orvex/elements/SoGLLinePatternElement.h>

#include <GL/gl.h>

SO_ELEMENT_SOURCE(SoGLLinePatternElement)

void SoGLLinePatternElement::initClass() { SO_ELEMENT_INIT_CLASS(SoGLLinePatternElement, SoLinePatternElement); }

SoGLLinePatternElement::SoGLLinePatternElement() { SO_ELEMENT_CONSTRUCTOR(SoGLLinePatternElement); }

SoGLLinePatternElement::~SoGLLinePatternElement() = default;

void SoGLLinePatternElement::init(SoState* state) {
  SoLinePatternElement::init(state);
  send();
}

void SoGLLinePatternElement::pop(SoState*, const SoElement* prevTopElement) {
  if (static_cast<const SoGLLinePatternElement*>(prevTopElement)->data != data) send();
}

void SoGLLinePatternElement::setElt(int32_t value) {
  SoLinePatternElement::setElt(value);
  send();
}

void SoGLLinePatternElement::send() const {
  const auto pattern = static_cast<GLushort>(data & 0xFFFF);
  if (pattern == 0xFFFF) {
    glDisable(GL_LINE_STIPPLE);
    return;
  }
  glLineStipple(1, pattern);
  glEnable(GL_LINE_STIPPLE);
}
