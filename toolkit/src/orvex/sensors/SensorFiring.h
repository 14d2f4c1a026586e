#pragma once
// Keeps a sensor alive while it fires. A manager pops a sensor from its
// queue under its lock but calls the sensor after letting go of the lock
// (the sensor's function may reschedule or delete it), so another thread
// deleting the sensor in between would free it under the firing thread.
// The manager therefore records the sensor as firing while still holding
// its lock, and a sensor's destructor, before anything of it is torn down,
// stops it from being queued again, takes it off its queue and waits until
// no other thread fires it.

class SoSensor;

namespace SoSensorFiring {

// Called by a manager with its lock held, for the sensor it is popping,
// before it clears the sensor's manager: a destructor that no longer finds
// the sensor queued then finds it firing.
void begin(const SoSensor* sensor);
// Called by the same thread once the sensor's trigger has returned (the
// sensor may be gone by then: only its address is used).
void end(const SoSensor* sensor);

// Calls end() when the firing is over, also when the sensor's function throws.
class EndGuard {
 public:
  explicit EndGuard(const SoSensor* sensor) : m_sensor(sensor) {}
  ~EndGuard() { end(m_sensor); }
  EndGuard(const EndGuard&) = delete;
  EndGuard& operator=(const EndGuard&) = delete;

 private:
  const SoSensor* m_sensor;
};

// True once the sensor's destruction has begun: managers queue it no more.
// Called by a manager with its lock held.
bool isRetiring(const SoSensor* sensor);

// First thing in the destructor of every sensor class (the most derived one
// does the work, the others find it done): marks the sensor as retiring,
// unschedules it and waits while another thread fires it. A sensor deleted
// by its own function (on the firing thread) does not wait for itself.
void retire(SoSensor* sensor);
// Last thing in the destructors of the queue sensor bases: the address may
// be reused by a new sensor.
void forget(const SoSensor* sensor);

}  // namespace SoSensorFiring
