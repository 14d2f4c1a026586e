#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/SbVec3f.h>
#include <Orvex/fields/SoSFRotation.h>
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/nodes/SoSubNode.h>
#include <Orvex/nodes/SoTransformation.h>

// A general transformation: applied to a point as translation by -center,
// scale orientation, scale, inverse scale orientation, rotation, translation
// by center, translation.
class SoTransform : public SoTransformation {
  SO_NODE_HEADER(SoTransform);

 public:
  SoSFVec3f translation;
  SoSFRotation rotation;
  SoSFVec3f scaleFactor;
  SoSFRotation scaleOrientation;
  SoSFVec3f center;

  SoTransform();
  void doAction(SoAction* action) override;
  void getMatrix(SoGetMatrixAction* action) override;
  // Sets the fields so that the transformation equals the matrix (which
  // must be affine), keeping the current center.
  void setMatrix(const SbMatrix& matrix);
  // The matrix of the current field values.
  SbMatrix getMatrix() const;
  // Combines another transformation into this one (this one applied first).
  void multRight(const SbMatrix& matrix);
  // Turns the node so that from its translation it looks (its -z axis) at
  // `toPoint`.
  void pointAt(const SbVec3f& fromPoint, const SbVec3f& toPoint);

 protected:
  ~SoTransform() override;
};
