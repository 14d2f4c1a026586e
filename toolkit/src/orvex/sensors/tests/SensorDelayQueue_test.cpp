#include <Orvex/sensors/SoIdleSensor.h>
#include <Orvex/sensors/SoOneShotSensor.h>

#include <memory>
#include <thread>

#include "SensorTestSupport.h"

namespace {

using Tags = std::vector<intptr_t>;

class DelayQueue : public SensorFixture {};

TEST_F(DelayQueue, OneShotFiresOnceWhenTheQueueIsProcessed) {
  SoOneShotSensor s(&FiringLog::record, tag(1));
  EXPECT_EQ(s.getPriority(), SoDelayQueueSensor::getDefaultPriority());
  EXPECT_EQ(SoDelayQueueSensor::getDefaultPriority(), 100u);
  EXPECT_FALSE(s.isIdleOnly());
  EXPECT_FALSE(manager->isDelaySensorPending());

  s.schedule();
  s.schedule();  // already queued: still one firing
  EXPECT_TRUE(s.isScheduled());
  EXPECT_TRUE(manager->isDelaySensorPending());
  EXPECT_TRUE(g_firings.tags.empty());  // nothing fires before processing

  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, Tags{1});
  EXPECT_FALSE(s.isScheduled());
  EXPECT_FALSE(manager->isDelaySensorPending());
  manager->processDelayQueue(true);
  EXPECT_EQ(g_firings.tags, Tags{1});
}

TEST_F(DelayQueue, SensorsFireInPriorityOrderThenQueueingOrder) {
  SoOneShotSensor a(&FiringLog::record, tag(1)), b(&FiringLog::record, tag(2)), c(&FiringLog::record, tag(3)),
      d(&FiringLog::record, tag(4)), e(&FiringLog::record, tag(5));
  a.setPriority(50);
  b.setPriority(10);
  c.setPriority(200);
  d.setPriority(10);
  // e keeps the default priority 100.
  for (SoOneShotSensor* s : {&a, &b, &c, &d, &e}) s->schedule();
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, (Tags{2, 4, 1, 5, 3}));
}

TEST_F(DelayQueue, NewPriorityMovesAQueuedSensor) {
  SoOneShotSensor a(&FiringLog::record, tag(1)), b(&FiringLog::record, tag(2));
  a.schedule();
  b.schedule();
  b.setPriority(5);
  EXPECT_EQ(b.getPriority(), 5u);
  EXPECT_TRUE(b.isScheduled());
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, (Tags{2, 1}));
}

TEST_F(DelayQueue, IdleSensorsFireOnlyWhenIdle) {
  SoIdleSensor idle(&FiringLog::record, tag(1));
  SoOneShotSensor regular(&FiringLog::record, tag(2));
  EXPECT_TRUE(idle.isIdleOnly());
  idle.schedule();
  regular.schedule();
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, Tags{2});
  EXPECT_TRUE(idle.isScheduled());
  EXPECT_TRUE(manager->isDelaySensorPending());  // the idle sensor still waits
  manager->processDelayQueue(true);
  EXPECT_EQ(g_firings.tags, (Tags{2, 1}));
  EXPECT_FALSE(manager->isDelaySensorPending());
}

TEST_F(DelayQueue, IdleProcessingKeepsPriorityOrderAcrossKinds) {
  SoIdleSensor idle(&FiringLog::record, tag(1));
  SoOneShotSensor late(&FiringLog::record, tag(2));
  idle.setPriority(20);
  late.setPriority(80);
  late.schedule();
  idle.schedule();
  manager->processDelayQueue(true);
  EXPECT_EQ(g_firings.tags, (Tags{1, 2}));
}

