#include <Orvex/elements/SoGLDepthBufferElement.h>

#include <GL/gl.h>

SO_ELEMENT_SOURCE(SoGLDepthBufferElement)

void SoGLDepthBufferElement::initClass() { SO_ELEMENT_INIT_CLASS(SoGLDepthBufferElement, SoDepthBufferElement); }

SoGLDepthBufferElement::SoGLDepthBufferElement() { SO_ELEMENT_CONSTRUCTOR(SoGLDepthBufferElement); }

SoGLDepthBufferElement::~SoGLDepthBufferElement() = default;

void SoGLDepthBufferElement::init(SoState* state) {
  SoDepthBufferElement::init(state);
  send();
}

void SoGLDepthBufferElement::pop(SoState*, const SoElement* prevTopElement) {
  if (!matches(prevTopElement)) send();
}

void SoGLDepthBufferElement::setElt(bool t, bool w, DepthWriteFunctions f, const SbVec2f& r) {
  SoDepthBufferElement::setElt(t, w, f, r);
  send();
}

void SoGLDepthBufferElement::send() const {
  static const GLenum functions[] = {GL_NEVER, GL_LESS, GL_EQUAL, GL_LEQUAL, GL_GREATER, GL_NOTEQUAL, GL_GEQUAL, GL_ALWAYS};
  if (test)
    glEnable(GL_DEPTH_TEST);
  else
    glDisable(GL_DEPTH_TEST);
  glDepthMask(write ? GL_TRUE : GL_FALSE);
  glDepthFunc(function >= NEVER && function <= ALWAYS ? functions[function] : GL_LESS);
  glDepthRange(range[0], range[1]);
}
