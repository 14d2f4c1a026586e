#include <Orvex/actions/SoGetPrimitiveCountAction.h>

#include <Orvex/nodes/SoNode.h>

#include "EnabledElements.h"

SO_ACTION_SOURCE(SoGetPrimitiveCountAction)

void SoGetPrimitiveCountAction::initClass() {
  SO_ACTION_INIT_CLASS(SoGetPrimitiveCountAction, SoAction);
  SO_ACTION_ADD_METHOD(SoNode, &SoNode::getPrimitiveCountS);
  orvex::enableShapeElements<SoGetPrimitiveCountAction>();
}

SoGetPrimitiveCountAction::SoGetPrimitiveCountAction() { SO_ACTION_CONSTRUCTOR(SoGetPrimitiveCountAction); }
SoGetPrimitiveCountAction::~SoGetPrimitiveCountAction() = default;

bool SoGetPrimitiveCountAction::containsNoPrimitives() const {
  return m_triangles == 0 && m_lines == 0 && m_points == 0 && m_texts == 0 && m_images == 0;
}

void SoGetPrimitiveCountAction::beginTraversal(SoNode* node) {
  m_triangles = m_lines = m_points = m_texts = m_images = 0;
  m_nonTriangles = false;
  traverse(node);
}
