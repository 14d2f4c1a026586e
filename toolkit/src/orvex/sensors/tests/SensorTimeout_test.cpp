#include <Orvex/sensors/SoIdleSensor.h>
#include <Orvex/sensors/SoOneShotSensor.h>

#include <chrono>
#include <thread>

#include "SensorTestSupport.h"

namespace {

using Tags = std::vector<intptr_t>;

class DelayTimeout : public SensorFixture {
 protected:
  // Sleeps until the earliest timer-queue time has passed.
  void waitForEarliestTimer() {
    SbTime t;
    ASSERT_TRUE(timerPending(t));
    while (now() <= t) std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
};

TEST_F(DelayTimeout, TheDatabaseManagerSharesTheDatabaseValue) {
  SoDB::setDelaySensorTimeout(SbTime(0.25));
  EXPECT_EQ(manager->getDelaySensorTimeout(), SbTime(0.25));
  manager->setDelaySensorTimeout(SbTime(0.5));
  EXPECT_EQ(SoDB::getDelaySensorTimeout(), SbTime(0.5));

  SoSensorManager local;
  EXPECT_EQ(local.getDelaySensorTimeout(), SbTime(1.0 / 12.0));  // its own default
  local.setDelaySensorTimeout(SbTime(2.0));
  EXPECT_EQ(local.getDelaySensorTimeout(), SbTime(2.0));
  EXPECT_EQ(SoDB::getDelaySensorTimeout(), SbTime(0.5));
}

TEST_F(DelayTimeout, TimerProcessingPromotesDelaySensorsThatWaitedTooLong) {
  SoDB::setDelaySensorTimeout(SbTime(0.05));
  SoOneShotSensor regular(&FiringLog::record, tag(1));
  SoIdleSensor idle(&FiringLog::record, tag(2));
  EXPECT_FALSE(timerPending());
  const SbTime before = now();
  regular.schedule();
  idle.schedule();
  const SbTime after = now();
  SbTime deadline;
  ASSERT_TRUE(timerPending(deadline));  // the timeout is armed in the timer queue
  EXPECT_GE(deadline, before + SbTime(0.05));
  EXPECT_LE(deadline, after + SbTime(0.05));

  manager->processTimerQueue();  // too early: nothing happens
  EXPECT_TRUE(g_firings.tags.empty());
  waitForEarliestTimer();
  manager->processTimerQueue();
  EXPECT_EQ(g_firings.tags, Tags{1});  // the idle-only sensor still waits for idleness
  EXPECT_TRUE(idle.isScheduled());
  EXPECT_FALSE(timerPending());  // no regular sensor left: no alarm
  manager->processDelayQueue(true);
  EXPECT_EQ(g_firings.tags, (Tags{1, 2}));
}

TEST_F(DelayTimeout, IdleSensorsAloneArmNoTimeout) {
  SoDB::setDelaySensorTimeout(SbTime(0.01));
  SoIdleSensor idle(&FiringLog::record, tag(2));
  idle.schedule();
  EXPECT_FALSE(timerPending());
}

TEST_F(DelayTimeout, ProcessingTheDelayQueueDisarmsTheTimeout) {
  SoDB::setDelaySensorTimeout(SbTime(10.0));
  SoOneShotSensor s(&FiringLog::record, tag(1));
  s.schedule();
  EXPECT_TRUE(timerPending());
  manager->processDelayQueue(false);
  EXPECT_FALSE(timerPending());
  s.schedule();
  EXPECT_TRUE(timerPending());
  s.unschedule();
  EXPECT_FALSE(timerPending());
}

TEST_F(DelayTimeout, ZeroTimeoutNeverPromotes) {
  SoDB::setDelaySensorTimeout(SbTime::zero());
  SoOneShotSensor s(&FiringLog::record, tag(1));
  s.schedule();
  EXPECT_FALSE(timerPending());
  manager->processTimerQueue();
  EXPECT_TRUE(g_firings.tags.empty());
  EXPECT_TRUE(s.isScheduled());
}

TEST_F(DelayTimeout, ANewTimeoutMovesTheArmedDeadline) {
  SoDB::setDelaySensorTimeout(SbTime(30.0));
  SoOneShotSensor s(&FiringLog::record, tag(1));
  s.schedule();
  SbTime far;
  ASSERT_TRUE(timerPending(far));
  manager->setDelaySensorTimeout(SbTime(0.02));
  SbTime near;
  ASSERT_TRUE(timerPending(near));
  EXPECT_NEAR((far - near).getValue(), 30.0 - 0.02, 1e-3);
  waitForEarliestTimer();
  manager->processTimerQueue();
  EXPECT_EQ(g_firings.tags, Tags{1});

  s.schedule();
  manager->setDelaySensorTimeout(SbTime::zero());  // disarms
  EXPECT_FALSE(timerPending());
}

TEST_F(DelayTimeout, ATimeoutSetThroughTheDatabaseMovesTheArmedDeadline) {
  SoDB::setDelaySensorTimeout(SbTime(0.01));
  SoOneShotSensor s(&FiringLog::record, tag(1));
  s.schedule();
  SoDB::setDelaySensorTimeout(SbTime(30.0));  // longer: the armed alarm moves at once
  SbTime deadline;
  ASSERT_TRUE(timerPending(deadline));
  EXPECT_GT(deadline, now() + SbTime(29.0));
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  manager->processTimerQueue();
  EXPECT_TRUE(g_firings.tags.empty());  // the old 0.01 s deadline is gone

  SoDB::setDelaySensorTimeout(SbTime(0.03));  // shorter: it comes back
  ASSERT_TRUE(timerPending(deadline));
  EXPECT_LT(deadline, now() + SbTime(1.0));
  waitForEarliestTimer();
  manager->processTimerQueue();
  EXPECT_EQ(g_firings.tags, Tags{1});
}

}  // namespace
