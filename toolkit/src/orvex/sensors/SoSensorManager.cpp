#include <Orvex/sensors/SoSensorManager.h>

#include <Orvex/SoDB.h>
#include <Orvex/sensors/SoDelayQueueSensor.h>
#include <Orvex/sensors/SoTimerQueueSensor.h>

#include <algorithm>

#include "SensorFiring.h"
#include "SystemTimerDriver.h"

// The manager's own timer-queue sensor that processes the delay queue once
// the oldest regular delay sensor has waited for the delay sensor timeout.
class SoSensorManager::TimeoutAlarm : public SoTimerQueueSensor {
 public:
  explicit TimeoutAlarm(SoSensorManager* owner)
      : SoTimerQueueSensor([](void* data, SoSensor*) { static_cast<SoSensorManager*>(data)->delayTimeoutExpired(); },
                           owner) {}
};

namespace {

// The managers whose immediate queue the calling thread is processing.
thread_local std::vector<const SoSensorManager*> t_processingImmediate;

// Marks the calling thread as processing a manager's immediate queue for the
// lifetime of the guard (also when a sensor's function throws).
class ImmediateGuard {
 public:
  explicit ImmediateGuard(const SoSensorManager* m) { t_processingImmediate.push_back(m); }
  ~ImmediateGuard() { t_processingImmediate.pop_back(); }
  ImmediateGuard(const ImmediateGuard&) = delete;
  ImmediateGuard& operator=(const ImmediateGuard&) = delete;
};

bool processingImmediateHere(const SoSensorManager* m) {
  return std::find(t_processingImmediate.begin(), t_processingImmediate.end(), m) != t_processingImmediate.end();
}

}  // namespace

SoSensorManager::SoSensorManager() : m_timeoutAlarm(std::make_unique<TimeoutAlarm>(this)) {}

SoSensorManager::~SoSensorManager() {
  std::lock_guard<std::mutex> lock(m_mutex);
  for (SoTimerQueueSensor* s : m_timerQueue) s->m_manager = nullptr;
  for (SoDelayQueueSensor* s : m_delayQueue) s->m_manager = nullptr;
  for (SoDelayQueueSensor* s : m_immediateQueue) s->m_manager = nullptr;
  m_timerQueue.clear();
  m_delayQueue.clear();
  m_immediateQueue.clear();
}

void SoSensorManager::setChangedCallback(void (*func)(void* data), void* data) {
  std::lock_guard<std::mutex> lock(m_mutex);
  m_changedFunc = func;
  m_changedData = data;
}

void SoSensorManager::notifyChanged() {
  void (*func)(void*);
  void* data;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    func = m_changedFunc;
    data = m_changedData;
  }
  if (func) func(data);
  // The database's queue drives the system timer, when one is set.
  if (isDatabaseManager()) orvex::armSystemTimer();
}

// ---------------------------------------------------------------- timer queue

void SoSensorManager::insertTimerSensor(SoTimerQueueSensor* sensor) {
  insertTimerSensor(sensor, sensor->m_triggerTime);
}

void SoSensorManager::insertTimerSensor(SoTimerQueueSensor* sensor, const SbTime& triggerTime) {
  // A sensor moves from another manager's queue to this one.
  SoSensorManager* other = sensor->m_manager.load();
  if (other && other != this) other->removeTimerSensor(sensor);
  bool frontChanged;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    frontChanged = insertTimerLocked(sensor, triggerTime);
  }
  if (frontChanged) notifyChanged();
}

bool SoSensorManager::insertTimerLocked(SoTimerQueueSensor* sensor, const SbTime& triggerTime) {
  // A sensor being destroyed (possibly rescheduling itself as it fires on
  // this thread) must not go back into a queue.
  if (SoSensorFiring::isRetiring(sensor)) return false;
  bool frontChanged = false;
  sensor->m_triggerTime = triggerTime;
  if (sensor->m_manager.load() == this) {
    auto old = std::find(m_timerQueue.begin(), m_timerQueue.end(), sensor);
    if (old != m_timerQueue.end()) {
      frontChanged = old == m_timerQueue.begin();
      m_timerQueue.erase(old);
    }
  }
  sensor->m_stamp = m_nextStamp++;
  auto pos = std::upper_bound(
      m_timerQueue.begin(), m_timerQueue.end(), sensor->m_triggerTime,
      [](const SbTime& t, const SoTimerQueueSensor* s) { return t < s->m_triggerTime; });
  frontChanged = frontChanged || pos == m_timerQueue.begin();
  m_timerQueue.insert(pos, sensor);
  sensor->m_manager = this;
  return frontChanged;
}

