#pragma once
#include <Orvex/fields/SoSFVec3f.h>
#include <Orvex/nodes/SoSubNode.h>
#include <Orvex/nodes/SoTransformation.h>

// A translation.
class SoTranslation : public SoTransformation {
  SO_NODE_HEADER(SoTranslation);

 public:
  SoSFVec3f translation;

  SoTranslation();
  void doAction(SoAction* action) override;
  void getMatrix(SoGetMatrixAction* action) override;

 protected:
  ~SoTranslation() override;
};
