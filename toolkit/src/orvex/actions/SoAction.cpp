#include <Orvex/actions/SoAction.h>

#include <Orvex/SoPath.h>
#include <Orvex/SoPathList.h>
#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/actions/SoGetMatrixAction.h>
#include <Orvex/actions/SoGetPrimitiveCountAction.h>
#include <Orvex/actions/SoHandleEventAction.h>
#include <Orvex/actions/SoPickAction.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/misc/SoChildList.h>
#include <Orvex/misc/SoState.h>
#include <Orvex/nodes/SoNode.h>

namespace {
SoType s_actionType;
SoEnabledElementsList* s_actionElements = nullptr;
SoActionMethodList* s_actionMethods = nullptr;
}  // namespace

SoAction::SoAction() = default;

SoAction::~SoAction() {
  if (m_curPathCache) m_curPathCache->unref();
}

SoType SoAction::getClassTypeId() { return s_actionType; }

void SoAction::initClass() {
  SoTypedObject::initClass();
  if (!s_actionType.isBad()) return;
  s_actionType = SoType::createType(SoTypedObject::getClassTypeId(), "SoAction");
  s_actionElements = new SoEnabledElementsList(nullptr);
  s_actionMethods = new SoActionMethodList(nullptr);
  // Node classes an action class does not handle are passed over.
  s_actionMethods->addMethod(SoNode::getClassTypeId(), &SoAction::nullAction);
}

void SoAction::initClasses() {
  initClass();
  SoSearchAction::initClass();
  SoWriteAction::initClass();
  SoCallbackAction::initClass();
  SoGetBoundingBoxAction::initClass();
  SoGetMatrixAction::initClass();
  SoGetPrimitiveCountAction::initClass();
  SoHandleEventAction::initClass();
  SoPickAction::initClass();
  SoRayPickAction::initClass();
}

SoEnabledElementsList* SoAction::getClassEnabledElements() { return s_actionElements; }
SoActionMethodList* SoAction::getClassActionMethods() { return s_actionMethods; }
const SoEnabledElementsList& SoAction::getEnabledElements() const { return *s_actionElements; }
void SoAction::enableElement(SoType elementType, int stackIndex) { s_actionElements->enable(elementType, stackIndex); }

void SoAction::nullAction(SoAction*, SoNode*) {}

// ---- applying --------------------------------------------------------------------

namespace {
// What an application replaces, so that an action can be applied again from
// inside its own traversal (a callback applying the same action elsewhere).
struct SavedApplication {
  SoAction::AppliedCode code;
  SoNode* node;
  SoPath* path;
  const SoPathList* pathList;
};
}  // namespace

void SoAction::apply(SoNode* node) {
  if (!node) return;
  if (m_isBeingApplied) {
    // A nested application runs with its own traversal data.
    auto savedNodes = std::move(m_curNodes);
    auto savedIndices = std::move(m_curIndices);
    auto savedCodes = std::move(m_codeStack);
    const PathCode savedCode = m_curPathCode;
    const SavedApplication saved{m_appliedCode, m_appliedNode, m_appliedPath, m_appliedPathList};
    auto savedState = std::move(m_state);
    m_isBeingApplied = false;
    apply(node);
    m_isBeingApplied = true;
    m_state = std::move(savedState);
    m_appliedCode = saved.code;
    m_appliedNode = saved.node;
    m_appliedPath = saved.path;
    m_appliedPathList = saved.pathList;
    m_curNodes = std::move(savedNodes);
    m_curIndices = std::move(savedIndices);
    m_codeStack = std::move(savedCodes);
    m_curPathCode = savedCode;
    m_curPathDirty = true;
    m_terminated = false;
    return;
  }
  node->ref();
  m_appliedCode = NODE;
  m_appliedNode = node;
  m_appliedPath = nullptr;
  m_appliedPathList = nullptr;
  m_curPathCode = NO_PATH;
  m_terminated = false;
  m_stopBranch = false;
  m_isBeingApplied = true;
  setUpState();
  m_curNodes.assign(1, node);
  m_curIndices.assign(1, -1);
  m_codeStack.clear();
  m_curPathDirty = true;
  beginTraversal(node);
  endTraversal(node);
  m_isBeingApplied = false;
  m_curNodes.clear();
  m_curIndices.clear();
  m_curPathDirty = true;
  releaseCurPath();
  m_state.reset();
  node->unrefNoDelete();
}

