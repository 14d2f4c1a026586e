// The node's share of the traversal actions beyond searching and writing.

#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/actions/SoGetMatrixAction.h>
#include <Orvex/actions/SoGetPrimitiveCountAction.h>
#include <Orvex/actions/SoHandleEventAction.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/nodes/SoNode.h>

void SoNode::callback(SoCallbackAction* action) { doAction(action); }
void SoNode::getBoundingBox(SoGetBoundingBoxAction* action) { doAction(action); }
void SoNode::getMatrix(SoGetMatrixAction* action) { doAction(action); }
void SoNode::handleEvent(SoHandleEventAction* action) { doAction(action); }
void SoNode::pick(SoPickAction* action) { doAction(action); }
void SoNode::rayPick(SoRayPickAction* action) { pick(action); }
void SoNode::getPrimitiveCount(SoGetPrimitiveCountAction* action) { doAction(action); }

void SoNode::callbackS(SoAction* action, SoNode* node) { node->callback(static_cast<SoCallbackAction*>(action)); }

void SoNode::getBoundingBoxS(SoAction* action, SoNode* node) {
  auto* bboxAction = static_cast<SoGetBoundingBoxAction*>(action);
  bboxAction->checkResetBefore();
  node->getBoundingBox(bboxAction);
  bboxAction->checkResetAfter();
}

void SoNode::getMatrixS(SoAction* action, SoNode* node) { node->getMatrix(static_cast<SoGetMatrixAction*>(action)); }

void SoNode::handleEventS(SoAction* action, SoNode* node) {
  node->handleEvent(static_cast<SoHandleEventAction*>(action));
}

void SoNode::pickS(SoAction* action, SoNode* node) { node->pick(static_cast<SoPickAction*>(action)); }
void SoNode::rayPickS(SoAction* action, SoNode* node) { node->rayPick(static_cast<SoRayPickAction*>(action)); }

void SoNode::getPrimitiveCountS(SoAction* action, SoNode* node) {
  node->getPrimitiveCount(static_cast<SoGetPrimitiveCountAction*>(action));
}

void SoNode::grabEventsSetup() {}
void SoNode::grabEventsCleanup() {}
