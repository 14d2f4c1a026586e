#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/SbViewportRegion.h>
#include <Orvex/actions/SoSubAction.h>

// Computes the transformation that a path (or a node) amounts to: the
// matrix from the object space at the tail to the space at the head, its
// inverse, and the texture matrix with its inverse. Transformation nodes
// multiply their matrix into the action directly; no state is kept.
class SoGetMatrixAction : public SoAction {
  SO_ACTION_HEADER(SoGetMatrixAction);

 public:
  explicit SoGetMatrixAction(const SbViewportRegion& region);
  ~SoGetMatrixAction() override;

  void setViewportRegion(const SbViewportRegion& region) { m_viewport = region; }
  const SbViewportRegion& getViewportRegion() const { return m_viewport; }

  // Nodes change these in place: a transformation with matrix M does
  // matrix = M * matrix and inverse = inverse * M^-1.
  SbMatrix& getMatrix() { return m_matrix; }
  SbMatrix& getInverse() { return m_inverse; }
  SbMatrix& getTextureMatrix() { return m_textureMatrix; }
  SbMatrix& getTextureInverse() { return m_textureInverse; }

  // What a transformation node does with its matrix and the matrix's inverse.
  void mult(const SbMatrix& matrix, const SbMatrix& inverse);
  void multTexture(const SbMatrix& matrix, const SbMatrix& inverse);
  // A reset-transform node: back to the identity.
  void reset();

 protected:
  void beginTraversal(SoNode* node) override;

 private:
  SbViewportRegion m_viewport;
  SbMatrix m_matrix;
  SbMatrix m_inverse;
  SbMatrix m_textureMatrix;
  SbMatrix m_textureInverse;
};
