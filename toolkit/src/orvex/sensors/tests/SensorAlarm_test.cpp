#include <Orvex/sensors/SoAlarmSensor.h>

#include <chrono>
#include <memory>
#include <thread>

#include "SensorTestSupport.h"

namespace {

using Tags = std::vector<intptr_t>;

class Alarm : public SensorFixture {};

TEST_F(Alarm, GoesOffOnceAtItsTime) {
  SoAlarmSensor alarm(&FiringLog::record, tag(1));
  const SbTime before = now();
  alarm.setTimeFromNow(SbTime(0.08));
  EXPECT_GE(alarm.getTime(), before + SbTime(0.08));
  EXPECT_LE(alarm.getTime(), now() + SbTime(0.08));
  EXPECT_FALSE(alarm.isScheduled());  // setting the time does not schedule
  alarm.schedule();
  EXPECT_EQ(alarm.getTriggerTime(), alarm.getTime());

  manager->processTimerQueue();
  EXPECT_TRUE(g_firings.tags.empty());  // not yet
  while (now() < alarm.getTime()) std::this_thread::sleep_for(std::chrono::milliseconds(2));
  const SbTime firedAfter = now();
  manager->processTimerQueue();
  EXPECT_EQ(g_firings.tags, Tags{1});
  EXPECT_GE(firedAfter, alarm.getTime());
  EXPECT_FALSE(alarm.isScheduled());
  manager->processTimerQueue();
  EXPECT_EQ(g_firings.tags, Tags{1});  // an alarm goes off once
}

TEST_F(Alarm, PastTimeGoesOffAtTheNextProcessing) {
  SoAlarmSensor alarm(&FiringLog::record, tag(1));
  alarm.setTime(now() - SbTime(5.0));
  alarm.schedule();
  manager->processTimerQueue();
  EXPECT_EQ(g_firings.tags, Tags{1});
}

TEST_F(Alarm, ANewTimeMovesAScheduledAlarm) {
  SoAlarmSensor alarm(&FiringLog::record, tag(1));
  alarm.setTime(now() + SbTime(60.0));
  alarm.schedule();
  manager->processTimerQueue();
  EXPECT_TRUE(g_firings.tags.empty());
  alarm.setTime(now() - SbTime(1.0));
  EXPECT_TRUE(alarm.isScheduled());
  EXPECT_EQ(alarm.getTriggerTime(), alarm.getTime());
  manager->processTimerQueue();
  EXPECT_EQ(g_firings.tags, Tags{1});
  EXPECT_FALSE(timerPending());  // moved, not duplicated
}

TEST_F(Alarm, AlarmsFireInTimeOrder) {
  SoAlarmSensor a(&FiringLog::record, tag(1)), b(&FiringLog::record, tag(2)), c(&FiringLog::record, tag(3));
  a.setTime(now() - SbTime(1.0));
  b.setTime(now() - SbTime(3.0));
  c.setTime(now() - SbTime(2.0));
  a.schedule();
  b.schedule();
  c.schedule();
  manager->processTimerQueue();
  EXPECT_EQ(g_firings.tags, (Tags{2, 3, 1}));
}

TEST_F(Alarm, UnscheduledOrDeletedAlarmNeverGoesOff) {
  SoAlarmSensor kept(&FiringLog::record, tag(1)), stopped(&FiringLog::record, tag(2));
  auto deleted = std::make_unique<SoAlarmSensor>(&FiringLog::record, tag(3));
  for (SoAlarmSensor* a : {&kept, &stopped, deleted.get()}) {
    a->setTime(now() - SbTime(1.0));
    a->schedule();
  }
  stopped.unschedule();
  deleted.reset();
  manager->processTimerQueue();
  EXPECT_EQ(g_firings.tags, Tags{1});
  EXPECT_FALSE(timerPending());
}

TEST_F(Alarm, AnAlarmMayRearmItselfForLater) {
  SoAlarmSensor alarm;
  alarm.setFunction(
      [](void*, SoSensor* s) {
        FiringLog::record(tag(5), s);
        auto* self = static_cast<SoAlarmSensor*>(s);
        self->setTimeFromNow(SbTime(60.0));
        self->schedule();
      },
      nullptr);
  alarm.setTime(now() - SbTime(1.0));
  alarm.schedule();
  manager->processTimerQueue();
  EXPECT_EQ(g_firings.tags, Tags{5});
  EXPECT_TRUE(alarm.isScheduled());
  EXPECT_GT(alarm.getTriggerTime(), now() + SbTime(59.0));
}

}  // namespace