TEST_F(DelayQueue, UnscheduledAndDeletedSensorsNeverFire) {
  SoOneShotSensor kept(&FiringLog::record, tag(1)), removed(&FiringLog::record, tag(2));
  auto deleted = std::make_unique<SoIdleSensor>(&FiringLog::record, tag(3));
  kept.schedule();
  removed.schedule();
  deleted->schedule();
  removed.unschedule();
  EXPECT_FALSE(removed.isScheduled());
  deleted.reset();
  manager->processDelayQueue(true);
  EXPECT_EQ(g_firings.tags, Tags{1});
  EXPECT_FALSE(manager->isDelaySensorPending());
}

// A sensor whose function deletes another queued sensor, or itself.
struct Deleter {
  std::unique_ptr<SoOneShotSensor> victim;
  static void run(void* data, SoSensor* s) {
    FiringLog::record(tag(10), s);
    static_cast<Deleter*>(data)->victim.reset();
  }
};

TEST_F(DelayQueue, SensorDeletedByAnEarlierSensorDoesNotFire) {
  Deleter d;
  SoOneShotSensor first(&Deleter::run, &d);
  first.setPriority(1);
  d.victim = std::make_unique<SoOneShotSensor>(&FiringLog::record, tag(2));
  d.victim->schedule();
  first.schedule();
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, Tags{10});
}

TEST_F(DelayQueue, SensorMayDeleteItselfWhenFiring) {
  Deleter d;
  d.victim = std::make_unique<SoOneShotSensor>(&Deleter::run, &d);
  d.victim->schedule();
  SoOneShotSensor after(&FiringLog::record, tag(2));
  after.schedule();
  manager->processDelayQueue(false);
  EXPECT_EQ(d.victim, nullptr);
  EXPECT_EQ(g_firings.tags, (Tags{10, 2}));
}

// Reschedules a sensor (possibly itself) from its function.
struct Rescheduler {
  SoDelayQueueSensor* other;
  static void run(void* data, SoSensor* s) {
    FiringLog::record(tag(20), s);
    static_cast<Rescheduler*>(data)->other->schedule();
  }
};

TEST_F(DelayQueue, SensorsQueuedWhileProcessingWaitForTheNextPass) {
  SoOneShotSensor second(&FiringLog::record, tag(2));
  Rescheduler r{&second};
  SoOneShotSensor first(&Rescheduler::run, &r);
  second.setPriority(200);  // would come after `first` in the same pass
  first.schedule();
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, Tags{20});
  EXPECT_TRUE(second.isScheduled());
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, (Tags{20, 2}));
}

TEST_F(DelayQueue, SelfReschedulingSensorFiresOncePerPass) {
  SoOneShotSensor self;
  Rescheduler r{&self};
  self.setFunction(&Rescheduler::run, &r);
  self.schedule();
  manager->processDelayQueue(true);
  manager->processDelayQueue(true);
  EXPECT_EQ(g_firings.tags, (Tags{20, 20}));
  EXPECT_TRUE(self.isScheduled());
  self.unschedule();
}

TEST_F(DelayQueue, PriorityZeroFiresAtOnceOnTheSchedulingThread) {
  SoOneShotSensor s(&FiringLog::record, tag(1));
  s.setPriority(0);
  s.schedule();
  EXPECT_EQ(g_firings.tags, Tags{1});
  EXPECT_FALSE(s.isScheduled());
  EXPECT_FALSE(manager->isDelaySensorPending());
}

// Immediate sensors that schedule the next immediate sensor of a chain: each
// fires after the previous one returned, never nested inside it.
int g_depth = 0;
int g_maxDepth = 0;
struct Chain {
  intptr_t id;
  SoDelayQueueSensor* next;
  static void run(void* data, SoSensor* s) {
    auto* c = static_cast<Chain*>(data);
    g_maxDepth = std::max(g_maxDepth, ++g_depth);
    FiringLog::record(tag(c->id), s);
    if (c->next) c->next->schedule();
    --g_depth;
  }
};

