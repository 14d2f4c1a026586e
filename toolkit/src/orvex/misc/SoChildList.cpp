#include <Orvex/misc/SoChildList.h>

#include <Orvex/SoPath.h>
#include <Orvex/actions/SoAction.h>
#include <Orvex/nodes/SoNode.h>

#include <algorithm>

SoChildList::SoChildList(SoNode* parent) : m_parent(parent) {}

SoChildList::SoChildList(SoNode* parent, int size) : SoNodeList(size), m_parent(parent) {}

SoChildList::SoChildList(SoNode* parent, const SoChildList& other) : m_parent(parent) { copy(other); }

SoChildList::~SoChildList() {
  // The parent is going away: it stops auditing its children.
  for (int i = 0; i < getLength(); ++i)
    if (SoNode* child = get(i)) child->removeAuditor(m_parent, SoNotRec::PARENT);
}

void SoChildList::notifyParent(int operation, SoNode* child, int index, SoNode* prevChild) {
  if (!m_parent) return;
  SoNotList list;
  SoNotRec rec(m_parent);
  rec.setType(SoNotRec::CONTAINER);
  rec.setOperationType(static_cast<SoNotRec::OperationType>(operation));
  rec.setGroupChild(child);
  rec.setGroupPrevChild(prevChild);
  rec.setIndex(index);
  list.append(&rec);
  m_parent->notify(&list);
}

void SoChildList::append(SoNode* child) { insert(child, getLength()); }

void SoChildList::insert(SoNode* child, int addBefore) {
  if (!child) return;
  if (addBefore < 0 || addBefore > getLength()) addBefore = getLength();
  SoNodeList::insert(child, addBefore);
  child->addAuditor(m_parent, SoNotRec::PARENT);
  if (m_pathAuditors) {
    const std::vector<SoPath*> paths = *m_pathAuditors;
    for (SoPath* p : paths) p->insertIndex(m_parent, addBefore);
  }
  notifyParent(addBefore == getLength() - 1 ? SoNotRec::GROUP_ADDCHILD : SoNotRec::GROUP_INSERTCHILD, child,
               addBefore, nullptr);
}

void SoChildList::remove(int which) {
  if (which < 0 || which >= getLength()) return;
  SoNode* child = get(which);
  // Kept alive until the notification is done.
  child->ref();
  child->removeAuditor(m_parent, SoNotRec::PARENT);
  SoNodeList::remove(which);
  if (m_pathAuditors) {
    const std::vector<SoPath*> paths = *m_pathAuditors;
    for (SoPath* p : paths) p->removeIndex(m_parent, which);
  }
  notifyParent(SoNotRec::GROUP_REMOVECHILD, child, which, nullptr);
  child->unref();
}

void SoChildList::truncate(int start) {
  if (start < 0) start = 0;
  if (start >= getLength()) return;
  const bool all = start == 0;
  while (getLength() > start) {
    const int which = getLength() - 1;
    SoNode* child = get(which);
    child->removeAuditor(m_parent, SoNotRec::PARENT);
    if (m_pathAuditors) {
      const std::vector<SoPath*> paths = *m_pathAuditors;
      for (SoPath* p : paths) p->removeIndex(m_parent, which);
    }
    SoNodeList::remove(which);
  }
  notifyParent(all ? SoNotRec::GROUP_REMOVEALLCHILDREN : SoNotRec::GROUP_REMOVECHILD, nullptr, start, nullptr);
}

void SoChildList::copy(const SoChildList& other) {
  if (&other == this) return;
  truncate(0);
  for (int i = 0; i < other.getLength(); ++i) append(other.get(i));
}

void SoChildList::set(int which, SoNode* child) {
  if (!child || which < 0) return;
  if (which >= getLength()) {
    append(child);
    return;
  }
  SoNode* old = get(which);
  if (old == child) return;
  old->ref();
  old->removeAuditor(m_parent, SoNotRec::PARENT);
  SoNodeList::set(which, child);
  child->addAuditor(m_parent, SoNotRec::PARENT);
  if (m_pathAuditors) {
    const std::vector<SoPath*> paths = *m_pathAuditors;
    for (SoPath* p : paths) p->replaceIndex(m_parent, which, child);
  }
  notifyParent(SoNotRec::GROUP_REPLACECHILD, child, which, old);
  old->unref();
}

// ---- traversal ---------------------------------------------------------------------

void SoChildList::traverse(SoAction* action, int firstChild, int lastChild) {
  if (firstChild < 0) firstChild = 0;
  if (lastChild >= getLength()) lastChild = getLength() - 1;
  const SoAction::PathCode code = action->getCurPathCode();
  for (int i = firstChild; i <= lastChild; ++i) {
    SoNode* child = get(i);
    action->pushCurPath(i, child);
    // Off the path only what changes the state matters.
    if (action->getCurPathCode() != SoAction::OFF_PATH || child->affectsState()) action->traverse(child);
    action->popCurPath(code);
    if (action->hasTerminated()) break;
    if (action->isActionStoppedInBranch()) {
      action->resetStopActionInBranch();
      break;
    }
  }
}

void SoChildList::traverse(SoAction* action) { traverse(action, 0, getLength() - 1); }

void SoChildList::traverse(SoAction* action, int childIndex) { traverse(action, childIndex, childIndex); }

void SoChildList::traverse(SoAction* action, SoNode* node) {
  const int index = find(node);
  if (index >= 0) traverse(action, index, index);
}

void SoChildList::addPathAuditor(SoPath* path) {
  if (!m_pathAuditors) m_pathAuditors = std::make_unique<std::vector<SoPath*>>();
  m_pathAuditors->push_back(path);
}

void SoChildList::removePathAuditor(SoPath* path) {
  if (!m_pathAuditors) return;
  auto it = std::find(m_pathAuditors->begin(), m_pathAuditors->end(), path);
  if (it != m_pathAuditors->end()) m_pathAuditors->erase(it);
  if (m_pathAuditors->empty()) m_pathAuditors.reset();
}
