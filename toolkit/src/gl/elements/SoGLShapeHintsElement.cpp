#include <Orvex/elements/SoGLShapeHintsElement.h>

#include <GL/gl.h>

SO_ELEMENT_SOURCE(SoGLShapeHintsElement)

void SoGLShapeHintsElement::initClass() { SO_ELEMENT_INIT_CLASS(SoGLShapeHintsElement, SoShapeHintsElement); }

SoGLShapeHintsElement::SoGLShapeHintsElement() { SO_ELEMENT_CONSTRUCTOR(SoGLShapeHintsElement); }

SoGLShapeHintsElement::~SoGLShapeHintsElement() = default;

void SoGLShapeHintsElement::init(SoState* state) {
  SoShapeHintsElement::init(state);
  send();
}

void SoGLShapeHintsElement::pop(SoState*, const SoElement* prevTopElement) {
  if (!matches(prevTopElement)) send();
}

void SoGLShapeHintsElement::setElt(SoState* state, VertexOrderings ordering, ShapeTypes shape, FaceTypes face) {
  SoShapeHintsElement::setElt(state, ordering, shape, face);
  send();
}

void SoGLShapeHintsElement::setElt(SoState* state, WindingTypes winding) {
  SoShapeHintsElement::setElt(state, winding);
  send();
}

void SoGLShapeHintsElement::send() const {
  const bool known = vertexOrdering == CLOCKWISE || vertexOrdering == COUNTERCLOCKWISE;
  glFrontFace(vertexOrdering == CLOCKWISE ? GL_CW : GL_CCW);
  if (known && shapeType == SOLID) {
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
  } else {
    glDisable(GL_CULL_FACE);
  }
  glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, known && shapeType != SOLID ? GL_TRUE : GL_FALSE);
}
