#pragma once
#include <Orvex/SbTime.h>

#include <deque>
#include <memory>
#include <mutex>
#include <vector>

class SoTimerQueueSensor;
class SoDelayQueueSensor;

// Holds the scheduled sensors and fires them when its queues are processed.
// Three queues:
//  - the timer queue, ordered by trigger time, processed by processTimerQueue();
//  - the delay queue, ordered by priority (lower values first), processed by
//    processDelayQueue() when the application is idle, or without the idle
//    flag once a sensor has waited longer than the delay sensor timeout;
//  - the immediate queue, holding delay sensors of priority 0, which is
//    processed at once by the thread that schedules them.
// Sensors fire on the thread that processes their queue, without any lock of
// the manager held, so a firing sensor may schedule, unschedule or delete
// sensors (itself included). All members are safe to call from any thread.
class SoSensorManager {
 public:
  SoSensorManager();
  ~SoSensorManager();
  SoSensorManager(const SoSensorManager&) = delete;
  SoSensorManager& operator=(const SoSensorManager&) = delete;

  // Called whenever the earliest pending time may have changed or the delay
  // queue became empty or non-empty, so that an event loop can re-arm its
  // timer or its idle processing.
  void setChangedCallback(void (*func)(void* data), void* data);

  // Delay queue. Inserting a sensor that is already queued leaves it where it
  // is (several changes before processing fire it once). A sensor of
  // priority 0 goes to the immediate queue, which is then processed.
  void insertDelaySensor(SoDelayQueueSensor* sensor);
  void removeDelaySensor(SoDelayQueueSensor* sensor);
  // Fires the queued sensors in priority order (ties in the order they were
  // queued). Idle-only sensors fire only when `isIdle` is true. Sensors
  // queued while the queue is processed wait for the next call; a call made
  // while the queue is being processed does nothing.
  void processDelayQueue(bool isIdle);
  // Fires the sensors of the immediate queue, including those queued by the
  // firing sensors. On a thread that is already processing it, does nothing
  // (the running loop takes the new sensors).
  void processImmediateQueue();
  // True when a delay sensor (idle-only or not) is queued.
  bool isDelaySensorPending() const;

  // How long a delay sensor may wait before the timer queue processes the
  // delay queue without the idle flag. Zero or less disables the timeout.
  // The database's manager shares the value kept by SoDB.
  void setDelaySensorTimeout(const SbTime& timeout);
  SbTime getDelaySensorTimeout() const;

  // Timer queue, ordered by trigger time (ties in insertion order). Inserting
  // a sensor that is already queued moves it.
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
  class TimeoutAlarm;

  void notifyChanged();
  // Both answer whether the front of the timer queue changed; caller holds m_mutex.
  bool insertTimerLocked(SoTimerQueueSensor* sensor, const SbTime& triggerTime);
  bool removeTimerLocked(SoTimerQueueSensor* sensor);
  // Takes the first sensor due at `now` that was queued before `stampLimit`.
  SoTimerQueueSensor* popDueTimer(const SbTime& now, uint64_t stampLimit);
  // Takes the first delay sensor allowed by `isIdle` queued before `stampLimit`.
  SoDelayQueueSensor* popDelay(bool isIdle, uint64_t stampLimit, bool& queueEmptied);
  SoDelayQueueSensor* popImmediate();
  // Bookkeeping of a sensor leaving the delay queue; caller holds m_mutex.
  // Answers whether the front of the timer queue changed.
  bool delaySensorLeftLocked(SoDelayQueueSensor* sensor);
  // Arms or disarms the timeout alarm after the delay queue changed; caller
  // holds m_mutex. Answers whether the front of the timer queue changed.
  bool updateTimeoutLocked(bool restart);
  SbTime timeoutValueLocked() const;
  bool isDatabaseManager() const;
  // The timeout alarm fired: processes the delay queue if the oldest waiting
  // sensor has waited long enough, otherwise re-arms for the rest.
  void delayTimeoutExpired();

  mutable std::mutex m_mutex;  // guards everything below
  std::vector<SoTimerQueueSensor*> m_timerQueue;  // sorted by trigger time
  std::vector<SoDelayQueueSensor*> m_delayQueue;  // sorted by priority, then stamp
  std::deque<SoDelayQueueSensor*> m_immediateQueue;
  uint64_t m_nextStamp = 1;
  void (*m_changedFunc)(void*) = nullptr;
  void* m_changedData = nullptr;
  bool m_processingTimers = false;
  bool m_processingDelay = false;
  int m_numRegularDelay = 0;  // queued delay sensors that are not idle-only
  SbTime m_ownTimeout = SbTime(1.0 / 12.0);  // used unless this is the database's manager
  SbTime m_timeoutStart;  // when the oldest regular delay sensor was queued
  std::unique_ptr<TimeoutAlarm> m_timeoutAlarm;
};
