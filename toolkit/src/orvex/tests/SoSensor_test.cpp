#include <Orvex/SoDB.h>
#include <Orvex/sensors/SoSensorManager.h>
#include <Orvex/sensors/SoTimerSensor.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <memory>
#include <thread>
#include <vector>

namespace {

// A timer-queue sensor whose trigger time the test chooses.
class Alarm : public SoTimerQueueSensor {
 public:
  using SoTimerQueueSensor::SoTimerQueueSensor;
  void setTime(const SbTime& t) { setTriggerTime(t); }
};

// Appends the sensor's data (an int tag) to a shared log.
std::vector<intptr_t> g_log;
void logTag(void* data, SoSensor*) { g_log.push_back(reinterpret_cast<intptr_t>(data)); }
void* tag(intptr_t t) { return reinterpret_cast<void*>(t); }

SbTime now() { return SbTime::getTimeOfDay(); }

// Sensors in these tests go through the database's manager; the real-time
// sensor is kept out of the way.
class SensorTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SoDB::init();
    SoDB::enableRealTimeSensor(false);
    manager = SoDB::getSensorManager();
    ASSERT_NE(manager, nullptr);
    g_log.clear();
  }
  void TearDown() override { SoDB::enableRealTimeSensor(true); }
  bool pending(SbTime& t) const { return manager->isTimerSensorPending(t); }
  SoSensorManager* manager = nullptr;
};

}  // namespace

TEST(SoSensor, FunctionAndData) {
  Alarm s;
  EXPECT_EQ(s.getFunction(), nullptr);
  s.trigger();  // nothing to call
  int data = 0;
  s.setFunction(&logTag, tag(5));
  EXPECT_EQ(s.getFunction(), &logTag);
  EXPECT_EQ(s.getData(), tag(5));
  s.setFunction(&logTag);  // the one-argument form keeps the data
  EXPECT_EQ(s.getData(), tag(5));
  s.setData(&data);
  EXPECT_EQ(s.getData(), &data);

  SoSensor* seen = nullptr;
  static SoSensor** seenPtr;
  seenPtr = &seen;
  s.setFunction([](void*, SoSensor* sensor) { *seenPtr = sensor; });
  s.trigger();
  EXPECT_EQ(seen, &s);
}

TEST_F(SensorTest, DueSensorsFireInTimeOrder) {
  const SbTime t = now();
  Alarm late(&logTag, tag(3)), early(&logTag, tag(1)), tie(&logTag, tag(2)), future(&logTag, tag(9));
  late.setTime(t - SbTime(1.0));
  early.setTime(t - SbTime(3.0));
  tie.setTime(t - SbTime(3.0));  // same time as early, queued later
  future.setTime(t + SbTime(60.0));
  late.schedule();
  early.schedule();
  tie.schedule();
  future.schedule();
  EXPECT_TRUE(early.isScheduled());

  SbTime first;
  ASSERT_TRUE(pending(first));
  EXPECT_EQ(first, t - SbTime(3.0));
  manager->processTimerQueue();
  EXPECT_EQ(g_log, (std::vector<intptr_t>{1, 2, 3}));
  EXPECT_FALSE(early.isScheduled());
  EXPECT_TRUE(future.isScheduled());
  ASSERT_TRUE(pending(first));
  EXPECT_EQ(first, t + SbTime(60.0));
  manager->processTimerQueue();  // nothing else is due
  EXPECT_EQ(g_log.size(), 3u);
}

TEST_F(SensorTest, UnscheduleAndDeletionLeaveTheQueue) {
  Alarm kept(&logTag, tag(1));
  auto doomed = std::make_unique<Alarm>(&logTag, tag(2));
  Alarm removed(&logTag, tag(3));
  for (Alarm* a : {&kept, doomed.get(), &removed}) {
    a->setTime(now() - SbTime(1.0));
    a->schedule();
  }
  removed.unschedule();
  EXPECT_FALSE(removed.isScheduled());
  doomed.reset();  // deleted while scheduled
  manager->processTimerQueue();
  EXPECT_EQ(g_log, (std::vector<intptr_t>{1}));
  SbTime t;
  EXPECT_FALSE(pending(t));
}

TEST_F(SensorTest, RescheduledSensorMoves) {
  Alarm a(&logTag, tag(1));
  a.setTime(now() + SbTime(30.0));
  a.schedule();
  a.setTime(now() - SbTime(1.0));
  a.schedule();  // moves, does not duplicate
  manager->processTimerQueue();
  EXPECT_EQ(g_log, (std::vector<intptr_t>{1}));
  SbTime t;
  EXPECT_FALSE(pending(t));
}

namespace {
Alarm* g_chained = nullptr;
void scheduleChained(void* data, SoSensor* s) {
  logTag(data, s);
  g_chained->setTime(SbTime::getTimeOfDay() - SbTime(5.0));
  g_chained->schedule();
}
}  // namespace

TEST_F(SensorTest, SensorsScheduledWhileFiringWaitForTheNextPass) {
  Alarm first(&scheduleChained, tag(1));
  Alarm chained(&logTag, tag(2));
  g_chained = &chained;
  first.setTime(now() - SbTime(1.0));
  first.schedule();
  manager->processTimerQueue();
  EXPECT_EQ(g_log, (std::vector<intptr_t>{1}));
  EXPECT_TRUE(chained.isScheduled());
  manager->processTimerQueue();
  EXPECT_EQ(g_log, (std::vector<intptr_t>{1, 2}));
}

