#include "SensorTestSupport.h"

FiringLog g_firings;

void FiringLog::record(void* data, SoSensor*) { g_firings.tags.push_back(reinterpret_cast<intptr_t>(data)); }

void SensorFixture::SetUp() {
  SoDB::init();
  SoDB::enableRealTimeSensor(false);
  manager = SoDB::getSensorManager();
  ASSERT_NE(manager, nullptr);
  savedTimeout = SoDB::getDelaySensorTimeout();
  drainQueues();
  g_firings.tags.clear();
}

void SensorFixture::TearDown() {
  drainQueues();
  SoDB::setDelaySensorTimeout(savedTimeout);
  manager->setChangedCallback(nullptr, nullptr);
  SoDB::enableRealTimeSensor(true);
}

void SensorFixture::drainQueues() {
  manager->processImmediateQueue();
  manager->processDelayQueue(true);
  manager->processTimerQueue();
}
