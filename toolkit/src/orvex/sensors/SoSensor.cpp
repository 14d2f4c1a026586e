#include <Orvex/sensors/SoSensor.h>

void SoSensor::setFunction(SoSensorCB* func) {
  std::lock_guard<std::mutex> lock(m_funcMutex);
  m_func = func;
}

void SoSensor::setFunction(SoSensorCB* func, void* data) {
  std::lock_guard<std::mutex> lock(m_funcMutex);
  m_func = func;
  m_data = data;
}

SoSensorCB* SoSensor::getFunction() const {
  std::lock_guard<std::mutex> lock(m_funcMutex);
  return m_func;
}

void SoSensor::setData(void* data) {
  std::lock_guard<std::mutex> lock(m_funcMutex);
  m_data = data;
}

void* SoSensor::getData() const {
  std::lock_guard<std::mutex> lock(m_funcMutex);
  return m_data;
}

void SoSensor::trigger() {
  SoSensorCB* func;
  void* data;
  {
    std::lock_guard<std::mutex> lock(m_funcMutex);
    func = m_func;
    data = m_data;
  }
  // Called without the lock: the function may change or delete the sensor.
  if (func) func(data, this);
}
