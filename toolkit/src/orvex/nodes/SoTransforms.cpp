// The transformation nodes.

#include <Orvex/nodes/SoTransformation.h>
#include <Orvex/nodes/SoTransform.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/nodes/SoRotation.h>
#include <Orvex/nodes/SoRotationXYZ.h>
#include <Orvex/nodes/SoScale.h>
#include <Orvex/nodes/SoMatrixTransform.h>
#include <Orvex/nodes/SoResetTransform.h>

SO_NODE_ABSTRACT_SOURCE(SoTransformation)

SoTransformation::SoTransformation() {
  SO_NODE_CONSTRUCTOR(SoTransformation);
}

SoTransformation::~SoTransformation() = default;

void SoTransformation::initClass() { SO_NODE_INIT_ABSTRACT_CLASS(SoTransformation, SoNode, "Node"); }

SO_NODE_SOURCE(SoTransform)

SoTransform::SoTransform() {
  SO_NODE_CONSTRUCTOR(SoTransform);
  SO_NODE_ADD_FIELD(translation, (0.0f, 0.0f, 0.0f));
  SO_NODE_ADD_FIELD(rotation, (SbRotation()));
  SO_NODE_ADD_FIELD(scaleFactor, (1.0f, 1.0f, 1.0f));
  SO_NODE_ADD_FIELD(scaleOrientation, (SbRotation()));
  SO_NODE_ADD_FIELD(center, (0.0f, 0.0f, 0.0f));
}

SoTransform::~SoTransform() = default;

void SoTransform::initClass() { SO_NODE_INIT_CLASS(SoTransform, SoTransformation, "Transformation"); }

void SoTransform::setMatrix(const SbMatrix& matrix) {
  SbVec3f t, s;
  SbRotation r, so;
  matrix.getTransform(t, r, s, so, center.getValue());
  translation = t;
  rotation = r;
  scaleFactor = s;
  scaleOrientation = so;
}

SbMatrix SoTransform::getMatrix() const {
  SbMatrix m;
  m.setTransform(translation.getValue(), rotation.getValue(), scaleFactor.getValue(), scaleOrientation.getValue(),
                 center.getValue());
  return m;
}

void SoTransform::multRight(const SbMatrix& matrix) { setMatrix(getMatrix() * matrix); }

void SoTransform::pointAt(const SbVec3f& fromPoint, const SbVec3f& toPoint) {
  translation = fromPoint;
  SbVec3f dir = toPoint - fromPoint;
  if (dir.normalize() == 0.0f) return;
  rotation = SbRotation(SbVec3f(0.0f, 0.0f, -1.0f), dir);
}

SO_NODE_SOURCE(SoTranslation)

SoTranslation::SoTranslation() {
  SO_NODE_CONSTRUCTOR(SoTranslation);
  SO_NODE_ADD_FIELD(translation, (0.0f, 0.0f, 0.0f));
}

SoTranslation::~SoTranslation() = default;

void SoTranslation::initClass() { SO_NODE_INIT_CLASS(SoTranslation, SoTransformation, "Transformation"); }

SO_NODE_SOURCE(SoRotation)

SoRotation::SoRotation() {
  SO_NODE_CONSTRUCTOR(SoRotation);
  SO_NODE_ADD_FIELD(rotation, (SbRotation()));
}

SoRotation::~SoRotation() = default;

void SoRotation::initClass() { SO_NODE_INIT_CLASS(SoRotation, SoTransformation, "Transformation"); }

SO_NODE_SOURCE(SoRotationXYZ)

SoRotationXYZ::SoRotationXYZ() {
  SO_NODE_CONSTRUCTOR(SoRotationXYZ);
  SO_NODE_DEFINE_ENUM_VALUE(Axis, X);
  SO_NODE_DEFINE_ENUM_VALUE(Axis, Y);
  SO_NODE_DEFINE_ENUM_VALUE(Axis, Z);
  SO_NODE_ADD_FIELD(axis, (X));
  SO_NODE_ADD_FIELD(angle, (0.0f));
  SO_NODE_SET_SF_ENUM_TYPE(axis, Axis);
}

SoRotationXYZ::~SoRotationXYZ() = default;

void SoRotationXYZ::initClass() { SO_NODE_INIT_CLASS(SoRotationXYZ, SoTransformation, "Transformation"); }

SbRotation SoRotationXYZ::getRotation() const {
  SbVec3f axisVector(0.0f, 0.0f, 0.0f);
  const int a = axis.getValue();
  axisVector[a >= 0 && a <= 2 ? a : 0] = 1.0f;
  return SbRotation(axisVector, angle.getValue());
}

SO_NODE_SOURCE(SoScale)

SoScale::SoScale() {
  SO_NODE_CONSTRUCTOR(SoScale);
  SO_NODE_ADD_FIELD(scaleFactor, (1.0f, 1.0f, 1.0f));
}

SoScale::~SoScale() = default;

void SoScale::initClass() { SO_NODE_INIT_CLASS(SoScale, SoTransformation, "Transformation"); }

SO_NODE_SOURCE(SoMatrixTransform)

SoMatrixTransform::SoMatrixTransform() {
  SO_NODE_CONSTRUCTOR(SoMatrixTransform);
  SO_NODE_ADD_FIELD(matrix, (SbMatrix::identity()));
}

SoMatrixTransform::~SoMatrixTransform() = default;

void SoMatrixTransform::initClass() { SO_NODE_INIT_CLASS(SoMatrixTransform, SoTransformation, "Transformation"); }

SO_NODE_SOURCE(SoResetTransform)

SoResetTransform::SoResetTransform() {
  SO_NODE_CONSTRUCTOR(SoResetTransform);
  SO_NODE_DEFINE_ENUM_VALUE(ResetType, TRANSFORM);
  SO_NODE_DEFINE_ENUM_VALUE(ResetType, BBOX);
  SO_NODE_ADD_FIELD(whatToReset, (TRANSFORM));
  SO_NODE_SET_SF_ENUM_TYPE(whatToReset, ResetType);
}

SoResetTransform::~SoResetTransform() = default;

void SoResetTransform::initClass() { SO_NODE_INIT_CLASS(SoResetTransform, SoTransformation, "Transformation"); }
