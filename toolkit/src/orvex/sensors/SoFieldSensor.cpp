#include <Orvex/sensors/SoFieldSensor.h>
#include "SensorFiring.h"

#include <Orvex/fields/SoFieldContainer.h>
#include <Orvex/nodes/SoNode.h>

SoFieldSensor::SoFieldSensor() = default;

SoFieldSensor::SoFieldSensor(SoSensorCB* func, void* data) : SoDataSensor(func, data) {}

SoFieldSensor::~SoFieldSensor() {
  SoSensorFiring::retire(this);
  detach();
}

void SoFieldSensor::attach(SoField* field) {
  detach();
  if (!field) return;
  std::lock_guard<std::mutex> lock(m_attachMutex);
  m_field = field;
  field->addAuditor(this);
}

void SoFieldSensor::detach() {
  {
    std::lock_guard<std::mutex> lock(m_attachMutex);
    if (m_field) m_field->removeAuditor(this);
    m_field = nullptr;
  }
  unschedule();
}

SoField* SoFieldSensor::getAttachedField() const {
  std::lock_guard<std::mutex> lock(m_attachMutex);
  return m_field;
}

void SoFieldSensor::fieldChanged(SoField* field) { fieldChanged(field, SoNotRec::UNSPECIFIED, -1, -1); }

void SoFieldSensor::fieldChanged(SoField* field, SoNotRec::OperationType operation, int index, int numChanged) {
  TriggerInfo info;
  info.field = field;
  SoFieldContainer* container = field->getContainer();
  if (container && container->isOfType(SoNode::getClassTypeId())) info.node = static_cast<SoNode*>(container);
  if (operation == SoNotRec::FIELD_MULTIVALUE) {
    info.type = FIELDMULTIVALUE;
    info.mfieldStart = index;
    info.mfieldNumValues = numChanged;
  }
  dataChanged(info);
}

void SoFieldSensor::fieldDestroyed(SoField* field) {
  if (getAttachedField() == field) watchedObjectDying();
}

void SoFieldSensor::detachDying() {
  // The field is going away: forget it without touching its auditor list,
  // which the field is walking.
  {
    std::lock_guard<std::mutex> lock(m_attachMutex);
    m_field = nullptr;
  }
  unschedule();
}
