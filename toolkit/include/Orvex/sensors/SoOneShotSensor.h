#pragma once
#include <Orvex/sensors/SoDelayQueueSensor.h>

// Fires once, the next time the delay queue is processed after schedule().
class SoOneShotSensor : public SoDelayQueueSensor {
 public:
  SoOneShotSensor() = default;
  SoOneShotSensor(SoSensorCB* func, void* data) : SoDelayQueueSensor(func, data) {}
  ~SoOneShotSensor() override;
};
