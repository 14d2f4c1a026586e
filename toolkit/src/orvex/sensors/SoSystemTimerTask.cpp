#include <Orvex/sensors/SoSystemTimerTask.h>

#include <Orvex/SoDB.h>
#include <Orvex/sensors/SoSensorManager.h>

#include "SystemTimerDriver.h"

void SoSystemTimerTask::run() {
  if (SoSensorManager* manager = SoDB::getSensorManager()) manager->processTimerQueue();
  // Also when nothing was due (the timer fired early): the timer is idle now
  // and must be armed again for the sensor that is still waiting.
  orvex::armSystemTimer();
}
