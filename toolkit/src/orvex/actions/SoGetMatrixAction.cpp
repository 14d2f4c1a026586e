#include <Orvex/actions/SoGetMatrixAction.h>

#include <Orvex/nodes/SoNode.h>

SO_ACTION_SOURCE(SoGetMatrixAction)

void SoGetMatrixAction::initClass() {
  SO_ACTION_INIT_CLASS(SoGetMatrixAction, SoAction);
  SO_ACTION_ADD_METHOD(SoNode, &SoNode::getMatrixS);
}

SoGetMatrixAction::SoGetMatrixAction(const SbViewportRegion& region) : m_viewport(region) {
  SO_ACTION_CONSTRUCTOR(SoGetMatrixAction);
}

SoGetMatrixAction::~SoGetMatrixAction() = default;

void SoGetMatrixAction::beginTraversal(SoNode* node) {
  reset();
  m_textureMatrix.makeIdentity();
  m_textureInverse.makeIdentity();
  traverse(node);
}

void SoGetMatrixAction::mult(const SbMatrix& matrix, const SbMatrix& inverse) {
  m_matrix.multLeft(matrix);
  m_inverse.multRight(inverse);
}

void SoGetMatrixAction::multTexture(const SbMatrix& matrix, const SbMatrix& inverse) {
  m_textureMatrix.multLeft(matrix);
  m_textureInverse.multRight(inverse);
}

void SoGetMatrixAction::reset() {
  m_matrix.makeIdentity();
  m_inverse.makeIdentity();
}
