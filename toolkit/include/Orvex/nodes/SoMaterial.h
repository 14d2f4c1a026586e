#pragma once
#include <Orvex/fields/SoMFColor.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/nodes/SoSubNode.h>

// Surface material of the shapes that follow: one value per part, face or
// vertex depending on the material binding.
class SoMaterial : public SoNode {
  SO_NODE_HEADER(SoMaterial);

 public:
  SoMFColor ambientColor;
  SoMFColor diffuseColor;
  SoMFColor specularColor;
  SoMFColor emissiveColor;
  SoMFFloat shininess;
  SoMFFloat transparency;

  SoMaterial();
  void doAction(SoAction* action) override;

 protected:
  ~SoMaterial() override;
};
