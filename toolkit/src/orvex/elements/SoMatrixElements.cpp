// The transformation elements: model, bounding-box model, local
// bounding-box, texture, viewing and projection matrices.

#include <Orvex/elements/SoBBoxModelMatrixElement.h>
#include <Orvex/elements/SoLocalBBoxMatrixElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoProjectionMatrixElement.h>
#include <Orvex/elements/SoTextureMatrixElement.h>
#include <Orvex/elements/SoViewingMatrixElement.h>

namespace {

// m = T * m for a translation T: only the last row changes.
void preTranslate(SbMatrix& m, const SbVec3f& t) {
  for (int c = 0; c < 4; ++c) m[3][c] += t[0] * m[0][c] + t[1] * m[1][c] + t[2] * m[2][c];
}

// m = S * m for a scale S: each of the first three rows scales.
void preScale(SbMatrix& m, const SbVec3f& s) {
  for (int r = 0; r < 3; ++r)
    for (int c = 0; c < 4; ++c) m[r][c] *= s[r];
}

SbMatrix rotationMatrix(const SbRotation& r) {
  SbMatrix m;
  m.setRotate(r);
  return m;
}

}  // namespace

// ---- SoModelMatrixElement ----------------------------------------------------------

SO_ELEMENT_SOURCE(SoModelMatrixElement)

SoModelMatrixElement::SoModelMatrixElement() { SO_ELEMENT_CONSTRUCTOR(SoModelMatrixElement); }
SoModelMatrixElement::~SoModelMatrixElement() = default;

void SoModelMatrixElement::initClass() { SO_ELEMENT_INIT_CLASS(SoModelMatrixElement, SoAccumulatedElement); }

void SoModelMatrixElement::init(SoState* state) {
  SoAccumulatedElement::init(state);
  modelMatrix.makeIdentity();
  flagIsIdentity = true;
}

void SoModelMatrixElement::push(SoState* state) {
  SoAccumulatedElement::push(state);
  const auto* below = static_cast<const SoModelMatrixElement*>(getNextInStack());
  modelMatrix = below->modelMatrix;
  flagIsIdentity = below->flagIsIdentity;
}

bool SoModelMatrixElement::matches(const SoElement* elt) const { return SoAccumulatedElement::matches(elt); }
SoElement* SoModelMatrixElement::copyMatchInfo() const { return SoAccumulatedElement::copyMatchInfo(); }

void SoModelMatrixElement::print(FILE* fp) const {
  SoAccumulatedElement::print(fp);
  for (int r = 0; r < 4; ++r)
    std::fprintf(fp, "    %g %g %g %g\n", modelMatrix[r][0], modelMatrix[r][1], modelMatrix[r][2], modelMatrix[r][3]);
}

void SoModelMatrixElement::makeIdentity(SoState* state, SoNode* node) {
  if (auto* elt = static_cast<SoModelMatrixElement*>(getElement(state, s_classStackIndex))) {
    elt->makeEltIdentity();
    elt->setNodeId(node);
  }
}

void SoModelMatrixElement::set(SoState* state, SoNode* node, const SbMatrix& matrix, bool sendToGL) {
  if (auto* elt = static_cast<SoModelMatrixElement*>(getElement(state, s_classStackIndex))) {
    elt->setElt(matrix, sendToGL);
    elt->setNodeId(node);
  }
}

void SoModelMatrixElement::mult(SoState* state, SoNode* node, const SbMatrix& m) {
  if (auto* elt = static_cast<SoModelMatrixElement*>(getElement(state, s_classStackIndex))) {
    elt->multElt(m);
    elt->addNodeId(node);
  }
}

void SoModelMatrixElement::translateBy(SoState* state, SoNode* node, const SbVec3f& translation) {
  if (auto* elt = static_cast<SoModelMatrixElement*>(getElement(state, s_classStackIndex))) {
    elt->translateEltBy(translation);
    elt->addNodeId(node);
  }
}

