// Fields that refer to nodes, paths and other field containers.

#include <Orvex/SoOutput.h>
#include <Orvex/SoPath.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/engines/SoEngine.h>
#include <Orvex/fields/SoMFEngine.h>
#include <Orvex/fields/SoSFEngine.h>
#include <Orvex/fields/SoMFFieldContainer.h>
#include <Orvex/fields/SoMFNode.h>
#include <Orvex/fields/SoMFPath.h>
#include <Orvex/fields/SoSFFieldContainer.h>
#include <Orvex/fields/SoSFNode.h>
#include <Orvex/fields/SoSFPath.h>
#include <Orvex/nodes/SoNode.h>

#include "../io/ReadObject.h"
#include "FieldSource.h"

namespace orvex {
namespace fio {

namespace {
template <class T>
bool readRef(SoInput* in, T*& value, SoType expected) {
  SoBase* base = nullptr;
  if (readObject(in, base, expected) != ReadResult::OK) return false;
  value = static_cast<T*>(base);
  // The field takes its own reference when it stores the value.
  if (base) base->unrefNoDelete();
  return true;
}

// Writes (or, in the counting pass, counts) an object a field refers to.
void writeRef(SoOutput* out, SoBase* base) {
  if (!base) {
    if (out->getStage() == SoOutput::WRITE) {
      if (out->isBinary())
        out->write(SbName("NULL"));
      else
        out->write("NULL");
    }
    return;
  }
  if (auto* node = dynamic_cast<SoNode*>(base)) {
    SoWriteAction action(out);
    action.continueToApply(node);
  } else {
    base->writeInstance(out);
  }
}
}  // namespace

bool read(SoInput* in, SoNode*& v) { return readRef(in, v, SoNode::getClassTypeId()); }
void write(SoOutput* out, SoNode* v) { writeRef(out, v); }
bool read(SoInput* in, SoPath*& v) { return readRef(in, v, SoPath::getClassTypeId()); }
void write(SoOutput* out, SoPath* v) { writeRef(out, v); }
bool read(SoInput* in, SoEngine*& v) { return readRef(in, v, SoEngine::getClassTypeId()); }
void write(SoOutput* out, SoEngine* v) { writeRef(out, v); }
bool read(SoInput* in, SoFieldContainer*& v) { return readRef(in, v, SoFieldContainer::getClassTypeId()); }
void write(SoOutput* out, SoFieldContainer* v) { writeRef(out, v); }

}  // namespace fio
}  // namespace orvex

namespace {
// The copy of a referenced object when it is part of the graph being copied
// (or is copied now, because the copied container refers to it).
template <class T>
T* copyOf(T* value, bool copyConnections) {
  if (!value) return nullptr;
  if (auto* container = dynamic_cast<SoFieldContainer*>(static_cast<SoBase*>(value)))
    return static_cast<T*>(static_cast<SoBase*>(SoFieldContainer::findCopy(container, copyConnections)));
  return value;
}

SoPath* copyPath(SoPath* path, bool copyConnections) {
  if (!path || !path->getHead()) return path;
  auto* head = static_cast<SoNode*>(SoFieldContainer::findCopy(path->getHead(), copyConnections));
  if (!head) return path;
  auto* copy = new SoPath(head);
  for (int i = 1; i < path->getLength(); ++i) copy->append(path->getIndex(i));
  return copy;
}

template <class T>
bool isCopied(T* value) {
  auto* container = dynamic_cast<SoFieldContainer*>(static_cast<SoBase*>(value));
  return container && SoFieldContainer::checkCopy(container) != nullptr;
}
}  // namespace

// ---- single values -------------------------------------------------------------------

SO_SFIELD_SOURCE(SoSFNode, "SFNode", SoNode*, SoNode*)
void SoSFNode::countWriteRefs(SoOutput* out) const { orvex::fio::write(out, value); }
void SoSFNode::fixCopy(bool copyConnections) {
  if (value) setValue(copyOf(value, copyConnections));
}
bool SoSFNode::referencesCopy() const { return isCopied(value); }

SO_SFIELD_SOURCE(SoSFPath, "SFPath", SoPath*, SoPath*)
void SoSFPath::countWriteRefs(SoOutput* out) const { orvex::fio::write(out, value); }
void SoSFPath::fixCopy(bool copyConnections) {
  if (value) setValue(copyPath(value, copyConnections));
}
bool SoSFPath::referencesCopy() const { return value && isCopied(value->getHead()); }

SO_SFIELD_SOURCE(SoSFFieldContainer, "SFFieldContainer", SoFieldContainer*, SoFieldContainer*)
void SoSFFieldContainer::countWriteRefs(SoOutput* out) const { orvex::fio::write(out, value); }
void SoSFFieldContainer::fixCopy(bool copyConnections) {
  if (value) setValue(copyOf(value, copyConnections));
}
bool SoSFFieldContainer::referencesCopy() const { return isCopied(value); }

// ---- multiple values -------------------------------------------------------------------

SO_MFIELD_SOURCE(SoMFNode, "MFNode", SoNode*, SoNode*)

