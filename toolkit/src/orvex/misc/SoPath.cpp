#include <Orvex/SoPath.h>

#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/SoPathList.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/misc/SoChildList.h>
#include <Orvex/nodes/SoNode.h>

#include <algorithm>
#include <vector>

#include "../io/ReadObject.h"

namespace {
SoType s_pathType;
}

SoPath::SoPath() = default;

SoPath::SoPath(int approxLength) : m_nodes(approxLength > 0 ? approxLength : 4) {
  if (approxLength > 0) m_indices.reserve(static_cast<size_t>(approxLength));
}

SoPath::SoPath(SoNode* head) { setHead(head); }

SoPath::~SoPath() { truncate(0); }

SoType SoPath::getClassTypeId() { return s_pathType; }
SoType SoPath::getTypeId() const { return s_pathType; }

void SoPath::initClass() {
  SoBase::initClass();
  if (s_pathType.isBad())
    s_pathType = SoType::createType(SoBase::getClassTypeId(), "Path", [] { return static_cast<void*>(static_cast<SoBase*>(new SoPath)); });
}

void SoPath::setHead(SoNode* node) {
  truncate(0);
  if (!node) return;
  appendNode(node, -1);
}

SoNode* SoPath::getHead() const { return getLength() ? m_nodes[0] : nullptr; }

void SoPath::appendNode(SoNode* node, int index) {
  const int n = getLength();
  if (n == 0) {
    m_nodes.append(node);
    m_indices.push_back(-1);
    node->addAuditor(this, SoNotRec::PARENT);
    return;
  }
  // The former tail becomes a parent on the path.
  if (SoChildList* children = getTail()->getChildren()) children->addPathAuditor(this);
  m_nodes.append(node);
  m_indices.push_back(index);
}

void SoPath::append(int childIndex) {
  SoNode* tail = getTail();
  SoChildList* children = tail ? tail->getChildren() : nullptr;
  if (!children || childIndex < 0 || childIndex >= children->getLength()) {
    SoDebugError::post("SoPath::append", "Child index %d is out of range", childIndex);
    return;
  }
  appendNode(children->get(childIndex), childIndex);
}

void SoPath::append(SoNode* childNode) {
  SoNode* tail = getTail();
  SoChildList* children = tail ? tail->getChildren() : nullptr;
  const int index = children ? children->find(childNode) : -1;
  if (index < 0) {
    SoDebugError::post("SoPath::append", "The node is not a child of the path's tail");
    return;
  }
  appendNode(childNode, index);
}

void SoPath::append(const SoPath* fromPath) {
  if (!fromPath || fromPath->getLength() == 0) return;
  if (fromPath->getHead() != getTail()) {
    SoDebugError::post("SoPath::append", "The path to append does not start at this path's tail");
    return;
  }
  for (int i = 1; i < fromPath->getLength(); ++i) append(fromPath->getIndex(i));
}

SoNode* SoPath::getTail() const { return getLength() ? m_nodes[getLength() - 1] : nullptr; }

SoNode* SoPath::getNode(int i) const { return i >= 0 && i < getLength() ? m_nodes[i] : nullptr; }

SoNode* SoPath::getNodeFromTail(int i) const { return getNode(getLength() - 1 - i); }

int SoPath::getIndex(int i) const { return i >= 0 && i < getLength() ? m_indices[static_cast<size_t>(i)] : -1; }

int SoPath::getIndexFromTail(int i) const { return getIndex(getLength() - 1 - i); }

int SoPath::getLength() const { return m_nodes.getLength(); }

void SoPath::truncate(int start) {
  if (start < 0) start = 0;
  const int n = getLength();
  if (start >= n) return;
  // Nodes that stop being parents on the path (all from start - 1 on) stop
  // reporting to it.
  for (int i = std::max(start - 1, 0); i + 1 < n; ++i)
    if (SoChildList* children = getNode(i)->getChildren()) children->removePathAuditor(this);
  if (start == 0) getHead()->removeAuditor(this, SoNotRec::PARENT);
  m_nodes.truncate(start);
  m_indices.resize(static_cast<size_t>(start));
}

bool SoPath::containsNode(const SoNode* node) const { return findNode(node) >= 0; }

bool SoPath::containsNode(SoType type) const {
  for (int i = 0; i < getLength(); ++i)
    if (getNode(i)->isOfType(type)) return true;
  return false;
}

bool SoPath::containsPath(const SoPath* path) const {
  if (!path || path->getLength() == 0) return false;
  const int start = findNode(path->getHead());
  if (start < 0 || start + path->getLength() > getLength()) return false;
  for (int i = 1; i < path->getLength(); ++i)
    if (getIndex(start + i) != path->getIndex(i) || getNode(start + i) != path->getNode(i)) return false;
  return true;
}

int SoPath::findFork(const SoPath* path) const {
  if (!path || getLength() == 0 || path->getLength() == 0 || getHead() != path->getHead()) return -1;
  const int n = std::min(getLength(), path->getLength());
  int i = 1;
  while (i < n && getIndex(i) == path->getIndex(i)) ++i;
  return i - 1;
}

int SoPath::findNode(const SoNode* node) const {
  for (int i = 0; i < getLength(); ++i)
    if (m_nodes[i] == node) return i;
  return -1;
}

SoPath* SoPath::copy(int startFromNodeIndex, int numNodes) const {
  if (startFromNodeIndex < 0) startFromNodeIndex = 0;
  if (numNodes <= 0 || startFromNodeIndex + numNodes > getLength()) numNodes = getLength() - startFromNodeIndex;
  auto* result = new SoPath(numNodes > 0 ? numNodes : 1);
  if (numNodes <= 0) return result;
  result->setHead(getNode(startFromNodeIndex));
  for (int i = 1; i < numNodes; ++i) result->appendNode(getNode(startFromNodeIndex + i), getIndex(startFromNodeIndex + i));
  return result;
}