void SoSensorManager::removeTimerSensor(SoTimerQueueSensor* sensor) {
  bool frontChanged;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    frontChanged = removeTimerLocked(sensor);
  }
  if (frontChanged) notifyChanged();
}

bool SoSensorManager::removeTimerLocked(SoTimerQueueSensor* sensor) {
  if (sensor->m_manager.load() != this) return false;
  auto it = std::find(m_timerQueue.begin(), m_timerQueue.end(), sensor);
  if (it == m_timerQueue.end()) return false;
  const bool frontChanged = it == m_timerQueue.begin();
  m_timerQueue.erase(it);
  sensor->m_manager = nullptr;
  return frontChanged;
}

SoTimerQueueSensor* SoSensorManager::popDueTimer(const SbTime& now, uint64_t stampLimit) {
  std::lock_guard<std::mutex> lock(m_mutex);
  for (auto it = m_timerQueue.begin(); it != m_timerQueue.end() && (*it)->m_triggerTime <= now; ++it) {
    if ((*it)->m_stamp >= stampLimit) continue;  // queued during this pass
    SoTimerQueueSensor* due = *it;
    // Recorded before the sensor stops naming this manager: a destructor
    // that no longer finds it queued must find it firing.
    SoSensorFiring::begin(due);
    m_timerQueue.erase(it);
    due->m_manager = nullptr;
    return due;
  }
  return nullptr;
}

void SoSensorManager::processTimerQueue() {
  uint64_t stampLimit;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_processingTimers) return;
    m_processingTimers = true;
    stampLimit = m_nextStamp;
  }
  const SbTime now = SbTime::getTimeOfDay();
  bool fired = false;
  while (SoTimerQueueSensor* due = popDueTimer(now, stampLimit)) {
    fired = true;
    const SoSensorFiring::EndGuard firing(due);
    due->trigger();  // without the lock: the sensor may reschedule itself
  }
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_processingTimers = false;
  }
  if (fired) notifyChanged();
}

bool SoSensorManager::isTimerSensorPending(SbTime& tm) const {
  std::lock_guard<std::mutex> lock(m_mutex);
  if (m_timerQueue.empty()) return false;
  tm = m_timerQueue.front()->m_triggerTime;
  return true;
}

// ---------------------------------------------------------------- delay queue

void SoSensorManager::insertDelaySensor(SoDelayQueueSensor* sensor) {
  SoSensorManager* other = sensor->m_manager.load();
  if (other && other != this) other->removeDelaySensor(sensor);
  bool immediate = false;
  bool changed = false;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (sensor->m_manager.load() == this) return;  // already queued: fires once
    if (SoSensorFiring::isRetiring(sensor)) return;  // being destroyed
    sensor->m_stamp = m_nextStamp++;
    sensor->m_queuedPriority = sensor->m_priority.load();
    sensor->m_manager = this;
    if (sensor->m_queuedPriority == 0) {
      sensor->m_queuedIdleOnly = false;
      m_immediateQueue.push_back(sensor);
      immediate = true;
    } else {
      sensor->m_queuedIdleOnly = sensor->isIdleOnly();
      const uint32_t priority = sensor->m_queuedPriority;
      auto pos = std::upper_bound(
          m_delayQueue.begin(), m_delayQueue.end(), priority,
          [](uint32_t p, const SoDelayQueueSensor* s) { return p < s->m_queuedPriority; });
      changed = m_delayQueue.empty();  // the queue becomes pending
      m_delayQueue.insert(pos, sensor);
      if (!sensor->m_queuedIdleOnly && ++m_numRegularDelay == 1) changed = updateTimeoutLocked(true) || changed;
    }
  }
  if (changed) notifyChanged();
  if (immediate) processImmediateQueue();
}

void SoSensorManager::removeDelaySensor(SoDelayQueueSensor* sensor) {
  bool changed = false;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (sensor->m_manager.load() != this) return;
    auto imm = std::find(m_immediateQueue.begin(), m_immediateQueue.end(), sensor);
    if (imm != m_immediateQueue.end()) {
      m_immediateQueue.erase(imm);
      sensor->m_manager = nullptr;
      return;
    }
    auto it = std::find(m_delayQueue.begin(), m_delayQueue.end(), sensor);
    if (it == m_delayQueue.end()) return;
    m_delayQueue.erase(it);
    changed = delaySensorLeftLocked(sensor) || m_delayQueue.empty();
  }
  if (changed) notifyChanged();
}

bool SoSensorManager::delaySensorLeftLocked(SoDelayQueueSensor* sensor) {
  sensor->m_manager = nullptr;
  if (sensor->m_queuedIdleOnly) return false;
  return --m_numRegularDelay == 0 && updateTimeoutLocked(false);
}

