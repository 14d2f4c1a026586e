#include <Orvex/sensors/SoNodeSensor.h>
#include "SensorFiring.h"

#include <Orvex/nodes/SoNode.h>

SoNodeSensor::SoNodeSensor() = default;

SoNodeSensor::SoNodeSensor(SoSensorCB* func, void* data) : SoDataSensor(func, data) {}

SoNodeSensor::~SoNodeSensor() {
  SoSensorFiring::retire(this);
  detach();
}

void SoNodeSensor::attach(SoNode* node) {
  detach();
  if (!node) return;
  std::lock_guard<std::mutex> lock(m_attachMutex);
  m_node = node;
  node->addAuditor(static_cast<SoAuditor*>(this));
}

void SoNodeSensor::detach() {
  {
    std::lock_guard<std::mutex> lock(m_attachMutex);
    if (m_node) m_node->removeAuditor(static_cast<SoAuditor*>(this));
    m_node = nullptr;
  }
  unschedule();
}

SoNode* SoNodeSensor::getAttachedNode() const {
  std::lock_guard<std::mutex> lock(m_attachMutex);
  return m_node;
}

void SoNodeSensor::detachDying() {
  // The node is still intact while it tells its sensors that it dies.
  detach();
}