TEST_F(DelayQueue, ImmediateSensorsScheduledWhileFiringAreNotNested) {
  SoOneShotSensor first, second, third;
  Chain c3{3, nullptr}, c2{2, &third}, c1{1, &second};
  first.setFunction(&Chain::run, &c1);
  second.setFunction(&Chain::run, &c2);
  third.setFunction(&Chain::run, &c3);
  for (SoOneShotSensor* s : {&first, &second, &third}) s->setPriority(0);
  g_depth = g_maxDepth = 0;
  first.schedule();
  EXPECT_EQ(g_firings.tags, (Tags{1, 2, 3}));  // all fired before schedule() returned
  EXPECT_EQ(g_maxDepth, 1);
}

TEST_F(DelayQueue, ChangingThePriorityToZeroFiresAQueuedSensor) {
  SoOneShotSensor s(&FiringLog::record, tag(1));
  s.schedule();
  s.setPriority(0);
  EXPECT_EQ(g_firings.tags, Tags{1});
  EXPECT_FALSE(manager->isDelaySensorPending());
}

TEST_F(DelayQueue, SensorsFireOnTheThreadThatProcessesTheQueue) {
  std::thread::id firedOn;
  SoOneShotSensor s([](void* data, SoSensor*) { *static_cast<std::thread::id*>(data) = std::this_thread::get_id(); },
                    &firedOn);
  s.schedule();
  std::thread::id processor;
  std::thread worker([&] {
    processor = std::this_thread::get_id();
    manager->processDelayQueue(false);
  });
  worker.join();
  EXPECT_EQ(firedOn, processor);
  EXPECT_NE(firedOn, std::this_thread::get_id());
}

TEST_F(DelayQueue, ManyThreadsSchedulingFireEachSensorOnce) {
  constexpr int kSensors = 64;
  std::vector<std::unique_ptr<SoOneShotSensor>> sensors;
  std::atomic<int> fired{0};
  for (int i = 0; i < kSensors; ++i)
    sensors.push_back(std::make_unique<SoOneShotSensor>(
        [](void* data, SoSensor*) { static_cast<std::atomic<int>*>(data)->fetch_add(1); }, &fired));
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&] {
      for (auto& s : sensors) s->schedule();  // every thread schedules every sensor
    });
  for (auto& t : threads) t.join();
  manager->processDelayQueue(false);
  EXPECT_EQ(fired.load(), kSensors);
}

struct ChangeCount {
  int count = 0;
  static void bump(void* data) { ++static_cast<ChangeCount*>(data)->count; }
};

TEST_F(DelayQueue, ChangedCallbackWhenTheQueueBecomesPendingOrEmpty) {
  SoDB::setDelaySensorTimeout(SbTime::zero());  // no timeout alarm in the timer queue
  ChangeCount changes;
  manager->setChangedCallback(&ChangeCount::bump, &changes);
  SoOneShotSensor a(&FiringLog::record, tag(1)), b(&FiringLog::record, tag(2));
  a.schedule();
  EXPECT_EQ(changes.count, 1);  // now pending
  b.schedule();
  EXPECT_EQ(changes.count, 1);  // still pending: nothing new for the loop
  b.unschedule();
  EXPECT_EQ(changes.count, 1);
  a.unschedule();
  EXPECT_EQ(changes.count, 2);  // empty again
  a.schedule();
  manager->processDelayQueue(false);
  EXPECT_EQ(changes.count, 4);
}

TEST(DelayQueueStandalone, AManagerOfItsOwnFiresItsSensors) {
  SoDB::init();
  SoSensorManager local;
  SoOneShotSensor s(&FiringLog::record, tag(7));
  g_firings.tags.clear();
  local.insertDelaySensor(&s);
  EXPECT_TRUE(s.isScheduled());
  EXPECT_TRUE(local.isDelaySensorPending());
  EXPECT_FALSE(SoDB::getSensorManager()->isDelaySensorPending());
  local.processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, std::vector<intptr_t>{7});

  // A sensor still queued when its manager goes away is simply unscheduled.
  auto doomed = std::make_unique<SoSensorManager>();
  doomed->insertDelaySensor(&s);
  doomed.reset();
  EXPECT_FALSE(s.isScheduled());
}

}  // namespace
