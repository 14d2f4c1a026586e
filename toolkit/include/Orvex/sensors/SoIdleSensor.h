#pragma once
#include <Orvex/sensors/SoDelayQueueSensor.h>

// Fires once, the next time the delay queue is processed because the
// application is idle; the delay sensor timeout never fires it.
class SoIdleSensor : public SoDelayQueueSensor {
 public:
  SoIdleSensor() = default;
  SoIdleSensor(SoSensorCB* func, void* data) : SoDelayQueueSensor(func, data) {}
  ~SoIdleSensor() override;
  bool isIdleOnly() const override { return true; }
};
