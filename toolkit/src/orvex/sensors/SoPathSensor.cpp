#include <Orvex/sensors/SoPathSensor.h>
#include "SensorFiring.h"

#include <Orvex/SoPath.h>

SoPathSensor::SoPathSensor() = default;

SoPathSensor::SoPathSensor(SoSensorCB* func, void* data) : SoDataSensor(func, data) {}

SoPathSensor::~SoPathSensor() {
  SoSensorFiring::retire(this);
  detach();
}

void SoPathSensor::attach(SoPath* path) {
  detach();
  if (!path) return;
  std::lock_guard<std::mutex> lock(m_attachMutex);
  m_path = path;
  path->addAuditor(static_cast<SoAuditor*>(this));
}

void SoPathSensor::detach() {
  {
    std::lock_guard<std::mutex> lock(m_attachMutex);
    if (m_path) m_path->removeAuditor(static_cast<SoAuditor*>(this));
    m_path = nullptr;
  }
  unschedule();
}

SoPath* SoPathSensor::getAttachedPath() const {
  std::lock_guard<std::mutex> lock(m_attachMutex);
  return m_path;
}

void SoPathSensor::detachDying() {
  // The path is still intact while it tells its sensors that it dies.
  detach();
}

const SoNotRec* SoPathSensor::watchedRecord(const SoNotList* list) const {
  const SoNotRec* last = list->getLastRec();
  if (last && last->getBase() == static_cast<const SoBase*>(getAttachedPath())) return last->getPrevious();
  return last;
}
