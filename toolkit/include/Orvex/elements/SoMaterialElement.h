#pragma once
#include <Orvex/elements/SoReplacedElement.h>

class SoMaterial;

// The material node whose values are current (the lazy element holds the
// values themselves).
class SoMaterialElement : public SoReplacedElement {
  SO_ELEMENT_HEADER(SoMaterialElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, SoMaterial* material);
  // The current material node, or null before any.
  static SoMaterial* get(SoState* state);

 protected:
  ~SoMaterialElement() override;

  SoMaterial* material = nullptr;
};
