#pragma once
#include <Orvex/sensors/SoTimerQueueSensor.h>

#include <mutex>

// Fires repeatedly at a fixed interval, on the grid base time + n * interval.
class SoTimerSensor : public SoTimerQueueSensor {
 public:
  SoTimerSensor();
  SoTimerSensor(SoSensorCB* func, void* data);
  ~SoTimerSensor() override;

  // The base time; when never set, the time of schedule() is used. Changes
  // of the base time or interval of a scheduled sensor apply at once.
  void setBaseTime(const SbTime& base);
  const SbTime& getBaseTime() const { return m_baseTime; }
  void setInterval(const SbTime& interval);
  const SbTime& getInterval() const { return m_interval; }

  void schedule() override;
  void unschedule() override;

  // Schedules the next trigger on the interval grid, skipping any trigger
  // times that have already passed, then calls the function (which may
  // therefore unschedule the sensor).
  void trigger() override;

 protected:
  // The rescheduling half of trigger(), for subclasses that decide
  // themselves whether to call the function.
  void scheduleNextTick();

 private:
  // Computes the first trigger and queues the sensor; caller holds m_mutex.
  void scheduleLocked();

  // Serialises scheduling and rescheduling: the thread processing the queue
  // and a thread reconfiguring the sensor may meet here.
  std::mutex m_mutex;
  SbTime m_baseTime;
  SbTime m_interval = SbTime(1.0 / 30.0);
  bool m_baseTimeSet = false;
};
