// What the transformation nodes do: multiply their matrix into the model
// matrix of the state, or into the matrix of a get-matrix action (with the
// inverse, computed directly where it is simple).

#include <Orvex/actions/SoAction.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/actions/SoGetMatrixAction.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/nodes/SoMatrixTransform.h>
#include <Orvex/nodes/SoResetTransform.h>
#include <Orvex/nodes/SoRotation.h>
#include <Orvex/nodes/SoRotationXYZ.h>
#include <Orvex/nodes/SoScale.h>
#include <Orvex/nodes/SoTransform.h>
#include <Orvex/nodes/SoTranslation.h>

namespace {
SbMatrix translationMatrix(const SbVec3f& t) {
  SbMatrix m;
  m.setTranslate(t);
  return m;
}
SbMatrix rotationMatrix(const SbRotation& r) {
  SbMatrix m;
  m.setRotate(r);
  return m;
}
}  // namespace

void SoTransform::doAction(SoAction* action) {
  if (SoState* state = action->getState()) SoModelMatrixElement::mult(state, this, getMatrix());
}

void SoTransform::getMatrix(SoGetMatrixAction* action) {
  const SbMatrix m = getMatrix();
  action->mult(m, m.inverse());
}

void SoTranslation::doAction(SoAction* action) {
  if (SoState* state = action->getState())
    if (!translation.isIgnored()) SoModelMatrixElement::translateBy(state, this, translation.getValue());
}

void SoTranslation::getMatrix(SoGetMatrixAction* action) {
  if (translation.isIgnored()) return;
  action->mult(translationMatrix(translation.getValue()), translationMatrix(-translation.getValue()));
}

void SoRotation::doAction(SoAction* action) {
  if (SoState* state = action->getState())
    if (!rotation.isIgnored()) SoModelMatrixElement::rotateBy(state, this, rotation.getValue());
}

void SoRotation::getMatrix(SoGetMatrixAction* action) {
  if (rotation.isIgnored()) return;
  action->mult(rotationMatrix(rotation.getValue()), rotationMatrix(rotation.getValue().inverse()));
}

void SoRotationXYZ::doAction(SoAction* action) {
  if (SoState* state = action->getState())
    if (!angle.isIgnored()) SoModelMatrixElement::rotateBy(state, this, getRotation());
}

void SoRotationXYZ::getMatrix(SoGetMatrixAction* action) {
  if (angle.isIgnored()) return;
  const SbRotation r = getRotation();
  action->mult(rotationMatrix(r), rotationMatrix(r.inverse()));
}

void SoScale::doAction(SoAction* action) {
  if (SoState* state = action->getState())
    if (!scaleFactor.isIgnored()) SoModelMatrixElement::scaleBy(state, this, scaleFactor.getValue());
}

void SoScale::getMatrix(SoGetMatrixAction* action) {
  if (scaleFactor.isIgnored()) return;
  SbMatrix m;
  m.setScale(scaleFactor.getValue());
  action->mult(m, m.inverse());
}

void SoMatrixTransform::doAction(SoAction* action) {
  if (SoState* state = action->getState())
    if (!matrix.isIgnored()) SoModelMatrixElement::mult(state, this, matrix.getValue());
}

void SoMatrixTransform::getMatrix(SoGetMatrixAction* action) {
  if (matrix.isIgnored()) return;
  action->mult(matrix.getValue(), matrix.getValue().inverse());
}

void SoResetTransform::doAction(SoAction* action) {
  if (SoState* state = action->getState())
    if (whatToReset.getValue() & TRANSFORM) SoModelMatrixElement::makeIdentity(state, this);
}

void SoResetTransform::getMatrix(SoGetMatrixAction* action) {
  if (whatToReset.getValue() & TRANSFORM) action->reset();
}

void SoResetTransform::getBoundingBox(SoGetBoundingBoxAction* action) {
  if (whatToReset.getValue() & BBOX) {
    action->getXfBoundingBox() = SbXfBox3f();
    action->resetCenter();
  }
  doAction(action);
}