void SoMFNode::addNode(SoNode* node) { set1Value(num, node); }
void SoMFNode::insertNode(SoNode* node, int newNodeIndex) {
  if (newNodeIndex < 0 || newNodeIndex > num) return;
  insertSpace(newNodeIndex, 1);
  set1Value(newNodeIndex, node);
}
SoNode* SoMFNode::getNode(int index) const { return index >= 0 && index < num ? values[index] : nullptr; }
int SoMFNode::findNode(const SoNode* node) const {
  for (int i = 0; i < num; ++i)
    if (values[i] == node) return i;
  return -1;
}
void SoMFNode::removeNode(int index) { deleteValues(index, 1); }
void SoMFNode::removeNode(SoNode* node) {
  const int index = findNode(node);
  if (index >= 0) removeNode(index);
}
void SoMFNode::removeAllNodes() { deleteValues(0, -1); }
void SoMFNode::replaceNode(int index, SoNode* newNode) {
  if (index >= 0 && index < num) set1Value(index, newNode);
}
void SoMFNode::replaceNode(SoNode* oldNode, SoNode* newNode) { replaceNode(findNode(oldNode), newNode); }
void SoMFNode::countWriteRefs(SoOutput* out) const {
  for (int i = 0; i < num; ++i) orvex::fio::write(out, values[i]);
}
void SoMFNode::fixCopy(bool copyConnections) {
  for (int i = 0; i < num; ++i)
    if (values[i]) set1Value(i, copyOf(values[i], copyConnections));
}
bool SoMFNode::referencesCopy() const {
  for (int i = 0; i < num; ++i)
    if (isCopied(values[i])) return true;
  return false;
}

SO_MFIELD_SOURCE(SoMFPath, "MFPath", SoPath*, SoPath*)
void SoMFPath::countWriteRefs(SoOutput* out) const {
  for (int i = 0; i < num; ++i) orvex::fio::write(out, values[i]);
}
void SoMFPath::fixCopy(bool copyConnections) {
  for (int i = 0; i < num; ++i)
    if (values[i]) set1Value(i, copyPath(values[i], copyConnections));
}
bool SoMFPath::referencesCopy() const {
  for (int i = 0; i < num; ++i)
    if (values[i] && isCopied(values[i]->getHead())) return true;
  return false;
}

SO_MFIELD_SOURCE(SoMFFieldContainer, "MFFieldContainer", SoFieldContainer*, SoFieldContainer*)

void SoMFFieldContainer::addFieldContainer(SoFieldContainer* container) { set1Value(num, container); }
void SoMFFieldContainer::insertFieldContainer(SoFieldContainer* container, int newIndex) {
  if (newIndex < 0 || newIndex > num) return;
  insertSpace(newIndex, 1);
  set1Value(newIndex, container);
}
SoFieldContainer* SoMFFieldContainer::getFieldContainer(int index) const {
  return index >= 0 && index < num ? values[index] : nullptr;
}
int SoMFFieldContainer::findFieldContainer(const SoFieldContainer* container) const {
  for (int i = 0; i < num; ++i)
    if (values[i] == container) return i;
  return -1;
}
void SoMFFieldContainer::removeFieldContainer(int index) { deleteValues(index, 1); }
void SoMFFieldContainer::removeFieldContainer(SoFieldContainer* container) {
  const int index = findFieldContainer(container);
  if (index >= 0) removeFieldContainer(index);
}
void SoMFFieldContainer::removeAllFieldContainers() { deleteValues(0, -1); }
void SoMFFieldContainer::replaceFieldContainer(int index, SoFieldContainer* newContainer) {
  if (index >= 0 && index < num) set1Value(index, newContainer);
}
void SoMFFieldContainer::replaceFieldContainer(SoFieldContainer* oldContainer, SoFieldContainer* newContainer) {
  replaceFieldContainer(findFieldContainer(oldContainer), newContainer);
}
void SoMFFieldContainer::countWriteRefs(SoOutput* out) const {
  for (int i = 0; i < num; ++i) orvex::fio::write(out, values[i]);
}
void SoMFFieldContainer::fixCopy(bool copyConnections) {
  for (int i = 0; i < num; ++i)
    if (values[i]) set1Value(i, copyOf(values[i], copyConnections));
}
bool SoMFFieldContainer::referencesCopy() const {
  for (int i = 0; i < num; ++i)
    if (isCopied(values[i])) return true;
  return false;
}

// ---- engines -----------------------------------------------------------------------------

SO_SFIELD_SOURCE(SoSFEngine, "SFEngine", SoEngine*, SoEngine*)
void SoSFEngine::countWriteRefs(SoOutput* out) const { orvex::fio::write(out, value); }
void SoSFEngine::fixCopy(bool copyConnections) {
  if (value) setValue(copyOf(value, copyConnections));
}
bool SoSFEngine::referencesCopy() const { return isCopied(value); }

SO_MFIELD_SOURCE(SoMFEngine, "MFEngine", SoEngine*, SoEngine*)
void SoMFEngine::countWriteRefs(SoOutput* out) const {
  for (int i = 0; i < num; ++i) orvex::fio::write(out, values[i]);
}
void SoMFEngine::fixCopy(bool copyConnections) {
  for (int i = 0; i < num; ++i)
    if (values[i]) set1Value(i, copyOf(values[i], copyConnections));
}
bool SoMFEngine::referencesCopy() const {
  for (int i = 0; i < num; ++i)
    if (isCopied(values[i])) return true;
  return false;
}