SoDelayQueueSensor* SoSensorManager::popDelay(bool isIdle, uint64_t stampLimit, bool& queueEmptied) {
  std::lock_guard<std::mutex> lock(m_mutex);
  for (auto it = m_delayQueue.begin(); it != m_delayQueue.end(); ++it) {
    SoDelayQueueSensor* s = *it;
    if (s->m_stamp >= stampLimit) continue;  // queued during this pass
    if (s->m_queuedIdleOnly && !isIdle) continue;
    SoSensorFiring::begin(s);  // as in popDueTimer: before the manager is cleared
    m_delayQueue.erase(it);
    delaySensorLeftLocked(s);
    queueEmptied = queueEmptied || m_delayQueue.empty();
    return s;
  }
  return nullptr;
}

void SoSensorManager::processDelayQueue(bool isIdle) {
  uint64_t stampLimit;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_processingDelay) return;
    m_processingDelay = true;
    stampLimit = m_nextStamp;
  }
  bool fired = false;
  bool emptied = false;
  while (SoDelayQueueSensor* s = popDelay(isIdle, stampLimit, emptied)) {
    fired = true;
    const SoSensorFiring::EndGuard firing(s);
    s->trigger();  // without the lock: the sensor may reschedule or delete itself
  }
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_processingDelay = false;
  }
  if (fired || emptied) notifyChanged();
}

SoDelayQueueSensor* SoSensorManager::popImmediate() {
  std::lock_guard<std::mutex> lock(m_mutex);
  if (m_immediateQueue.empty()) return nullptr;
  SoDelayQueueSensor* s = m_immediateQueue.front();
  SoSensorFiring::begin(s);  // as in popDueTimer: before the manager is cleared
  m_immediateQueue.pop_front();
  s->m_manager = nullptr;
  return s;
}

void SoSensorManager::processImmediateQueue() {
  if (processingImmediateHere(this)) return;  // the running loop below takes new sensors
  ImmediateGuard guard(this);
  while (SoDelayQueueSensor* s = popImmediate()) {
    const SoSensorFiring::EndGuard firing(s);
    s->trigger();
  }
}

bool SoSensorManager::isDelaySensorPending() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return !m_delayQueue.empty();
}

// ------------------------------------------------------- delay sensor timeout

bool SoSensorManager::isDatabaseManager() const { return SoDB::getSensorManager() == this; }

SbTime SoSensorManager::timeoutValueLocked() const {
  return isDatabaseManager() ? SoDB::getDelaySensorTimeout() : m_ownTimeout;
}

void SoSensorManager::setDelaySensorTimeout(const SbTime& timeout) {
  // The database's manager keeps its timeout in SoDB, which stores it and
  // comes back here (with the value then equal) to move the alarm.
  if (isDatabaseManager() && SoDB::getDelaySensorTimeout() != timeout) {
    SoDB::setDelaySensorTimeout(timeout);
    return;
  }
  bool frontChanged = false;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!isDatabaseManager()) m_ownTimeout = timeout;
    // An armed alarm moves to the new deadline of the oldest waiting sensor.
    if (m_numRegularDelay > 0) frontChanged = updateTimeoutLocked(false);
  }
  if (frontChanged) notifyChanged();
}

SbTime SoSensorManager::getDelaySensorTimeout() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return timeoutValueLocked();
}

bool SoSensorManager::updateTimeoutLocked(bool restart) {
  if (restart) m_timeoutStart = SbTime::getTimeOfDay();
  const SbTime timeout = timeoutValueLocked();
  if (m_numRegularDelay == 0 || timeout <= SbTime::zero()) return removeTimerLocked(m_timeoutAlarm.get());
  return insertTimerLocked(m_timeoutAlarm.get(), m_timeoutStart + timeout);
}

void SoSensorManager::delayTimeoutExpired() {
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    const SbTime timeout = timeoutValueLocked();
    if (m_numRegularDelay == 0 || timeout <= SbTime::zero()) return;
    // The timeout may have been lengthened through SoDB since the alarm was set.
    if (SbTime::getTimeOfDay() < m_timeoutStart + timeout) {
      insertTimerLocked(m_timeoutAlarm.get(), m_timeoutStart + timeout);
      return;  // the timer pass that fired us notifies the change
    }
  }
  processDelayQueue(false);
  bool frontChanged = false;
  {
    // Regular sensors still waiting (queued meanwhile, or the queue was busy
    // on another thread) start a new timeout.
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_numRegularDelay > 0 && !m_timeoutAlarm->isScheduled()) frontChanged = updateTimeoutLocked(true);
  }
  if (frontChanged) notifyChanged();
}