void SoAction::applyToPath(SoPath* path) {
  SoNode* head = path->getHead();
  m_appliedNode = head;
  m_appliedPath = path;
  m_curPathCode = path->getLength() == 1 ? BELOW_PATH : IN_PATH;
  m_terminated = false;
  m_stopBranch = false;
  m_isBeingApplied = true;
  setUpState();
  m_curNodes.assign(1, head);
  m_curIndices.assign(1, -1);
  m_codeStack.clear();
  m_curPathDirty = true;
  beginTraversal(head);
  endTraversal(head);
  m_isBeingApplied = false;
  m_curNodes.clear();
  m_curIndices.clear();
  m_curPathDirty = true;
  releaseCurPath();
  m_state.reset();
}

// The current path references nodes; it lets them go once the traversal ends.
void SoAction::releaseCurPath() {
  if (m_curPathCache) m_curPathCache->truncate(0);
}

void SoAction::apply(SoPath* path) {
  if (!path || path->getLength() == 0 || m_isBeingApplied) return;
  path->ref();
  m_appliedCode = PATH;
  m_appliedPathList = nullptr;
  applyToPath(path);
  path->unrefNoDelete();
}

void SoAction::apply(const SoPathList& pathList, bool) {
  if (m_isBeingApplied) return;
  // The list keeps its paths alive; a copy protects against changes to the
  // caller's list during the traversal.
  SoPathList paths(pathList);
  m_appliedCode = PATH_LIST;
  m_appliedPathList = &pathList;
  for (int i = 0; i < paths.getLength(); ++i) {
    SoPath* path = paths[i];
    if (!path || path->getLength() == 0) continue;
    m_lastPathListPath = i == paths.getLength() - 1;
    applyToPath(path);
    m_appliedCode = PATH_LIST;
    if (m_terminated) break;
  }
  m_appliedPathList = nullptr;
  m_lastPathListPath = false;
}

void SoAction::invalidateState() { m_state.reset(); }

void SoAction::setUpState() {
  if (!m_state || m_stateCounter != SoEnabledElementsList::getCounter()) {
    m_state = std::make_unique<SoState>(this, getEnabledElements().getElements());
    m_stateCounter = SoEnabledElementsList::getCounter();
  }
}

void SoAction::beginTraversal(SoNode* node) { traverse(node); }

// ---- traversal ---------------------------------------------------------------------

void SoAction::traverse(SoNode* node) {
  if (!node || m_terminated) return;
  SoActionMethod method = (*traversalMethods)[node->getTypeActionMethodIndex()];
  if (method) method(this, node);
}

SoAction::PathCode SoAction::getPathCode(int& numIndices, const int*& indices) {
  if (m_curPathCode == IN_PATH && m_appliedPath) {
    const size_t depth = m_curNodes.size();
    m_pathIndex = m_appliedPath->getIndex(static_cast<int>(depth));
    numIndices = 1;
    indices = &m_pathIndex;
  } else {
    numIndices = 0;
    indices = nullptr;
  }
  return m_curPathCode;
}

void SoAction::pushCurPath(int childIndex, SoNode* node) {
  m_codeStack.push_back(m_curPathCode);
  if (!node && !m_curNodes.empty()) {
    if (SoChildList* children = m_curNodes.back()->getChildren()) node = children->get(childIndex);
  }
  if (m_curPathCode == IN_PATH && m_appliedPath) {
    const int depth = static_cast<int>(m_curNodes.size());
    if (m_appliedPath->getIndex(depth) == childIndex)
      m_curPathCode = depth == m_appliedPath->getLength() - 1 ? BELOW_PATH : IN_PATH;
    else
      m_curPathCode = OFF_PATH;
  }
  m_curNodes.push_back(node);
  m_curIndices.push_back(childIndex);
  m_curPathDirty = true;
}

void SoAction::popCurPath(PathCode prevPathCode) {
  if (m_curNodes.size() <= 1) return;
  m_curNodes.pop_back();
  m_curIndices.pop_back();
  if (!m_codeStack.empty()) m_codeStack.pop_back();
  m_curPathCode = prevPathCode;
  m_curPathDirty = true;
}

void SoAction::popCurPath() { popCurPath(m_codeStack.empty() ? m_curPathCode : m_codeStack.back()); }

SoNode* SoAction::getCurPathTail() const { return m_curNodes.empty() ? nullptr : m_curNodes.back(); }

const SoPath* SoAction::getCurPath() {
  if (!m_curPathDirty && m_curPathCache) return m_curPathCache;
  if (!m_curPathCache) {
    m_curPathCache = new SoPath(static_cast<int>(m_curNodes.size()));
    m_curPathCache->ref();
  }
  m_curPathCache->truncate(0);
  if (!m_curNodes.empty()) {
    m_curPathCache->setHead(m_curNodes[0]);
    for (size_t i = 1; i < m_curNodes.size(); ++i) m_curPathCache->append(m_curIndices[i]);
  }
  m_curPathDirty = false;
  return m_curPathCache;
}
