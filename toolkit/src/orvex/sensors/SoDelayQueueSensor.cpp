#include <Orvex/sensors/SoDelayQueueSensor.h>
#include "SensorFiring.h"

#include <Orvex/SoDB.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/sensors/SoIdleSensor.h>
#include <Orvex/sensors/SoOneShotSensor.h>
#include <Orvex/sensors/SoSensorManager.h>

SoDelayQueueSensor::SoDelayQueueSensor() : m_priority(getDefaultPriority()) {}

SoDelayQueueSensor::SoDelayQueueSensor(SoSensorCB* func, void* data)
    : SoSensor(func, data), m_priority(getDefaultPriority()) {}

SoDelayQueueSensor::~SoDelayQueueSensor() {
  SoSensorFiring::retire(this);  // unschedules too
  SoSensorFiring::forget(this);
}

SoOneShotSensor::~SoOneShotSensor() { SoSensorFiring::retire(this); }

SoIdleSensor::~SoIdleSensor() { SoSensorFiring::retire(this); }

void SoDelayQueueSensor::setPriority(uint32_t priority) {
  if (m_priority.exchange(priority) == priority) return;
  // Requeue so the sensor takes its place for the new priority.
  if (SoSensorManager* manager = m_manager.load()) {
    manager->removeDelaySensor(this);
    manager->insertDelaySensor(this);
  }
}

void SoDelayQueueSensor::schedule() {
  SoSensorManager* manager = SoDB::getSensorManager();
  if (!manager) {
    SoDebugError::post("SoDelayQueueSensor::schedule", "SoDB::init() must be called before scheduling sensors");
    return;
  }
  manager->insertDelaySensor(this);
}

void SoDelayQueueSensor::unschedule() {
  if (SoSensorManager* manager = m_manager.load()) manager->removeDelaySensor(this);
}
