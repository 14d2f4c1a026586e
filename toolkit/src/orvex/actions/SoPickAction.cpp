#include <Orvex/actions/SoPickAction.h>

#include <Orvex/elements/SoViewportRegionElement.h>
#include <Orvex/nodes/SoNode.h>

SO_ACTION_SOURCE(SoPickAction)

void SoPickAction::initClass() {
  SO_ACTION_INIT_CLASS(SoPickAction, SoAction);
  SO_ACTION_ADD_METHOD(SoNode, &SoNode::pickS);
}

SoPickAction::SoPickAction(const SbViewportRegion& region) : m_viewport(region) {}
SoPickAction::~SoPickAction() = default;

void SoPickAction::beginTraversal(SoNode* node) {
  SoViewportRegionElement::set(getState(), m_viewport);
  traverse(node);
}
