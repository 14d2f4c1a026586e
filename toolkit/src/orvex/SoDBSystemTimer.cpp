// The database's system timer: the host timer that drives the timer queue.

#include <Orvex/SoDB.h>

#include <Orvex/sensors/SoSensorManager.h>
#include <Orvex/sensors/SoSystemTimer.h>
#include <Orvex/sensors/SoSystemTimerTask.h>

#include <cmath>
#include <limits>
#include <mutex>

#include "sensors/SystemTimerDriver.h"

namespace {

struct SystemTimerSlot {
  // Recursive: a timer may run its task from inside start() (a zero delay),
  // and the task arms the timer again.
  std::recursive_mutex mutex;
  SoSystemTimer* timer = nullptr;     // referenced while set
  SoSystemTimerTask* task = nullptr;  // referenced while its timer is set
  // The trigger time the timer was last armed for, so that queue changes
  // that leave the earliest sensor where it was do not restart the timer.
  bool armed = false;
  SbTime armedFor;
};

SystemTimerSlot& slot() {
  // Never destroyed: a host timer may still fire while the process exits.
  static SystemTimerSlot* instance = new SystemTimerSlot;
  return *instance;
}

// Milliseconds from now until `due`, rounded up so that the timer does not
// fire before the sensor is due; 0 for a time already passed.
unsigned int millisecondsUntil(const SbTime& due) {
  const double ms = std::ceil((due - SbTime::getTimeOfDay()).getValue() * 1000.0);
  if (!(ms > 0.0)) return 0;
  constexpr double kMax = static_cast<double>(std::numeric_limits<unsigned int>::max());
  return ms >= kMax ? std::numeric_limits<unsigned int>::max() : static_cast<unsigned int>(ms);
}

}  // namespace

void orvex::armSystemTimer() {
  SystemTimerSlot& s = slot();
  std::lock_guard<std::recursive_mutex> lock(s.mutex);
  if (!s.timer) return;
  SoSensorManager* manager = SoDB::getSensorManager();
  SbTime due;
  if (!manager || !manager->isTimerSensorPending(due)) {
    if (s.armed || s.timer->isPending()) s.timer->stop();
    s.armed = false;
    return;
  }
  if (s.armed && s.armedFor == due && s.timer->isPending()) return;
  s.armed = true;
  s.armedFor = due;
  s.timer->stop();
  s.timer->setDelay(millisecondsUntil(due));
  s.timer->start();
}

void SoDB::setSystemTimer(SoSystemTimer* timer) {
  SystemTimerSlot& s = slot();
  SoSystemTimer* oldTimer = nullptr;
  SoSystemTimerTask* oldTask = nullptr;
  {
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    if (timer != s.timer) {
      oldTimer = s.timer;
      oldTask = s.task;
      if (oldTimer) {
        oldTimer->stop();
        oldTimer->setTask(nullptr);
      }
      s.timer = timer;
      s.task = nullptr;
      s.armed = false;
      if (timer) {
        timer->ref();
        s.task = new SoSystemTimerTask;
        s.task->ref();
        // Single shots: each run of the task arms the timer for the next sensor.
        timer->setRepeat(false);
        timer->setTask(s.task);
      }
    }
    orvex::armSystemTimer();
  }
  // Released outside the lock: a timer's destructor may wait for its thread,
  // which may be running the task.
  if (oldTask) oldTask->unref();
  if (oldTimer) oldTimer->unref();
}

SoSystemTimer* SoDB::getSystemTimer() {
  SystemTimerSlot& s = slot();
  std::lock_guard<std::recursive_mutex> lock(s.mutex);
  return s.timer;
}
