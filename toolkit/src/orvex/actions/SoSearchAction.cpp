#include <Orvex/actions/SoSearchAction.h>

#include <Orvex/SoPath.h>
#include <Orvex/nodes/SoNode.h>

SO_ACTION_SOURCE(SoSearchAction)

void SoSearchAction::initClass() {
  SO_ACTION_INIT_CLASS(SoSearchAction, SoAction);
  SO_ACTION_ADD_METHOD(SoNode, SoNode::searchS);
}

SoSearchAction::SoSearchAction() { SO_ACTION_CONSTRUCTOR(SoSearchAction); }

SoSearchAction::~SoSearchAction() {
  clearResults();
  if (m_node) m_node->unref();
}

void SoSearchAction::reset() {
  m_lookingFor = 0;
  if (m_node) m_node->unref();
  m_node = nullptr;
  m_type = SoType::badType();
  m_derivedIsOk = true;
  m_name = SbName();
  m_interest = FIRST;
  m_searchingAll = false;
  clearResults();
}

void SoSearchAction::clearResults() {
  m_found = false;
  if (m_path) m_path->unref();
  m_path = nullptr;
  m_paths.truncate(0);
}

void SoSearchAction::setNode(SoNode* node) {
  if (node) node->ref();
  if (m_node) m_node->unref();
  m_node = node;
  m_lookingFor |= NODE;
}

void SoSearchAction::setType(SoType type, bool derivedIsOk) {
  m_type = type;
  m_derivedIsOk = derivedIsOk;
  m_lookingFor |= TYPE;
}

SoType SoSearchAction::getType(bool& derivedIsOk) const {
  derivedIsOk = m_derivedIsOk;
  return m_type;
}

void SoSearchAction::setName(const SbName& name) {
  m_name = name;
  m_lookingFor |= NAME;
}

bool SoSearchAction::isMatch(const SoNode* node) const {
  if (m_lookingFor == 0) return false;
  if ((m_lookingFor & NODE) && node != m_node) return false;
  if (m_lookingFor & TYPE) {
    const SoType t = node->getTypeId();
    if (m_derivedIsOk ? !t.isDerivedFrom(m_type) : t != m_type) return false;
  }
  if ((m_lookingFor & NAME) && node->getName() != m_name) return false;
  return true;
}

void SoSearchAction::addPath(SoPath* path) {
  if (!path) return;
  path->ref();
  switch (m_interest) {
    case FIRST:
      if (m_path) m_path->unref();
      m_path = path;
      m_found = true;
      setTerminated(true);
      return;
    case LAST:
      if (m_path) m_path->unref();
      m_path = path;
      m_found = true;
      return;
    case ALL:
      m_paths.append(path);
      path->unref();
      m_found = true;
      return;
  }
}

void SoSearchAction::beginTraversal(SoNode* node) {
  clearResults();
  traverse(node);
}