void SoModelMatrixElement::rotateBy(SoState* state, SoNode* node, const SbRotation& rotation) {
  if (auto* elt = static_cast<SoModelMatrixElement*>(getElement(state, s_classStackIndex))) {
    elt->rotateEltBy(rotation);
    elt->addNodeId(node);
  }
}

void SoModelMatrixElement::scaleBy(SoState* state, SoNode* node, const SbVec3f& scaleFactor) {
  if (auto* elt = static_cast<SoModelMatrixElement*>(getElement(state, s_classStackIndex))) {
    elt->scaleEltBy(scaleFactor);
    elt->addNodeId(node);
  }
}

SbMatrix SoModelMatrixElement::pushMatrix(SoState* state) {
  auto* elt = static_cast<SoModelMatrixElement*>(state->getElementNoPush(s_classStackIndex));
  return elt ? elt->pushMatrixElt() : SbMatrix::identity();
}

void SoModelMatrixElement::popMatrix(SoState* state, const SbMatrix& matrix) {
  if (auto* elt = static_cast<SoModelMatrixElement*>(getElement(state, s_classStackIndex))) elt->popMatrixElt(matrix);
}

const SbMatrix& SoModelMatrixElement::get(SoState* state) {
  bool isIdentity;
  return get(state, isIdentity);
}

const SbMatrix& SoModelMatrixElement::get(SoState* state, bool& isIdentity) {
  static const SbMatrix identity = SbMatrix::identity();
  const auto* elt = static_cast<const SoModelMatrixElement*>(getConstElement(state, s_classStackIndex));
  if (!elt) {
    isIdentity = true;
    return identity;
  }
  isIdentity = elt->flagIsIdentity;
  return elt->modelMatrix;
}

void SoModelMatrixElement::makeEltIdentity() {
  modelMatrix.makeIdentity();
  flagIsIdentity = true;
}

void SoModelMatrixElement::setElt(const SbMatrix& matrix, bool) {
  modelMatrix = matrix;
  flagIsIdentity = matrix.isIdentity();
}

void SoModelMatrixElement::multElt(const SbMatrix& matrix) {
  if (matrix.isIdentity()) return;
  modelMatrix.multLeft(matrix);
  flagIsIdentity = false;
}

void SoModelMatrixElement::translateEltBy(const SbVec3f& translation) {
  if (translation == SbVec3f(0.0f, 0.0f, 0.0f)) return;
  preTranslate(modelMatrix, translation);
  flagIsIdentity = false;
}

void SoModelMatrixElement::rotateEltBy(const SbRotation& rotation) { multElt(rotationMatrix(rotation)); }

void SoModelMatrixElement::scaleEltBy(const SbVec3f& scaleFactor) {
  if (scaleFactor == SbVec3f(1.0f, 1.0f, 1.0f)) return;
  preScale(modelMatrix, scaleFactor);
  flagIsIdentity = false;
}

SbMatrix SoModelMatrixElement::pushMatrixElt() { return modelMatrix; }

void SoModelMatrixElement::popMatrixElt(const SbMatrix& matrix) {
  modelMatrix = matrix;
  flagIsIdentity = matrix.isIdentity();
}

void SoModelMatrixElement::updateShaderStateMatrix(SoState*) {}

// ---- SoLocalBBoxMatrixElement -------------------------------------------------------

SO_ELEMENT_SOURCE(SoLocalBBoxMatrixElement)

SoLocalBBoxMatrixElement::SoLocalBBoxMatrixElement() { SO_ELEMENT_CONSTRUCTOR(SoLocalBBoxMatrixElement); }
SoLocalBBoxMatrixElement::~SoLocalBBoxMatrixElement() = default;

void SoLocalBBoxMatrixElement::initClass() { SO_ELEMENT_INIT_CLASS(SoLocalBBoxMatrixElement, SoElement); }

void SoLocalBBoxMatrixElement::init(SoState*) { localMatrix.makeIdentity(); }

void SoLocalBBoxMatrixElement::push(SoState*) {
  localMatrix = static_cast<const SoLocalBBoxMatrixElement*>(getNextInStack())->localMatrix;
}

