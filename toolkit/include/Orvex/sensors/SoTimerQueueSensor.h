#pragma once
#include <Orvex/SbTime.h>
#include <Orvex/sensors/SoSensor.h>

#include <atomic>

class SoSensorManager;

// A sensor of the sensor manager's timer queue: fires once its trigger time
// has passed when the timer queue is processed. schedule() queues the sensor
// in the database's sensor manager.
class SoTimerQueueSensor : public SoSensor {
 public:
  SoTimerQueueSensor() = default;
  SoTimerQueueSensor(SoSensorCB* func, void* data) : SoSensor(func, data) {}
  // Leaves the queue: a deleted sensor never fires.
  ~SoTimerQueueSensor() override;

  const SbTime& getTriggerTime() const { return m_triggerTime; }
  void schedule() override;
  void unschedule() override;
  bool isScheduled() const override { return m_manager.load() != nullptr; }

 protected:
  void setTriggerTime(const SbTime& t) { m_triggerTime = t; }
  // Sets the trigger time and queues the sensor in one step, under the sensor
  // manager's lock, so that a thread processing the queue never sees a
  // queued sensor whose time is being changed.
  void scheduleAt(const SbTime& t);

 private:
  friend class SoSensorManager;
  SbTime m_triggerTime;
  // The manager whose queue holds the sensor; null when not scheduled.
  // Written under that manager's lock.
  std::atomic<SoSensorManager*> m_manager{nullptr};
  uint64_t m_stamp = 0;  // insertion order, set by the sensor manager
};
