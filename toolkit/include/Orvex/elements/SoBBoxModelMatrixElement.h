#pragma once
#include <Orvex/elements/SoModelMatrixElement.h>

// The model matrix as the bounding-box action keeps it: every change is
// also applied to the local bounding-box matrix, so that boxes can be
// recorded in the space of the separator caching them.
class SoBBoxModelMatrixElement : public SoModelMatrixElement {
  SO_ELEMENT_HEADER(SoBBoxModelMatrixElement);

 public:
  void init(SoState* state) override;
  void push(SoState* state) override;
  // Resets both matrices to the identity (a reset-transform node).
  static void reset(SoState* state, SoNode* node);
  // Saves and restores the model matrix and the local matrix together.
  static void pushMatrix(SoState* state, SbMatrix& matrix, SbMatrix& localMatrix);
  static void popMatrix(SoState* state, const SbMatrix& matrix, const SbMatrix& localMatrix);

 protected:
  ~SoBBoxModelMatrixElement() override;
  void makeEltIdentity() override;
  void setElt(const SbMatrix& matrix, bool sendToGL = true) override;
  void multElt(const SbMatrix& matrix) override;
  void translateEltBy(const SbVec3f& translation) override;
  void rotateEltBy(const SbRotation& rotation) override;
  void scaleEltBy(const SbVec3f& scaleFactor) override;
  SbMatrix pushMatrixElt() override;
  void popMatrixElt(const SbMatrix& matrix) override;

 private:
  // The state the element lives in, to reach the local matrix element.
  SoState* m_state = nullptr;
};
