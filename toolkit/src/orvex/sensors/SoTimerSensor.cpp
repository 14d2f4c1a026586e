#include <Orvex/sensors/SoTimerSensor.h>
#include "SensorFiring.h"

#include <cmath>

SoTimerSensor::SoTimerSensor() = default;

SoTimerSensor::SoTimerSensor(SoSensorCB* func, void* data) : SoTimerQueueSensor(func, data) {}

SoTimerSensor::~SoTimerSensor() { SoSensorFiring::retire(this); }

void SoTimerSensor::setBaseTime(const SbTime& base) {
  std::lock_guard<std::mutex> lock(m_mutex);
  m_baseTime = base;
  m_baseTimeSet = true;
  if (isScheduled()) scheduleLocked();
}

void SoTimerSensor::setInterval(const SbTime& interval) {
  std::lock_guard<std::mutex> lock(m_mutex);
  m_interval = interval;
  if (isScheduled()) scheduleLocked();
}

void SoTimerSensor::schedule() {
  std::lock_guard<std::mutex> lock(m_mutex);
  scheduleLocked();
}

// With a base time the first trigger is the base time itself (when it has
// passed, trigger() catches up on the grid); without one the grid starts now.
void SoTimerSensor::scheduleLocked() {
  if (m_baseTimeSet) {
    scheduleAt(m_baseTime);
  } else {
    m_baseTime = SbTime::getTimeOfDay();
    scheduleAt(m_baseTime + m_interval);
  }
}

void SoTimerSensor::unschedule() { SoTimerQueueSensor::unschedule(); }

void SoTimerSensor::trigger() {
  // Reschedule before calling the function, so the function may unschedule.
  scheduleNextTick();
  SoSensor::trigger();
}

void SoTimerSensor::scheduleNextTick() {
  std::lock_guard<std::mutex> lock(m_mutex);
  if (isScheduled()) return;  // rescheduled by another thread meanwhile
  const SbTime now = SbTime::getTimeOfDay();
  SbTime next = getTriggerTime() + m_interval;
  if (m_interval <= SbTime::zero()) {
    next = now;  // fires at every processing of the queue
  } else if (next <= now) {
    // Missed ticks are skipped: jump to the first grid point after now.
    const double ticks = std::floor((now - m_baseTime) / m_interval) + 1.0;
    next = m_baseTime + m_interval * ticks;
    while (next <= now) next += m_interval;
  }
  scheduleAt(next);
}