bool operator==(const SoPath& a, const SoPath& b) {
  if (&a == &b) return true;
  if (a.getLength() != b.getLength()) return false;
  for (int i = 0; i < a.getLength(); ++i)
    if (a.getNode(i) != b.getNode(i) || a.getIndex(i) != b.getIndex(i)) return false;
  return true;
}

SoPath* SoPath::getByName(const SbName& name) {
  return static_cast<SoPath*>(SoBase::getNamedBase(name, getClassTypeId()));
}

int SoPath::getByName(const SbName& name, SoPathList& list) {
  SoBaseList found;
  const int n = SoBase::getNamedBases(name, found, getClassTypeId());
  for (int i = 0; i < n; ++i) list.append(static_cast<SoPath*>(found[i]));
  return n;
}

// ---- following the graph ----------------------------------------------------------

void SoPath::insertIndex(SoNode* parent, int newIndex) {
  const int i = findNode(parent);
  if (i < 0 || i + 1 >= getLength()) return;
  if (m_indices[static_cast<size_t>(i + 1)] >= newIndex) ++m_indices[static_cast<size_t>(i + 1)];
}

void SoPath::removeIndex(SoNode* parent, int oldIndex) {
  const int i = findNode(parent);
  if (i < 0 || i + 1 >= getLength()) return;
  int& index = m_indices[static_cast<size_t>(i + 1)];
  if (index == oldIndex)
    truncate(i + 1);
  else if (index > oldIndex)
    --index;
}

void SoPath::replaceIndex(SoNode* parent, int index, SoNode* newChild) {
  const int i = findNode(parent);
  if (i < 0 || i + 1 >= getLength()) return;
  if (m_indices[static_cast<size_t>(i + 1)] == index) {
    // The path now runs through the new child and ends there.
    truncate(i + 1);
    appendNode(newChild, index);
  }
}

// ---- notification ------------------------------------------------------------------

bool SoPath::isRelevantNotification(SoNotList* list) const {
  // Records run from the change to the newest one. The newest is this
  // path's own record, the one before it the head's; each record's type
  // tells how the notification reached its object: PARENT from a child
  // (the record before), FIELD from an object a field refers to,
  // CONTAINER from a change of the object itself.
  std::vector<const SoNotRec*> chain;
  for (const SoNotRec* rec = list->getLastRec(); rec; rec = rec->getPrevious()) chain.push_back(rec);
  size_t k = 0;
  if (k < chain.size() && chain[k]->getBase() == this) ++k;
  if (k >= chain.size() || chain[k]->getBase() != getHead()) return false;
  int depth = 0;
  for (;; ++k) {
    const SoNotRec* rec = chain[k];
    // A change of the node itself or of what its fields refer to.
    if (rec->getType() != SoNotRec::PARENT || k + 1 >= chain.size()) return true;
    // A change below this node: at or under the tail it matters.
    if (depth + 1 >= getLength()) return true;
    const SoBase* child = chain[k + 1]->getBase();
    if (child == getNode(depth + 1)) {
      ++depth;
      continue;
    }
    // Off the path: a child left of the path's child affects its state.
    const SoChildList* children = getNode(depth)->getChildren();
    if (!children) return false;
    for (int i = 0; i < children->getLength() && i < getIndex(depth + 1); ++i)
      if (children->get(i) == child) return children->get(i)->affectsState();
    return false;
  }
}

void SoPath::notify(SoNotList* list) {
  if (!isRelevantNotification(list)) return;
  SoBase::notify(list);
}

// ---- reading and writing -------------------------------------------------------------

bool SoPath::readInstance(SoInput* in, unsigned short) {
  SoBase* head = nullptr;
  const orvex::ReadResult r = orvex::readObject(in, head, SoNode::getClassTypeId());
  if (r == orvex::ReadResult::END) {
    SoReadError::post(in, "Premature end of file in a path");
    return false;
  }
  if (r == orvex::ReadResult::FAIL) return false;
  if (!head) {
    SoReadError::post(in, "A path needs a head node");
    return false;
  }
  setHead(static_cast<SoNode*>(head));
  head->unref();
  int numIndices = 0;
  if (!in->read(numIndices) || numIndices < 0) {
    SoReadError::post(in, "Couldn't read the number of path indices");
    return false;
  }
  for (int i = 0; i < numIndices; ++i) {
    int index;
    if (!in->read(index)) {
      SoReadError::post(in, "Couldn't read path index %d", i);
      return false;
    }
    SoChildList* children = getTail()->getChildren();
    if (!children || index < 0 || index >= children->getLength()) {
      SoReadError::post(in, "Path index %d is out of range", index);
      return false;
    }
    append(index);
  }
  return true;
}

void SoPath::writeInstance(SoOutput* out) {
  if (out->getStage() == SoOutput::COUNTREFS) {
    if (addWriteReference(out) && getHead()) {
      SoWriteAction action(out);
      action.continueToApply(getHead());
    }
    return;
  }
  if (writeHeader(out, false, false)) return;
  if (getHead()) {
    SoWriteAction action(out);
    action.continueToApply(getHead());
  } else {
    out->indent();
    out->write("NULL");
    out->endLine();
  }
  if (!out->isBinary()) out->indent();
  out->write(getLength() > 0 ? getLength() - 1 : 0);
  for (int i = 1; i < getLength(); ++i) {
    if (!out->isBinary()) out->write(' ');
    out->write(getIndex(i));
  }
  out->endLine();
  writeFooter(out);
}
