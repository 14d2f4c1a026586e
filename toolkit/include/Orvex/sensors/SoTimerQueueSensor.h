#pragma once
#include <Orvex/SbTime.h>
#include <Orvex/sensors/SoSensor.h>

#include <atomic>

// A sensor of the sensor manager's timer queue: fires once its trigger time
// has passed when the timer queue is processed.
class SoTimerQueueSensor : public SoSensor {
 public:
  SoTimerQueueSensor() = default;
  SoTimerQueueSensor(SoSensorCB* func, void* data) : SoSensor(func, data) {}
  ~SoTimerQueueSensor() override;

  const SbTime& getTriggerTime() const { return m_triggerTime; }
  void schedule() override;
  void unschedule() override;
  bool isScheduled() const override { return m_scheduled.load(); }

 protected:
  void setTriggerTime(const SbTime& t) { m_triggerTime = t; }
  // Sets the trigger time and queues the sensor in one step, under the sensor
  // manager's lock, so that a thread processing the queue never sees a
  // queued sensor whose time is being changed.
  void scheduleAt(const SbTime& t);

 private:
  friend class SoSensorManager;
  SbTime m_triggerTime;
  std::atomic<bool> m_scheduled{false};
  uint64_t m_stamp = 0;  // insertion order, set by the sensor manager
};
