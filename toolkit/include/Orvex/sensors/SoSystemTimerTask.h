#pragma once
#include <Orvex/misc/SoRefCounter.h>

// What a system timer runs when it fires: processes the database's timer
// queue (the timer sensors that are due fire) and then asks the database's
// system timer to fire again when the next timer sensor is due. A timer
// may run the task on any thread; a timer that fires too early only makes
// the task re-arm it.
class SoSystemTimerTask : public SoRefCounter {
 public:
  SoSystemTimerTask() = default;
  virtual void run();

 protected:
  ~SoSystemTimerTask() override = default;
};
