#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/SbRotation.h>
#include <Orvex/elements/SoAccumulatedElement.h>

// The transformation from the current object space to world space. A
// transformation node multiplies its matrix in front of the current one, so
// that it applies to points before the transformations above it.
class SoModelMatrixElement : public SoAccumulatedElement {
  SO_ELEMENT_HEADER(SoModelMatrixElement);

 public:
  void init(SoState* state) override;
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;
  void print(FILE* fp) const override;

  static void makeIdentity(SoState* state, SoNode* node);
  static void set(SoState* state, SoNode* node, const SbMatrix& matrix, bool sendToGL = true);
  // matrix = m * matrix.
  static void mult(SoState* state, SoNode* node, const SbMatrix& m);
  static void translateBy(SoState* state, SoNode* node, const SbVec3f& translation);
  static void rotateBy(SoState* state, SoNode* node, const SbRotation& rotation);
  static void scaleBy(SoState* state, SoNode* node, const SbVec3f& scaleFactor);
  // Saves the current matrix (a transform separator before its children)
  // and puts a saved one back (after them).
  static SbMatrix pushMatrix(SoState* state);
  static void popMatrix(SoState* state, const SbMatrix& matrix);
  static const SbMatrix& get(SoState* state);
  static const SbMatrix& get(SoState* state, bool& isIdentity);
  static SbMatrix getDefault() { return SbMatrix::identity(); }
  // The matrix of this element and whether it is known to be the identity.
  const SbMatrix& getModelMatrix() const { return modelMatrix; }
  bool isIdentity() const { return flagIsIdentity; }

 protected:
  ~SoModelMatrixElement() override;
  virtual void makeEltIdentity();
  virtual void setElt(const SbMatrix& matrix, bool sendToGL = true);
  virtual void multElt(const SbMatrix& matrix);
  virtual void translateEltBy(const SbVec3f& translation);
  virtual void rotateEltBy(const SbRotation& rotation);
  virtual void scaleEltBy(const SbVec3f& scaleFactor);
  virtual SbMatrix pushMatrixElt();
  virtual void popMatrixElt(const SbMatrix& matrix);
  // Hook for render elements that mirror the matrix into shader state.
  virtual void updateShaderStateMatrix(SoState* state);

  SbMatrix modelMatrix;
  bool flagIsIdentity = true;
};
