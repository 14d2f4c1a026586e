#pragma once
#include <Orvex/SbBase.h>

#include <mutex>

class SoSensor;
// Sensor callback: the data given with the function, and the sensor that fired.
typedef void SoSensorCB(void* data, SoSensor* sensor);

// Base of all sensors: something that calls a function when it fires. The
// function and its data may be replaced from any thread, also while the
// sensor fires on another; each firing uses one consistent pair.
class SoSensor {
 public:
  SoSensor() = default;
  SoSensor(SoSensorCB* func, void* data) : m_func(func), m_data(data) {}
  virtual ~SoSensor() = default;
  SoSensor(const SoSensor&) = delete;
  SoSensor& operator=(const SoSensor&) = delete;

  void setFunction(SoSensorCB* func);
  void setFunction(SoSensorCB* func, void* data);
  SoSensorCB* getFunction() const;
  void setData(void* data);
  void* getData() const;

  virtual void schedule() = 0;
  virtual void unschedule() = 0;
  virtual bool isScheduled() const = 0;

  // Fires the sensor: calls its function, if any.
  virtual void trigger();

 private:
  mutable std::mutex m_funcMutex;  // guards the pair below
  SoSensorCB* m_func = nullptr;
  void* m_data = nullptr;
};
