#pragma once
#include <Orvex/sensors/SoTimerQueueSensor.h>

#include <mutex>

// Fires once, at a given time of day (or as soon as the timer queue is
// processed when that time has passed).
class SoAlarmSensor : public SoTimerQueueSensor {
 public:
  SoAlarmSensor() = default;
  SoAlarmSensor(SoSensorCB* func, void* data) : SoTimerQueueSensor(func, data) {}
  ~SoAlarmSensor() override;

  // The time to go off. A scheduled alarm moves to the new time at once.
  void setTime(const SbTime& absTime);
  // Sets the time to now plus `intervalFromNow`.
  void setTimeFromNow(const SbTime& intervalFromNow);
  SbTime getTime() const;

  void schedule() override;

 private:
  mutable std::mutex m_mutex;  // the time and the (re)scheduling that uses it
  SbTime m_time;
};
