#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/SbRotation.h>
#include <Orvex/elements/SoAccumulatedElement.h>

// The transformation applied to texture coordinates; texture
// transformation nodes multiply theirs in front of it.
class SoTextureMatrixElement : public SoAccumulatedElement {
  SO_ELEMENT_HEADER(SoTextureMatrixElement);

 public:
  void init(SoState* state) override;
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;

  static void makeIdentity(SoState* state, SoNode* node);
  static void mult(SoState* state, SoNode* node, const SbMatrix& matrix);
  static void translateBy(SoState* state, SoNode* node, const SbVec3f& translation);
  static void rotateBy(SoState* state, SoNode* node, const SbRotation& rotation);
  static void scaleBy(SoState* state, SoNode* node, const SbVec3f& scaleFactor);
  static const SbMatrix& get(SoState* state);
  static SbMatrix getDefault() { return SbMatrix::identity(); }

 protected:
  ~SoTextureMatrixElement() override;
  virtual void makeEltIdentity();
  virtual void multElt(const SbMatrix& matrix);
  virtual void translateEltBy(const SbVec3f& translation);
  virtual void rotateEltBy(const SbRotation& rotation);
  virtual void scaleEltBy(const SbVec3f& scaleFactor);
  virtual const SbMatrix& getElt() const;

  SbMatrix textureMatrix;
};