bool SoLocalBBoxMatrixElement::matches(const SoElement* elt) const {
  return elt && elt->getTypeId() == getTypeId() &&
         static_cast<const SoLocalBBoxMatrixElement*>(elt)->localMatrix == localMatrix;
}

SoElement* SoLocalBBoxMatrixElement::copyMatchInfo() const {
  auto* copy = new SoLocalBBoxMatrixElement;
  copy->localMatrix = localMatrix;
  return copy;
}

void SoLocalBBoxMatrixElement::makeIdentity(SoState* state) {
  if (auto* elt = static_cast<SoLocalBBoxMatrixElement*>(getElement(state, s_classStackIndex)))
    elt->localMatrix.makeIdentity();
}

void SoLocalBBoxMatrixElement::set(SoState* state, const SbMatrix& matrix) {
  if (auto* elt = static_cast<SoLocalBBoxMatrixElement*>(getElement(state, s_classStackIndex)))
    elt->localMatrix = matrix;
}

void SoLocalBBoxMatrixElement::mult(SoState* state, const SbMatrix& m) {
  if (auto* elt = static_cast<SoLocalBBoxMatrixElement*>(getElement(state, s_classStackIndex)))
    elt->localMatrix.multLeft(m);
}

const SbMatrix& SoLocalBBoxMatrixElement::get(SoState* state) {
  static const SbMatrix identity = SbMatrix::identity();
  const auto* elt = static_cast<const SoLocalBBoxMatrixElement*>(state->getConstElement(s_classStackIndex));
  return elt ? elt->localMatrix : identity;
}

SbMatrix SoLocalBBoxMatrixElement::pushMatrix(SoState* state) { return get(state); }

void SoLocalBBoxMatrixElement::popMatrix(SoState* state, const SbMatrix& matrix) { set(state, matrix); }

// ---- SoBBoxModelMatrixElement -------------------------------------------------------

SO_ELEMENT_SOURCE(SoBBoxModelMatrixElement)

SoBBoxModelMatrixElement::SoBBoxModelMatrixElement() { SO_ELEMENT_CONSTRUCTOR(SoBBoxModelMatrixElement); }
SoBBoxModelMatrixElement::~SoBBoxModelMatrixElement() = default;

void SoBBoxModelMatrixElement::initClass() {
  SO_ELEMENT_INIT_CLASS(SoBBoxModelMatrixElement, SoModelMatrixElement);
  SoLocalBBoxMatrixElement::initClass();
}

void SoBBoxModelMatrixElement::init(SoState* state) {
  SoModelMatrixElement::init(state);
  m_state = state;
}

void SoBBoxModelMatrixElement::push(SoState* state) {
  SoModelMatrixElement::push(state);
  m_state = state;
}

void SoBBoxModelMatrixElement::reset(SoState* state, SoNode* node) {
  SoModelMatrixElement::makeIdentity(state, node);
}

void SoBBoxModelMatrixElement::pushMatrix(SoState* state, SbMatrix& matrix, SbMatrix& localMatrix) {
  matrix = SoModelMatrixElement::pushMatrix(state);
  localMatrix = SoLocalBBoxMatrixElement::pushMatrix(state);
}

void SoBBoxModelMatrixElement::popMatrix(SoState* state, const SbMatrix& matrix, const SbMatrix& localMatrix) {
  // The model matrix is put back as is; the local one separately, since
  // the model element's own pop would not know it.
  if (auto* elt = static_cast<SoBBoxModelMatrixElement*>(getElement(state, getClassStackIndex())))
    elt->SoModelMatrixElement::popMatrixElt(matrix);
  SoLocalBBoxMatrixElement::popMatrix(state, localMatrix);
}

void SoBBoxModelMatrixElement::makeEltIdentity() {
  SoModelMatrixElement::makeEltIdentity();
  SoLocalBBoxMatrixElement::makeIdentity(m_state);
}

