#include <Orvex/sensors/SoTimerQueueSensor.h>
#include "SensorFiring.h"

#include <Orvex/SoDB.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/sensors/SoSensorManager.h>

SoTimerQueueSensor::~SoTimerQueueSensor() {
  // Never leave a dangling pointer in a queue (retire unschedules), nor a
  // thread firing a freed sensor.
  SoSensorFiring::retire(this);
  SoSensorFiring::forget(this);
}

void SoTimerQueueSensor::schedule() { scheduleAt(m_triggerTime); }

void SoTimerQueueSensor::scheduleAt(const SbTime& t) {
  SoSensorManager* manager = SoDB::getSensorManager();
  if (!manager) {
    SoDebugError::post("SoTimerQueueSensor::schedule", "SoDB::init() must be called before scheduling sensors");
    return;
  }
  manager->insertTimerSensor(this, t);
}

void SoTimerQueueSensor::unschedule() {
  if (SoSensorManager* manager = m_manager.load()) manager->removeTimerSensor(this);
}
