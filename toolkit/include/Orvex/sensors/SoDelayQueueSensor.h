#pragma once
#include <Orvex/sensors/SoSensor.h>

#include <atomic>
#include <cstdint>

class SoSensorManager;

// A sensor of the sensor manager's delay queue: fires when the delay queue is
// processed, in priority order (lower values first). Priority 0 makes the
// sensor immediate: it fires as soon as it is scheduled, on the scheduling
// thread. schedule() queues the sensor in the database's sensor manager;
// scheduling a sensor that is already queued does nothing.
class SoDelayQueueSensor : public SoSensor {
 public:
  SoDelayQueueSensor();
  SoDelayQueueSensor(SoSensorCB* func, void* data);
  // Leaves the queue: a deleted sensor never fires.
  ~SoDelayQueueSensor() override;

  // A new priority of a queued sensor moves it to its new place (or fires it
  // at once when the new priority is 0).
  void setPriority(uint32_t priority);
  uint32_t getPriority() const { return m_priority.load(); }
  static uint32_t getDefaultPriority() { return 100; }

  void schedule() override;
  void unschedule() override;
  bool isScheduled() const override { return m_manager.load() != nullptr; }

  // True for sensors that fire only when the delay queue is processed
  // because the application is idle.
  virtual bool isIdleOnly() const { return false; }

 private:
  friend class SoSensorManager;
  std::atomic<uint32_t> m_priority;
  // The manager whose queue holds the sensor; null when not scheduled.
  // The fields below are written under that manager's lock.
  std::atomic<SoSensorManager*> m_manager{nullptr};
  uint64_t m_stamp = 0;          // queueing order
  uint32_t m_queuedPriority = 0;  // the priority it was queued with
  bool m_queuedIdleOnly = false;  // isIdleOnly() when queued (no virtual call in destructors)
};
