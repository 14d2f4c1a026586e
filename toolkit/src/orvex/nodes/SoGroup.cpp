#include <Orvex/nodes/SoGroup.h>

#include <Orvex/SoInput.h>
#include <Orvex/SoOutput.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/errors/SoReadError.h>

#include "../io/ReadObject.h"

SO_NODE_SOURCE(SoGroup)

SoGroup::SoGroup() : children(this) { SO_NODE_CONSTRUCTOR(SoGroup); }

SoGroup::SoGroup(int nChildren) : children(this, nChildren) { SO_NODE_CONSTRUCTOR(SoGroup); }

SoGroup::~SoGroup() = default;

void SoGroup::initClass() { SO_NODE_INIT_CLASS(SoGroup, SoNode, "Node"); }

void SoGroup::addChild(SoNode* child) {
  if (!child) {
    SoDebugError::post("SoGroup::addChild", "The child is null");
    return;
  }
  children.append(child);
}

void SoGroup::insertChild(SoNode* child, int newChildIndex) {
  if (!child) {
    SoDebugError::post("SoGroup::insertChild", "The child is null");
    return;
  }
  if (newChildIndex < 0 || newChildIndex > getNumChildren()) {
    SoDebugError::post("SoGroup::insertChild", "Index %d is out of range 0 - %d", newChildIndex, getNumChildren());
    return;
  }
  children.insert(child, newChildIndex);
}

SoNode* SoGroup::getChild(int index) const {
  if (index < 0 || index >= getNumChildren()) {
    SoDebugError::post("SoGroup::getChild", "Index %d is out of range 0 - %d", index, getNumChildren() - 1);
    return nullptr;
  }
  return children.get(index);
}

int SoGroup::findChild(const SoNode* child) const { return children.find(child); }

int SoGroup::getNumChildren() const { return children.getLength(); }

void SoGroup::removeChild(int index) {
  if (index < 0 || index >= getNumChildren()) {
    SoDebugError::post("SoGroup::removeChild", "Index %d is out of range 0 - %d", index, getNumChildren() - 1);
    return;
  }
  children.remove(index);
}

void SoGroup::removeChild(SoNode* child) {
  const int index = findChild(child);
  if (index < 0) {
    SoDebugError::post("SoGroup::removeChild", "The node is not a child of this group");
    return;
  }
  children.remove(index);
}

void SoGroup::removeAllChildren() { children.truncate(0); }

void SoGroup::replaceChild(int index, SoNode* newChild) {
  if (!newChild || index < 0 || index >= getNumChildren()) {
    SoDebugError::post("SoGroup::replaceChild", "Bad index %d or null child", index);
    return;
  }
  children.set(index, newChild);
}

void SoGroup::replaceChild(SoNode* oldChild, SoNode* newChild) {
  const int index = findChild(oldChild);
  if (index < 0) {
    SoDebugError::post("SoGroup::replaceChild", "The node is not a child of this group");
    return;
  }
  replaceChild(index, newChild);
}

SoChildList* SoGroup::getChildren() const { return &children; }

void SoGroup::doAction(SoAction* action) {
  int numIndices;
  const int* indices;
  if (action->getPathCode(numIndices, indices) == SoAction::IN_PATH)
    children.traverse(action, 0, indices[numIndices - 1]);
  else
    children.traverse(action);
}

void SoGroup::search(SoSearchAction* action) {
  SoNode::search(action);
  if (action->isFound() && action->getInterest() == SoSearchAction::FIRST) return;
  doAction(action);
}

int SoGroup::getNumChildrenToWrite(SoAction* action) const {
  int numIndices;
  const int* indices;
  if (action->getPathCode(numIndices, indices) != SoAction::IN_PATH) return getNumChildren();
  // On a path: the children up to the path's child that the traversal visits.
  int n = 0;
  for (int i = 0; i <= indices[numIndices - 1] && i < getNumChildren(); ++i)
    if (i == indices[numIndices - 1] || children.get(i)->affectsState()) ++n;
  return n;
}

void SoGroup::write(SoWriteAction* action) {
  SoOutput* out = action->getOutput();
  const SoFieldData* fd = getFieldData();
  if (out->getStage() == SoOutput::COUNTREFS) {
    if (addWriteReference(out)) {
      if (fd) fd->countWriteRefs(out, this);
      doAction(action);
    }
    return;
  }
  if (writeHeader(out, true, false)) return;
  if (fd) fd->write(out, this);
  if (out->isBinary()) out->write(getNumChildrenToWrite(action));
  doAction(action);
  writeFooter(out);
}

bool SoGroup::readInstance(SoInput* in, unsigned short flags) {
  const bool notify = enableNotify(false);
  bool ok = true;
  if (const SoFieldData* fd = getFieldData()) ok = fd->read(in, this, false);
  if (ok) ok = readChildren(in);
  enableNotify(notify);
  return ok;
}

bool SoGroup::readChildren(SoInput* in) {
  int expected = -1;
  if (in->isBinary()) {
    if (!in->read(expected) || expected < 0) {
      SoReadError::post(in, "Bad number of children");
      return false;
    }
  }
  for (int i = 0; expected < 0 || i < expected; ++i) {
    if (!in->isBinary()) {
      char c;
      if (!in->peek(c)) {
        SoReadError::post(in, "Premature end of file: '}' missing");
        return false;
      }
      if (c == '}') return true;
    }
    SoBase* child = nullptr;
    const orvex::ReadResult r = orvex::readObject(in, child, SoNode::getClassTypeId());
    if (r == orvex::ReadResult::END) {
      SoReadError::post(in, "Premature end of file in the children of a %s", getTypeId().getName().getString());
      return false;
    }
    if (r == orvex::ReadResult::FAIL) return false;
    if (!child) continue;  // NULL stands for no child
    children.append(static_cast<SoNode*>(child));
    child->unref();
  }
  return true;
}

void SoGroup::copyContents(const SoFieldContainer* from, bool copyConnections) {
  SoNode::copyContents(from, copyConnections);
  children.truncate(0);
  const auto* source = static_cast<const SoGroup*>(from);
  for (int i = 0; i < source->getNumChildren(); ++i) {
    SoNode* child = source->children.get(i);
    if (auto* copy = static_cast<SoNode*>(findCopy(child, copyConnections))) children.append(copy);
  }
}
