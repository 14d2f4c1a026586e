#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/elements/SoReplacedElement.h>

// The transformation from world space to the space of the current camera
// (camera at the origin looking down -z).
class SoViewingMatrixElement : public SoReplacedElement {
  SO_ELEMENT_HEADER(SoViewingMatrixElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, SoNode* node, const SbMatrix& matrix);
  static const SbMatrix& get(SoState* state);
  static SbMatrix getDefault() { return SbMatrix::identity(); }

 protected:
  ~SoViewingMatrixElement() override;
  virtual void setElt(const SbMatrix& matrix);

  SbMatrix viewingMatrix;
};