void SoBBoxModelMatrixElement::setElt(const SbMatrix& matrix, bool sendToGL) {
  SoModelMatrixElement::setElt(matrix, sendToGL);
  SoLocalBBoxMatrixElement::set(m_state, matrix);
}

void SoBBoxModelMatrixElement::multElt(const SbMatrix& matrix) {
  SoModelMatrixElement::multElt(matrix);
  SoLocalBBoxMatrixElement::mult(m_state, matrix);
}

void SoBBoxModelMatrixElement::translateEltBy(const SbVec3f& translation) {
  SoModelMatrixElement::translateEltBy(translation);
  SbMatrix m;
  m.setTranslate(translation);
  SoLocalBBoxMatrixElement::mult(m_state, m);
}

void SoBBoxModelMatrixElement::rotateEltBy(const SbRotation& rotation) {
  SoModelMatrixElement::rotateEltBy(rotation);
  SoLocalBBoxMatrixElement::mult(m_state, rotationMatrix(rotation));
}

void SoBBoxModelMatrixElement::scaleEltBy(const SbVec3f& scaleFactor) {
  SoModelMatrixElement::scaleEltBy(scaleFactor);
  SbMatrix m;
  m.setScale(scaleFactor);
  SoLocalBBoxMatrixElement::mult(m_state, m);
}

SbMatrix SoBBoxModelMatrixElement::pushMatrixElt() { return SoModelMatrixElement::pushMatrixElt(); }

void SoBBoxModelMatrixElement::popMatrixElt(const SbMatrix& matrix) { SoModelMatrixElement::popMatrixElt(matrix); }

// ---- SoTextureMatrixElement ---------------------------------------------------------

SO_ELEMENT_SOURCE(SoTextureMatrixElement)

SoTextureMatrixElement::SoTextureMatrixElement() { SO_ELEMENT_CONSTRUCTOR(SoTextureMatrixElement); }
SoTextureMatrixElement::~SoTextureMatrixElement() = default;

void SoTextureMatrixElement::initClass() { SO_ELEMENT_INIT_CLASS(SoTextureMatrixElement, SoAccumulatedElement); }

void SoTextureMatrixElement::init(SoState* state) {
  SoAccumulatedElement::init(state);
  textureMatrix.makeIdentity();
}

void SoTextureMatrixElement::push(SoState* state) {
  SoAccumulatedElement::push(state);
  textureMatrix = static_cast<const SoTextureMatrixElement*>(getNextInStack())->textureMatrix;
}

bool SoTextureMatrixElement::matches(const SoElement* elt) const { return SoAccumulatedElement::matches(elt); }
SoElement* SoTextureMatrixElement::copyMatchInfo() const { return SoAccumulatedElement::copyMatchInfo(); }

void SoTextureMatrixElement::makeIdentity(SoState* state, SoNode* node) {
  if (auto* elt = static_cast<SoTextureMatrixElement*>(getElement(state, s_classStackIndex))) {
    elt->makeEltIdentity();
    elt->setNodeId(node);
  }
}

void SoTextureMatrixElement::mult(SoState* state, SoNode* node, const SbMatrix& matrix) {
  if (auto* elt = static_cast<SoTextureMatrixElement*>(getElement(state, s_classStackIndex))) {
    elt->multElt(matrix);
    elt->addNodeId(node);
  }
}

void SoTextureMatrixElement::translateBy(SoState* state, SoNode* node, const SbVec3f& translation) {
  if (auto* elt = static_cast<SoTextureMatrixElement*>(getElement(state, s_classStackIndex))) {
    elt->translateEltBy(translation);
    elt->addNodeId(node);
  }
}

void SoTextureMatrixElement::rotateBy(SoState* state, SoNode* node, const SbRotation& rotation) {
  if (auto* elt = static_cast<SoTextureMatrixElement*>(getElement(state, s_classStackIndex))) {
    elt->rotateEltBy(rotation);
    elt->addNodeId(node);
  }
}

