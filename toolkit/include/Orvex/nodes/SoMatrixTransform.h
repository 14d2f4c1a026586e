#pragma once
#include <Orvex/fields/SoSFMatrix.h>
#include <Orvex/nodes/SoSubNode.h>
#include <Orvex/nodes/SoTransformation.h>

// A transformation given as a matrix.
class SoMatrixTransform : public SoTransformation {
  SO_NODE_HEADER(SoMatrixTransform);

 public:
  SoSFMatrix matrix;

  SoMatrixTransform();
  void doAction(SoAction* action) override;
  void getMatrix(SoGetMatrixAction* action) override;

 protected:
  ~SoMatrixTransform() override;
};
