#pragma once
#include <Orvex/SoDB.h>
#include <Orvex/sensors/SoSensor.h>
#include <Orvex/sensors/SoSensorManager.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

// What the sensors of a test did: each firing appends the sensor's tag (the
// data given with its function).
struct FiringLog {
  std::vector<intptr_t> tags;
  static void record(void* data, SoSensor* sensor);
};
extern FiringLog g_firings;

inline void* tag(intptr_t t) { return reinterpret_cast<void*>(t); }
inline SbTime now() { return SbTime::getTimeOfDay(); }

// Every test runs against the database's sensor manager, with the real-time
// sensor out of the way and empty queues at start and end.
class SensorFixture : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  // Processes every queue (idle included) until nothing is due.
  void drainQueues();
  bool timerPending(SbTime& t) const { return manager->isTimerSensorPending(t); }
  bool timerPending() const {
    SbTime t;
    return manager->isTimerSensorPending(t);
  }

  SoSensorManager* manager = nullptr;
  SbTime savedTimeout;
};
