#include <Orvex/nodes/SoNode.h>

#include <Orvex/SoNodeList.h>
#include <Orvex/SoPath.h>
#include <Orvex/SoOutput.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/fields/SoFieldData.h>
#include <Orvex/misc/SoBaseList.h>

#include <atomic>

namespace {
std::atomic<uint64_t> s_nodeIdCounter{0};
const SoFieldData* s_nodeFieldData = nullptr;  // plain nodes have no fields
}  // namespace

SoType SoNode::s_classTypeId;
int SoNode::s_nextActionMethodIndex = 0;

SoNode::SoNode() : m_nodeId(++s_nodeIdCounter) {}
SoNode::~SoNode() = default;

SoType SoNode::getClassTypeId() { return s_classTypeId; }

void SoNode::initClass() {
  SoFieldContainer::initClass();
  if (!s_classTypeId.isBad()) return;
  s_classTypeId = SoType::createType(SoFieldContainer::getClassTypeId(), "Node", nullptr,
                                     static_cast<short>(s_nextActionMethodIndex));
  ++s_nextActionMethodIndex;
}

int SoNode::getNextActionMethodIndex() { return s_nextActionMethodIndex; }
void SoNode::incNextActionMethodIndex() { ++s_nextActionMethodIndex; }
void SoNode::setNextActionMethodIndex(int index) { s_nextActionMethodIndex = index; }

int SoNode::getTypeActionMethodIndex() const { return getTypeId().getData(); }

const SoFieldData* SoNode::getFieldData() const { return s_nodeFieldData; }
const SoFieldData** SoNode::getFieldDataPtr() { return &s_nodeFieldData; }

void SoNode::setOverride(bool state) {
  if (m_override == state) return;
  m_override = state;
  touch();
}

bool SoNode::isOverride() const { return m_override; }

SoNode* SoNode::copy(bool copyConnections) const {
  initCopyDict();
  auto* result = static_cast<SoNode*>(findCopy(this, copyConnections));
  if (result) result->ref();
  copyDone();
  if (result) result->unrefNoDelete();
  return result;
}

bool SoNode::affectsState() const { return true; }

void SoNode::touch() {
  SoNotList list;
  SoNotRec rec(this);
  list.append(&rec);
  notify(&list);
}

SoNode* SoNode::getByName(const SbName& name) {
  return static_cast<SoNode*>(SoBase::getNamedBase(name, getClassTypeId()));
}

int SoNode::getByName(const SbName& name, SoNodeList& list) {
  SoBaseList found;
  const int n = SoBase::getNamedBases(name, found, getClassTypeId());
  for (int i = 0; i < n; ++i) list.append(static_cast<SoNode*>(found[i]));
  return n;
}

void SoNode::doAction(SoAction*) {}

void SoNode::search(SoSearchAction* action) {
  if (action->isMatch(this)) action->addPath(action->getCurPath()->copy());
}

void SoNode::write(SoWriteAction* action) {
  SoOutput* out = action->getOutput();
  const SoFieldData* fd = getFieldData();
  if (out->getStage() == SoOutput::COUNTREFS) {
    if (addWriteReference(out) && fd) fd->countWriteRefs(out, this);
    return;
  }
  if (writeHeader(out, false, false)) return;
  if (fd)
    fd->write(out, this);
  else if (out->isBinary())
    out->write(0);
  writeFooter(out);
}

// The render action is only declared here (its code, and its run-time type
// information, are in orvexgl, which this library does not link). It derives
// from SoAction alone, so its address is that of its SoAction.
void SoNode::GLRender(SoGLRenderAction* action) { doAction(reinterpret_cast<SoAction*>(action)); }
void SoNode::GLRenderBelowPath(SoGLRenderAction* action) { GLRender(action); }
void SoNode::GLRenderInPath(SoGLRenderAction* action) { GLRender(action); }
void SoNode::GLRenderOffPath(SoGLRenderAction* action) { GLRender(action); }

// GLRenderS is defined with the render action, in orvexgl: it converts the
// action to its class, which this library only declares.

void SoNode::doActionS(SoAction* action, SoNode* node) { node->doAction(action); }
void SoNode::searchS(SoAction* action, SoNode* node) { node->search(static_cast<SoSearchAction*>(action)); }
void SoNode::writeS(SoAction* action, SoNode* node) { node->write(static_cast<SoWriteAction*>(action)); }

SoChildList* SoNode::getChildren() const { return nullptr; }

void SoNode::notify(SoNotList* list) {
  m_nodeId = ++s_nodeIdCounter;
  if (!list->getFirstRecAtNode()) list->setFirstRecAtNode(list->getLastRec());
  SoFieldContainer::notify(list);
}

void SoNode::copyContents(const SoFieldContainer* from, bool copyConnections) {
  SoFieldContainer::copyContents(from, copyConnections);
  m_override = static_cast<const SoNode*>(from)->m_override;
}

SoFieldContainer* SoNode::copyThroughConnection() const { return SoFieldContainer::copyThroughConnection(); }

bool SoNode::readInstance(SoInput* in, unsigned short flags) { return SoFieldContainer::readInstance(in, flags); }

void SoNode::writeInstance(SoOutput* out) {
  SoWriteAction action(out);
  action.continueToApply(this);
}
