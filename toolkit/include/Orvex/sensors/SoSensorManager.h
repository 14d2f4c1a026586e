#pragma once
#include <Orvex/SbTime.h>
#include <mutex>
#include <vector>

class SoTimerQueueSensor;

// Holds the scheduled sensors and fires them when its queues are processed.
class SoSensorManager {
 public:
  SoSensorManager();
  ~SoSensorManager();
  SoSensorManager(const SoSensorManager&) = delete;
  SoSensorManager& operator=(const SoSensorManager&) = delete;

  // Called whenever the earliest pending time may have changed, so that an
  // event loop can re-arm its timer.
  void setChangedCallback(void (*func)(void* data), void* data);

  // Timer queue, ordered by trigger time (ties in insertion order). Inserting
  // a sensor that is already queued moves it. Safe to call from any thread.
  void insertTimerSensor(SoTimerQueueSensor* sensor);
  // The same, setting the sensor's trigger time first.
  void insertTimerSensor(SoTimerQueueSensor* sensor, const SbTime& triggerTime);
  void removeTimerSensor(SoTimerQueueSensor* sensor);
  // Fires every timer sensor whose trigger time has passed. Sensors that a
  // firing sensor schedules for a time already passed wait for the next call.
  // A call made while the queue is being processed (from a firing sensor or
  // another thread) does nothing.
  void processTimerQueue();
  // True when a timer sensor is scheduled; `tm` receives the earliest time.
  bool isTimerSensorPending(SbTime& tm) const;

 private:
  void notifyChanged();
  // Takes the first sensor due at `now` that was queued before `stampLimit`.
  SoTimerQueueSensor* popDue(const SbTime& now, uint64_t stampLimit);

  mutable std::mutex m_mutex;  // guards the queue and the changed callback
  std::vector<SoTimerQueueSensor*> m_timerQueue;  // sorted by trigger time
  uint64_t m_nextStamp = 1;
  void (*m_changedFunc)(void*) = nullptr;
  void* m_changedData = nullptr;
  bool m_processingTimers = false;
};
