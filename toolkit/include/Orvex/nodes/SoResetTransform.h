#pragma once
#include <Orvex/fields/SoSFBitMask.h>
#include <Orvex/nodes/SoSubNode.h>
#include <Orvex/nodes/SoTransformation.h>

// Resets the current transformation (and, on request, the bounding box being
// computed) to identity.
class SoResetTransform : public SoTransformation {
  SO_NODE_HEADER(SoResetTransform);

 public:
  enum ResetType { TRANSFORM = 1, BBOX = 2 };

  SoSFBitMask whatToReset;

  SoResetTransform();
  void doAction(SoAction* action) override;
  void getMatrix(SoGetMatrixAction* action) override;
  // With BBOX, empties the box computed so far.
  void getBoundingBox(SoGetBoundingBoxAction* action) override;

 protected:
  ~SoResetTransform() override;
};
