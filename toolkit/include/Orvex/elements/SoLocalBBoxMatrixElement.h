#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/elements/SoSubElement.h>

// The transformation from the current object space to the space of the
// innermost bounding-box cache being built (a separator's own space). The
// bounding-box action keeps it next to the model matrix; a separator that
// builds a cache makes it the identity for its children.
class SoLocalBBoxMatrixElement : public SoElement {
  SO_ELEMENT_HEADER(SoLocalBBoxMatrixElement);

 public:
  void init(SoState* state) override;
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;

  static void makeIdentity(SoState* state);
  static void set(SoState* state, const SbMatrix& matrix);
  // matrix = m * matrix.
  static void mult(SoState* state, const SbMatrix& m);
  static const SbMatrix& get(SoState* state);
  static SbMatrix pushMatrix(SoState* state);
  static void popMatrix(SoState* state, const SbMatrix& matrix);

 protected:
  ~SoLocalBBoxMatrixElement() override;

  SbMatrix localMatrix;
};
