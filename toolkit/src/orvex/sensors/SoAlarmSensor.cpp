#include <Orvex/sensors/SoAlarmSensor.h>
#include "SensorFiring.h"

SoAlarmSensor::~SoAlarmSensor() { SoSensorFiring::retire(this); }

void SoAlarmSensor::setTime(const SbTime& absTime) {
  std::lock_guard<std::mutex> lock(m_mutex);
  m_time = absTime;
  if (isScheduled()) scheduleAt(m_time);
}

void SoAlarmSensor::setTimeFromNow(const SbTime& intervalFromNow) {
  setTime(SbTime::getTimeOfDay() + intervalFromNow);
}

SbTime SoAlarmSensor::getTime() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_time;
}

void SoAlarmSensor::schedule() {
  std::lock_guard<std::mutex> lock(m_mutex);
  scheduleAt(m_time);
}