namespace {
int g_changes = 0;
void countChange(void*) { ++g_changes; }
}  // namespace

TEST(SoSensorManager, ChangedCallbackWhenTheEarliestTimeMoves) {
  SoSensorManager local;
  SoDB::init();
  g_changes = 0;
  local.setChangedCallback(&countChange, nullptr);
  Alarm a, b;
  a.setTime(SbTime(100.0));
  b.setTime(SbTime(200.0));
  local.insertTimerSensor(&a);
  EXPECT_EQ(g_changes, 1);
  local.insertTimerSensor(&b);  // behind a: the earliest time is unchanged
  EXPECT_EQ(g_changes, 1);
  local.removeTimerSensor(&b);
  EXPECT_EQ(g_changes, 1);
  local.removeTimerSensor(&a);
  EXPECT_EQ(g_changes, 2);
  SbTime t;
  EXPECT_FALSE(local.isTimerSensorPending(t));
  local.insertTimerSensor(&a);
  local.processTimerQueue();  // a fired (its time has long passed)
  EXPECT_EQ(g_changes, 4);
  EXPECT_FALSE(a.isScheduled());
}

TEST_F(SensorTest, TimerWithPastBaseFiresOnceAndStaysOnItsGrid) {
  SoTimerSensor timer(&logTag, tag(1));
  const SbTime base = now() - SbTime(10.05);
  timer.setBaseTime(base);
  timer.setInterval(SbTime(1.0));
  EXPECT_EQ(timer.getBaseTime(), base);
  EXPECT_EQ(timer.getInterval(), SbTime(1.0));
  timer.schedule();
  EXPECT_EQ(timer.getTriggerTime(), base);

  manager->processTimerQueue();
  const SbTime after = now();
  EXPECT_EQ(g_log.size(), 1u);  // ten missed ticks are not replayed
  ASSERT_TRUE(timer.isScheduled());
  const double ticks = (timer.getTriggerTime() - base).getValue();
  EXPECT_NEAR(ticks, std::round(ticks), 1e-6);
  EXPECT_GT(timer.getTriggerTime(), after - SbTime(0.01));
  EXPECT_LE(timer.getTriggerTime() - after, SbTime(1.0));
  manager->processTimerQueue();
  EXPECT_EQ(g_log.size(), 1u);
}

TEST_F(SensorTest, TimerWithFutureBaseWaits) {
  SoTimerSensor timer(&logTag, tag(1));
  const SbTime base = now() + SbTime(30.0);
  timer.setBaseTime(base);
  timer.schedule();
  SbTime t;
  ASSERT_TRUE(pending(t));
  EXPECT_EQ(t, base);
  manager->processTimerQueue();
  EXPECT_TRUE(g_log.empty());
}

TEST_F(SensorTest, TimerWithoutBaseStartsOneIntervalFromNow) {
  SoTimerSensor timer(&logTag, tag(1));
  timer.setInterval(SbTime(5.0));
  const SbTime before = now();
  timer.schedule();
  EXPECT_GE(timer.getTriggerTime(), before + SbTime(5.0));
  EXPECT_LE(timer.getTriggerTime(), now() + SbTime(5.0));
  timer.setInterval(SbTime(8.0));  // applies at once
  EXPECT_GE(timer.getTriggerTime(), before + SbTime(8.0));
  timer.unschedule();
  EXPECT_FALSE(timer.isScheduled());
}

TEST_F(SensorTest, TimerFiresAgainAtTheNextTick) {
  SoTimerSensor timer(&logTag, tag(1));
  timer.setBaseTime(now() - SbTime(0.001));
  timer.setInterval(SbTime(0.04));
  timer.schedule();
  manager->processTimerQueue();
  ASSERT_EQ(g_log.size(), 1u);
  manager->processTimerQueue();
  EXPECT_EQ(g_log.size(), 1u);  // the next tick is still ahead
  const SbTime next = timer.getTriggerTime();
  while (now() < next) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  manager->processTimerQueue();
  EXPECT_EQ(g_log.size(), 2u);
  const double steps = (timer.getTriggerTime() - next).getValue() / 0.04;
  EXPECT_NEAR(steps, std::round(steps), 1e-6);  // still on the grid
  EXPECT_GE(std::round(steps), 1.0);
}

namespace {
void stopMyself(void* data, SoSensor* s) {
  logTag(data, s);
  s->unschedule();
}
}  // namespace

TEST_F(SensorTest, TimerMayUnscheduleItselfWhenFiring) {
  SoTimerSensor timer(&stopMyself, tag(4));
  timer.setBaseTime(now() - SbTime(1.0));
  timer.setInterval(SbTime(0.5));
  timer.schedule();
  manager->processTimerQueue();
  EXPECT_EQ(g_log, (std::vector<intptr_t>{4}));
  EXPECT_FALSE(timer.isScheduled());
}

TEST_F(SensorTest, DeletedTimerLeavesTheQueue) {
  auto timer = std::make_unique<SoTimerSensor>(&logTag, tag(1));
  timer->setBaseTime(now() - SbTime(1.0));
  timer->schedule();
  timer.reset();
  manager->processTimerQueue();
  EXPECT_TRUE(g_log.empty());
}
