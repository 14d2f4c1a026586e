#include <Orvex/nodes/SoCallback.h>

#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/elements/SoCacheElement.h>

#include <atomic>

namespace {
std::atomic<SoCallback::CopyHook*> g_copyHook{nullptr};
}

SO_NODE_SOURCE(SoCallback)

SoCallback::SoCallback() { SO_NODE_CONSTRUCTOR(SoCallback); }
SoCallback::~SoCallback() = default;

void SoCallback::initClass() { SO_NODE_INIT_CLASS(SoCallback, SoNode, "Node"); }

void SoCallback::setCallback(SoCallbackCB* function, void* userData) {
  m_function = function;
  m_userData = userData;
}

void SoCallback::doAction(SoAction* action) {
  // What the function does cannot be cached.
  if (SoState* state = action->getState()) SoCacheElement::invalidate(state);
  if (m_function) m_function(m_userData, action);
}

void SoCallback::search(SoSearchAction* action) {
  SoNode::search(action);
  doAction(action);
}

// Writing only writes the node: the function is not called.
void SoCallback::write(SoWriteAction* action) { SoNode::write(action); }

void SoCallback::copyContents(const SoFieldContainer* from, bool copyConnections) {
  SoNode::copyContents(from, copyConnections);
  const auto* source = static_cast<const SoCallback*>(from);
  m_function = source->m_function;
  m_userData = source->m_userData;
  if (CopyHook* hook = g_copyHook.load()) hook(this, source);
}

void SoCallback::setCopyHook(CopyHook* hook) { g_copyHook.store(hook); }
