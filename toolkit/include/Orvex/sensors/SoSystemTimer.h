#pragma once
#include <Orvex/misc/SoRefCounter.h>

class SoSystemTimerTask;

// A timer of the host system (an event loop's timer, a GUI toolkit's, a
// thread) that drives the database's timer queue once it is handed to
// SoDB::setSystemTimer(). The database gives it a task, and arms it
// whenever the earliest pending timer sensor changes: stop(), setDelay()
// with the milliseconds until that sensor is due, start(). When the delay
// has passed the timer runs its task once (unless repeating); the task
// processes the queue and arms the timer again for the next sensor.
//
// The database calls these members from whichever thread changes the timer
// queue, and from inside the task itself, so start() and stop() must not
// wait for a task that is running.
class SoSystemTimer : public SoRefCounter {
 public:
  // Arms the timer: the task runs once the delay has passed (and again every
  // delay while repeating). Starting a started timer starts it anew.
  virtual void start() = 0;
  // Disarms the timer; the task does not run until the next start().
  virtual void stop() = 0;
  // True from start() until the task has run (single shot) or stop().
  virtual bool isPending() const = 0;
  // The delay of the next start(), in milliseconds.
  virtual void setDelay(unsigned int milliseconds) = 0;
  // Whether the timer fires every delay after a start, rather than once.
  virtual void setRepeat(bool repeat) = 0;
  // The task to run when the timer fires; null when the timer has been
  // released by the database. The timer may keep a reference to it.
  virtual void setTask(SoSystemTimerTask* task) = 0;

 protected:
  SoSystemTimer() = default;
  ~SoSystemTimer() override = default;
};
