#include <Orvex/sensors/SoDataSensor.h>
#include "SensorFiring.h"

#include <Orvex/SoPath.h>
#include <Orvex/fields/SoField.h>
#include <Orvex/fields/SoFieldContainer.h>
#include <Orvex/misc/SoChildList.h>
#include <Orvex/nodes/SoNode.h>

#include <vector>

namespace {

SoNode* asNode(SoBase* base) {
  return base && base->isOfType(SoNode::getClassTypeId()) ? static_cast<SoNode*>(base) : nullptr;
}

SoDataSensor::ChangeTypes changeType(SoNotRec::OperationType op) {
  switch (op) {
    case SoNotRec::GROUP_ADDCHILD: return SoDataSensor::GROUPADDCHILD;
    case SoNotRec::GROUP_INSERTCHILD: return SoDataSensor::GROUPINSERTCHILD;
    case SoNotRec::GROUP_REPLACECHILD: return SoDataSensor::GROUPREPLACECHILD;
    case SoNotRec::GROUP_REMOVECHILD: return SoDataSensor::GROUPREMOVECHILD;
    case SoNotRec::GROUP_REMOVEALLCHILDREN: return SoDataSensor::GROUPREMOVEALLCHILDREN;
    case SoNotRec::FIELD_MULTIVALUE: return SoDataSensor::FIELDMULTIVALUE;
    default: return SoDataSensor::UNSPECIFIED;
  }
}

}  // namespace

SoDataSensor::SoDataSensor() = default;

SoDataSensor::SoDataSensor(SoSensorCB* func, void* data) : SoDelayQueueSensor(func, data) {}

SoDataSensor::~SoDataSensor() {
  SoSensorFiring::retire(this);
  *m_alive = false;
  setTriggerPath(nullptr);
}

void SoDataSensor::trigger() {
  const std::shared_ptr<bool> alive = m_alive;
  SoSensor::trigger();
  // The path keeps the watched graph alive: not beyond the firing.
  if (*alive) setTriggerPath(nullptr);
}

void SoDataSensor::setDeleteCallback(SoSensorCB* func, void* data) {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  m_deleteFunc = func;
  m_deleteData = data;
}

SoNode* SoDataSensor::getTriggerNode() const {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  return m_info.node;
}

SoField* SoDataSensor::getTriggerField() const {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  return m_info.field;
}

SoPath* SoDataSensor::getTriggerPath() const {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  return m_triggerPath;
}

void SoDataSensor::setTriggerPathFlag(bool flag) {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  m_pathFlag = flag;
}

bool SoDataSensor::getTriggerPathFlag() const {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  return m_pathFlag;
}

SoDataSensor::ChangeTypes SoDataSensor::getTriggerType() const {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  return m_info.type;
}

SoNode* SoDataSensor::getTriggerChild() const {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  return m_info.child;
}

int SoDataSensor::getTriggerChildIndex() const {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  return m_info.childIndex;
}

int SoDataSensor::getTriggerMFieldStartIndex() const {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  return m_info.mfieldStart;
}

int SoDataSensor::getTriggerMFieldNumValues() const {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  return m_info.mfieldNumValues;
}

bool SoDataSensor::getTriggerFastEditInfo() const {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  return m_fastEdit;
}

void SoDataSensor::setTriggerFastEditInfoFlag(bool flag) {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  m_fastEditFlag = flag;
}

bool SoDataSensor::getTriggerFastEditInfoFlag() const {
  std::lock_guard<std::mutex> lock(m_infoMutex);
  return m_fastEditFlag;
}

void SoDataSensor::notify(SoNotList* list) { dataChanged(infoFrom(list), list); }

void SoDataSensor::dyingReference(SoBase*) { watchedObjectDying(); }

// The records run from the origin of the change (the first) to the watched
// object (the last); the first record says what happened.
SoDataSensor::TriggerInfo SoDataSensor::infoFrom(const SoNotList* list) {
  TriggerInfo info;
  const SoNotRec* first = list->getFirstRec();
  if (!first) return info;
  if (const SoNotRec* atNode = list->getFirstRecAtNode()) info.node = asNode(atNode->getBase());
  info.type = changeType(first->getOperationType());
  if (info.type == FIELDMULTIVALUE) {
    info.mfieldStart = first->getFieldNumIndex();
    info.mfieldNumValues = first->getFieldNumChanged();
  } else if (info.type != UNSPECIFIED) {
    info.child = asNode(first->getGroupChild());
    info.childIndex = first->getIndex();
  }
  // The first field passed is the changed one only when it belongs to the
  // object where the change started (not a node field it merely went through).
  SoField* field = list->getFirstField();
  if (field && field->getContainer() && static_cast<SoBase*>(field->getContainer()) == first->getBase())
    info.field = field;
  return info;
}

const SoNotRec* SoDataSensor::watchedRecord(const SoNotList* list) const { return list->getLastRec(); }

// Walks from the watched object's record towards the origin while each record
// was reached from a child (PARENT), appending that child to the path.
SoPath* SoDataSensor::makeTriggerPath(const SoNotList* list) const {
  const SoNotRec* rec = watchedRecord(list);
  SoNode* head = rec ? asNode(rec->getBase()) : nullptr;
  if (!head) return nullptr;
  std::vector<const SoNotRec*> chain;  // watched record first, origin last
  for (; rec; rec = rec->getPrevious()) chain.push_back(rec);
  auto* path = new SoPath(head);
  for (size_t k = 0; k + 1 < chain.size() && chain[k]->getType() == SoNotRec::PARENT; ++k) {
    SoNode* child = asNode(chain[k + 1]->getBase());
    SoChildList* children = path->getTail()->getChildren();
    if (!child || !children || children->find(child) < 0) break;
    path->append(child);
    if (chain[k + 1] == list->getFirstRecAtNode()) break;
  }
  return path;
}

void SoDataSensor::setTriggerPath(SoPath* path) {
  if (path) path->ref();
  SoPath* old;
  {
    std::lock_guard<std::mutex> lock(m_infoMutex);
    old = m_triggerPath;
    m_triggerPath = path;
  }
  if (old) old->unref();
}

void SoDataSensor::dataChanged(const TriggerInfo& info, const SoNotList* list) {
  const bool immediate = getPriority() == 0;
  bool wantPath;
  {
    std::lock_guard<std::mutex> lock(m_infoMutex);
    if (immediate) {
      m_info = info;
      m_fastEdit = m_fastEditFlag && info.child == nullptr &&
                   (info.type == UNSPECIFIED || info.type == FIELDMULTIVALUE);
    } else {
      m_info = TriggerInfo();
      m_fastEdit = false;
    }
    wantPath = immediate && m_pathFlag && list;
  }
  setTriggerPath(wantPath ? makeTriggerPath(list) : nullptr);
  schedule();
}

void SoDataSensor::watchedObjectDying() {
  SoSensorCB* func;
  void* data;
  {
    std::lock_guard<std::mutex> lock(m_infoMutex);
    func = m_deleteFunc;
    data = m_deleteData;
    m_info = TriggerInfo();  // may name the dying object
  }
  setTriggerPath(nullptr);
  // Detached first: the delete callback may then attach the sensor
  // elsewhere or delete it, so nothing touches the sensor after the call.
  detachDying();
  unschedule();
  if (func) func(data, this);
}
