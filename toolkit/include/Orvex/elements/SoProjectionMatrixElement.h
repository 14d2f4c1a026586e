#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/elements/SoReplacedElement.h>

// The projection of camera space to normalised device coordinates.
class SoProjectionMatrixElement : public SoReplacedElement {
  SO_ELEMENT_HEADER(SoProjectionMatrixElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, SoNode* node, const SbMatrix& matrix);
  static const SbMatrix& get(SoState* state);
  static SbMatrix getDefault() { return SbMatrix::identity(); }

 protected:
  ~SoProjectionMatrixElement() override;
  virtual void setElt(const SbMatrix& matrix);

  SbMatrix projectionMatrix;
};
