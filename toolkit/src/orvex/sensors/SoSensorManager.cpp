#include <Orvex/sensors/SoSensorManager.h>

#include <Orvex/sensors/SoTimerQueueSensor.h>

#include <algorithm>

SoSensorManager::SoSensorManager() = default;

SoSensorManager::~SoSensorManager() {
  std::lock_guard<std::mutex> lock(m_mutex);
  for (SoTimerQueueSensor* s : m_timerQueue) s->m_scheduled = false;
  m_timerQueue.clear();
}

void SoSensorManager::setChangedCallback(void (*func)(void* data), void* data) {
  std::lock_guard<std::mutex> lock(m_mutex);
  m_changedFunc = func;
  m_changedData = data;
}

void SoSensorManager::insertTimerSensor(SoTimerQueueSensor* sensor) {
  insertTimerSensor(sensor, sensor->m_triggerTime);
}

void SoSensorManager::insertTimerSensor(SoTimerQueueSensor* sensor, const SbTime& triggerTime) {
  bool frontChanged = false;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    sensor->m_triggerTime = triggerTime;
    auto old = std::find(m_timerQueue.begin(), m_timerQueue.end(), sensor);
    if (old != m_timerQueue.end()) {
      frontChanged = old == m_timerQueue.begin();
      m_timerQueue.erase(old);
    }
    sensor->m_stamp = m_nextStamp++;
    auto pos = std::upper_bound(
        m_timerQueue.begin(), m_timerQueue.end(), sensor->m_triggerTime,
        [](const SbTime& t, const SoTimerQueueSensor* s) { return t < s->m_triggerTime; });
    frontChanged = frontChanged || pos == m_timerQueue.begin();
    m_timerQueue.insert(pos, sensor);
    sensor->m_scheduled = true;
  }
  if (frontChanged) notifyChanged();
}

void SoSensorManager::removeTimerSensor(SoTimerQueueSensor* sensor) {
  bool frontChanged = false;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    auto it = std::find(m_timerQueue.begin(), m_timerQueue.end(), sensor);
    if (it == m_timerQueue.end()) return;
    frontChanged = it == m_timerQueue.begin();
    m_timerQueue.erase(it);
    sensor->m_scheduled = false;
  }
  if (frontChanged) notifyChanged();
}

SoTimerQueueSensor* SoSensorManager::popDue(const SbTime& now, uint64_t stampLimit) {
  std::lock_guard<std::mutex> lock(m_mutex);
  for (auto it = m_timerQueue.begin(); it != m_timerQueue.end() && (*it)->m_triggerTime <= now; ++it) {
    if ((*it)->m_stamp >= stampLimit) continue;  // queued during this pass
    SoTimerQueueSensor* due = *it;
    m_timerQueue.erase(it);
    due->m_scheduled = false;
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
  while (SoTimerQueueSensor* due = popDue(now, stampLimit)) {
    fired = true;
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

void SoSensorManager::notifyChanged() {
  void (*func)(void*);
  void* data;
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    func = m_changedFunc;
    data = m_changedData;
  }
  if (func) func(data);
}
