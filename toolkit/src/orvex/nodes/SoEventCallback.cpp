#include <Orvex/nodes/SoEventCallback.h>

#include <Orvex/SoPath.h>
#include <Orvex/SoPickedPoint.h>
#include <Orvex/actions/SoHandleEventAction.h>
#include <Orvex/events/SoEvent.h>

#include <algorithm>

SO_NODE_SOURCE(SoEventCallback)

SoEventCallback::SoEventCallback() { SO_NODE_CONSTRUCTOR(SoEventCallback); }

SoEventCallback::~SoEventCallback() {
  if (m_path) m_path->unref();
}

void SoEventCallback::initClass() { SO_NODE_INIT_CLASS(SoEventCallback, SoNode, "Node"); }

void SoEventCallback::setPath(SoPath* path) {
  if (path) path->ref();
  if (m_path) m_path->unref();
  m_path = path;
}

void SoEventCallback::addEventCallback(SoType eventType, SoEventCallbackCB* f, void* userData) {
  m_callbacks.push_back({eventType, f, userData});
}

void SoEventCallback::removeEventCallback(SoType eventType, SoEventCallbackCB* f, void* userData) {
  auto it = std::find_if(m_callbacks.begin(), m_callbacks.end(), [&](const Callback& c) {
    return c.type == eventType && c.function == f && c.data == userData;
  });
  if (it != m_callbacks.end()) m_callbacks.erase(it);
}

const SoEvent* SoEventCallback::getEvent() const { return m_action ? m_action->getEvent() : nullptr; }

const SoPickedPoint* SoEventCallback::getPickedPoint() const {
  return m_action ? m_action->getPickedPoint() : nullptr;
}

void SoEventCallback::setHandled() {
  if (m_action) m_action->setHandled();
}

bool SoEventCallback::isHandled() const { return m_action && m_action->isHandled(); }

void SoEventCallback::grabEvents() {
  if (m_action) m_action->setGrabber(this);
}

void SoEventCallback::releaseEvents() {
  if (m_action && m_action->getGrabber() == this) m_action->releaseGrabber();
}

void SoEventCallback::handleEvent(SoHandleEventAction* action) {
  const SoEvent* event = action->getEvent();
  if (!event || m_callbacks.empty()) return;
  bool wanted = false;
  for (const Callback& c : m_callbacks) wanted = wanted || event->isOfType(c.type);
  if (!wanted) return;
  if (m_path) {
    // Only events over the path: the pick must run through it.
    const SoPickedPoint* pp = action->getPickedPoint();
    if (!pp || !pp->getPath()->containsPath(m_path)) return;
  }
  ref();  // a function may remove this node from the graph
  SoHandleEventAction* previous = m_action;
  m_action = action;
  // A copy: functions may add or remove functions.
  const std::vector<Callback> callbacks = m_callbacks;
  for (const Callback& c : callbacks)
    if (event->isOfType(c.type)) c.function(c.data, this);
  m_action = previous;
  unref();
}
