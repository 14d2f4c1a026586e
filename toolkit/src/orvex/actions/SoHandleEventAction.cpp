#include <Orvex/actions/SoHandleEventAction.h>

#include <Orvex/SoPickedPoint.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/events/SoEvent.h>
#include <Orvex/nodes/SoNode.h>

#include "EnabledElements.h"

SO_ACTION_SOURCE(SoHandleEventAction)

void SoHandleEventAction::initClass() {
  SO_ACTION_INIT_CLASS(SoHandleEventAction, SoAction);
  SO_ACTION_ADD_METHOD(SoNode, &SoNode::handleEventS);
  orvex::enableShapeElements<SoHandleEventAction>();
}

SoHandleEventAction::SoHandleEventAction(const SbViewportRegion& region) : m_viewport(region) {
  SO_ACTION_CONSTRUCTOR(SoHandleEventAction);
}

SoHandleEventAction::~SoHandleEventAction() {
  releaseGrabber();
  if (m_pickRoot) m_pickRoot->unref();
}

void SoHandleEventAction::setViewportRegion(const SbViewportRegion& region) {
  m_viewport = region;
  m_pickedOne = m_pickedAll = false;
}

void SoHandleEventAction::setEvent(const SoEvent* event) {
  m_event = event;
  m_pickedOne = m_pickedAll = false;
}

void SoHandleEventAction::setHandled() {
  m_handled = true;
  setTerminated(true);
}

void SoHandleEventAction::setGrabber(SoNode* node) {
  if (node == m_grabber) return;
  releaseGrabber();
  if (!node) return;
  node->ref();
  m_grabber = node;
  node->grabEventsSetup();
}

void SoHandleEventAction::releaseGrabber() {
  SoNode* old = m_grabber;
  if (!old) return;
  m_grabber = nullptr;
  old->grabEventsCleanup();
  old->unref();
}

void SoHandleEventAction::setPickRoot(SoNode* node) {
  if (node) node->ref();
  if (m_pickRoot) m_pickRoot->unref();
  m_pickRoot = node;
  m_pickedOne = m_pickedAll = false;
}

void SoHandleEventAction::setPickRadius(float radiusInPixels) {
  m_pickRadius = radiusInPixels;
  m_pickedOne = m_pickedAll = false;
}

void SoHandleEventAction::beginTraversal(SoNode* node) {
  m_handled = false;
  m_appliedTo = node;
  SoViewportRegionElement::set(getState(), m_viewport);
  if (!m_event) return;
  // A grabbing node gets the event alone.
  if (m_grabber) {
    SoNode* grabber = m_grabber;
    grabber->ref();
    traverse(grabber);
    grabber->unref();
  } else {
    traverse(node);
  }
  m_appliedTo = nullptr;
}

void SoHandleEventAction::pick(bool all) {
  SoNode* root = m_pickRoot ? m_pickRoot : m_appliedTo;
  if (!m_event || !root) {
    if (m_pickAction) m_pickAction.reset();
    m_pickedOne = m_pickedAll = true;
    return;
  }
  if (!m_pickAction) m_pickAction = std::make_unique<SoRayPickAction>(m_viewport);
  m_pickAction->setViewportRegion(m_viewport);
  m_pickAction->setPoint(m_event->getPosition());
  m_pickAction->setRadius(m_pickRadius);
  m_pickAction->setPickAll(all);
  m_pickAction->apply(root);
  m_pickedOne = true;
  m_pickedAll = all;
}

const SoPickedPoint* SoHandleEventAction::getPickedPoint() {
  if (!m_pickedOne) pick(false);
  return m_pickAction ? m_pickAction->getPickedPoint(0) : nullptr;
}

const SoPickedPointList& SoHandleEventAction::getPickedPointList() {
  if (!m_pickedAll) pick(true);
  return m_pickAction ? m_pickAction->getPickedPointList() : m_emptyList;
}