void SoTextureMatrixElement::scaleBy(SoState* state, SoNode* node, const SbVec3f& scaleFactor) {
  if (auto* elt = static_cast<SoTextureMatrixElement*>(getElement(state, s_classStackIndex))) {
    elt->scaleEltBy(scaleFactor);
    elt->addNodeId(node);
  }
}

const SbMatrix& SoTextureMatrixElement::get(SoState* state) {
  static const SbMatrix identity = SbMatrix::identity();
  const auto* elt = static_cast<const SoTextureMatrixElement*>(getConstElement(state, s_classStackIndex));
  return elt ? elt->getElt() : identity;
}

void SoTextureMatrixElement::makeEltIdentity() { textureMatrix.makeIdentity(); }
void SoTextureMatrixElement::multElt(const SbMatrix& matrix) { textureMatrix.multLeft(matrix); }
void SoTextureMatrixElement::translateEltBy(const SbVec3f& translation) { preTranslate(textureMatrix, translation); }
void SoTextureMatrixElement::rotateEltBy(const SbRotation& rotation) { multElt(rotationMatrix(rotation)); }
void SoTextureMatrixElement::scaleEltBy(const SbVec3f& scaleFactor) { preScale(textureMatrix, scaleFactor); }
const SbMatrix& SoTextureMatrixElement::getElt() const { return textureMatrix; }

// ---- SoViewingMatrixElement ---------------------------------------------------------

SO_ELEMENT_SOURCE(SoViewingMatrixElement)

SoViewingMatrixElement::SoViewingMatrixElement() { SO_ELEMENT_CONSTRUCTOR(SoViewingMatrixElement); }
SoViewingMatrixElement::~SoViewingMatrixElement() = default;

void SoViewingMatrixElement::initClass() { SO_ELEMENT_INIT_CLASS(SoViewingMatrixElement, SoReplacedElement); }

void SoViewingMatrixElement::init(SoState* state) {
  SoReplacedElement::init(state);
  viewingMatrix.makeIdentity();
}

void SoViewingMatrixElement::set(SoState* state, SoNode* node, const SbMatrix& matrix) {
  if (auto* elt = static_cast<SoViewingMatrixElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node)))
    elt->setElt(matrix);
}

const SbMatrix& SoViewingMatrixElement::get(SoState* state) {
  static const SbMatrix identity = SbMatrix::identity();
  const auto* elt = static_cast<const SoViewingMatrixElement*>(getConstElement(state, s_classStackIndex));
  return elt ? elt->viewingMatrix : identity;
}

void SoViewingMatrixElement::setElt(const SbMatrix& matrix) { viewingMatrix = matrix; }

// ---- SoProjectionMatrixElement ------------------------------------------------------

SO_ELEMENT_SOURCE(SoProjectionMatrixElement)

SoProjectionMatrixElement::SoProjectionMatrixElement() { SO_ELEMENT_CONSTRUCTOR(SoProjectionMatrixElement); }
SoProjectionMatrixElement::~SoProjectionMatrixElement() = default;

void SoProjectionMatrixElement::initClass() {
  SO_ELEMENT_INIT_CLASS(SoProjectionMatrixElement, SoReplacedElement);
}

void SoProjectionMatrixElement::init(SoState* state) {
  SoReplacedElement::init(state);
  projectionMatrix.makeIdentity();
}

void SoProjectionMatrixElement::set(SoState* state, SoNode* node, const SbMatrix& matrix) {
  if (auto* elt =
          static_cast<SoProjectionMatrixElement*>(SoReplacedElement::getElement(state, s_classStackIndex, node)))
    elt->setElt(matrix);
}

const SbMatrix& SoProjectionMatrixElement::get(SoState* state) {
  static const SbMatrix identity = SbMatrix::identity();
  const auto* elt = static_cast<const SoProjectionMatrixElement*>(getConstElement(state, s_classStackIndex));
  return elt ? elt->projectionMatrix : identity;
}

void SoProjectionMatrixElement::setElt(const SbMatrix& matrix) { projectionMatrix = matrix; }
