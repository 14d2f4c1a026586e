#include <Orvex/sensors/SoAlarmSensor.h>
#include <Orvex/sensors/SoSystemTimer.h>
#include <Orvex/sensors/SoSystemTimerTask.h>
#include <Orvex/sensors/SoTimerSensor.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include "SensorTestSupport.h"

namespace {

using Tags = std::vector<intptr_t>;

// A system timer that only records what the database asks of it; the test
// fires it by hand.
class RecordingTimer : public SoSystemTimer {
 public:
  void start() override {
    calls.push_back("start");
    pending = true;
  }
  void stop() override {
    calls.push_back("stop");
    pending = false;
  }
  bool isPending() const override { return pending; }
  void setDelay(unsigned int ms) override {
    calls.push_back("delay");
    delay = ms;
  }
  void setRepeat(bool r) override {
    calls.push_back(r ? "repeat" : "once");
    repeat = r;
  }
  void setTask(SoSystemTimerTask* t) override {
    calls.push_back(t ? "task" : "no task");
    if (t) t->ref();
    if (task) task->unref();
    task = t;
  }
  // What a host timer does when the delay has passed.
  void fire() {
    ASSERT_TRUE(pending);
    ASSERT_NE(task, nullptr);
    pending = false;
    task->run();
  }
  // Whether the last request was to be armed again.
  bool lastCallWasStart() const { return !calls.empty() && calls.back() == "start"; }

  std::vector<std::string> calls;
  bool pending = false;
  bool repeat = true;
  unsigned int delay = 0;
  SoSystemTimerTask* task = nullptr;

  ~RecordingTimer() override {
    if (task) task->unref();
  }
};

// Keeps a timer referenced by the test, and the database's slot empty at the end.
struct TimerHolder {
  explicit TimerHolder(RecordingTimer* t) : timer(t) { timer->ref(); }
  ~TimerHolder() {
    SoDB::setSystemTimer(nullptr);
    timer->unref();
  }
  RecordingTimer* operator->() const { return timer; }
  RecordingTimer* timer;
};

class SystemTimer : public SensorFixture {
 protected:
  void TearDown() override {
    SoDB::setSystemTimer(nullptr);
    SensorFixture::TearDown();
  }
};

// The milliseconds from now until `t`, rounded down and up: a delay the
// database computes between two such readings lies between them.
unsigned int msFloor(const SbTime& t) { return static_cast<unsigned int>(std::max(0.0, std::floor((t - now()).getValue() * 1000.0))); }
unsigned int msCeil(const SbTime& t) { return static_cast<unsigned int>(std::max(0.0, std::ceil((t - now()).getValue() * 1000.0))); }

void sleepUntil(const SbTime& t) {
  while (now() < t) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

}  // namespace

TEST_F(SystemTimer, IsGivenATaskAndArmedForTheEarliestSensor) {
  TimerHolder timer(new RecordingTimer);
  EXPECT_EQ(SoDB::getSystemTimer(), nullptr);
  SoDB::setSystemTimer(timer.timer);
  EXPECT_EQ(SoDB::getSystemTimer(), timer.timer);
  // The database holds a reference while the timer is set.
  EXPECT_EQ(timer.timer->getRefCount(), 2);
  // Single shots, and a task; with nothing queued the timer is not armed.
  ASSERT_NE(timer->task, nullptr);
  EXPECT_FALSE(timer->repeat);
  EXPECT_FALSE(timer->pending);
  EXPECT_EQ(std::count(timer->calls.begin(), timer->calls.end(), "start"), 0);

  SoAlarmSensor late(&FiringLog::record, tag(2));
  const SbTime lateTime = now() + SbTime(0.4);
  late.setTime(lateTime);
  const unsigned int upper = msCeil(lateTime);
  late.schedule();
  const unsigned int lower = msFloor(lateTime);
  ASSERT_TRUE(timer->pending);
  EXPECT_TRUE(timer->lastCallWasStart());
  // The delay runs from now to the sensor's time, rounded up.
  EXPECT_LE(timer->delay, upper);
  EXPECT_GE(timer->delay, lower);

  // An earlier sensor re-arms the timer for its own time.
  SoAlarmSensor early(&FiringLog::record, tag(1));
  early.setTime(now() + SbTime(0.05));
  early.schedule();
  EXPECT_TRUE(timer->lastCallWasStart());
  EXPECT_LE(timer->delay, 50u);

  // A sensor behind the earliest one leaves the armed timer alone.
  const size_t callsBefore = timer->calls.size();
  SoAlarmSensor later(&FiringLog::record, tag(3));
  later.setTime(now() + SbTime(5.0));
  later.schedule();
  EXPECT_EQ(timer->calls.size(), callsBefore);

  // Removing the earliest sensor arms the timer for the next one.
  early.unschedule();
  EXPECT_TRUE(timer->lastCallWasStart());
  EXPECT_GE(timer->delay, msFloor(lateTime));
  EXPECT_LE(timer->delay, 400u);
  // Removing everything stops it.
  late.unschedule();
  later.unschedule();
  EXPECT_FALSE(timer->pending);
  EXPECT_EQ(timer->calls.back(), "stop");
  EXPECT_TRUE(g_firings.tags.empty());
}

TEST_F(SystemTimer, ItsTaskFiresTheDueSensorsAndArmsItAgain) {
  TimerHolder timer(new RecordingTimer);
  SoDB::setSystemTimer(timer.timer);
  SoAlarmSensor first(&FiringLog::record, tag(1));
  SoAlarmSensor second(&FiringLog::record, tag(2));
  first.setTime(now() + SbTime(0.03));
  second.setTime(now() + SbTime(0.2));
  first.schedule();
  second.schedule();

  // Fired too early: nothing is due, and the timer is armed again.
  timer->fire();
  EXPECT_TRUE(g_firings.tags.empty());
  ASSERT_TRUE(timer->pending);
  EXPECT_LE(timer->delay, 30u);

  sleepUntil(first.getTime());
  const unsigned int upper = msCeil(second.getTime());
  timer->fire();
  const unsigned int lower = msFloor(second.getTime());
  EXPECT_EQ(g_firings.tags, Tags{1});
  // Armed for the second sensor.
  ASSERT_TRUE(timer->pending);
  EXPECT_GE(timer->delay, lower);
  EXPECT_LE(timer->delay, upper);

  sleepUntil(second.getTime());
  timer->fire();
  EXPECT_EQ(g_firings.tags, (Tags{1, 2}));
  // Nothing left: not armed.
  EXPECT_FALSE(timer->pending);
  EXPECT_FALSE(first.isScheduled());
  EXPECT_FALSE(second.isScheduled());
}

TEST_F(SystemTimer, ARepeatingSensorKeepsTheTimerArmedForEachTick) {
  TimerHolder timer(new RecordingTimer);
  SoDB::setSystemTimer(timer.timer);
  SoTimerSensor ticker(&FiringLog::record, tag(7));
  ticker.setInterval(SbTime(0.02));
  ticker.schedule();
  for (int tick = 1; tick <= 3; ++tick) {
    ASSERT_TRUE(timer->pending);
    EXPECT_LE(timer->delay, 20u);
    sleepUntil(ticker.getTriggerTime());
    timer->fire();
    EXPECT_EQ(g_firings.tags.size(), static_cast<size_t>(tick));
  }
  ticker.unschedule();
  EXPECT_FALSE(timer->pending);
}

TEST_F(SystemTimer, UnsettingOrReplacingGivesTheTimerUp) {
  TimerHolder a(new RecordingTimer);
  TimerHolder b(new RecordingTimer);
  SoAlarmSensor alarm(&FiringLog::record, tag(1));
  alarm.setTime(now() + SbTime(60.0));
  alarm.schedule();

  SoDB::setSystemTimer(a.timer);
  ASSERT_TRUE(a->pending);  // armed at once for the sensor already queued
  SoSystemTimerTask* taskOfA = a->task;
  ASSERT_NE(taskOfA, nullptr);

  // Setting the same timer again changes nothing.
  const size_t callsOfA = a->calls.size();
  SoDB::setSystemTimer(a.timer);
  EXPECT_EQ(a->calls.size(), callsOfA);
  EXPECT_EQ(a.timer->getRefCount(), 2);

  // Another timer: the first is stopped, loses its task and its reference.
  SoDB::setSystemTimer(b.timer);
  EXPECT_EQ(SoDB::getSystemTimer(), b.timer);
  EXPECT_FALSE(a->pending);
  EXPECT_EQ(a->task, nullptr);
  EXPECT_EQ(a->calls.back(), "no task");
  EXPECT_EQ(a.timer->getRefCount(), 1);
  EXPECT_TRUE(b->pending);
  EXPECT_EQ(b.timer->getRefCount(), 2);

  // Queue changes reach only the current timer.
  const size_t callsOfAAfter = a->calls.size();
  alarm.setTime(now() + SbTime(30.0));
  EXPECT_EQ(a->calls.size(), callsOfAAfter);
  EXPECT_TRUE(b->lastCallWasStart());

  // Unset: the queue is the application's again.
  SoDB::setSystemTimer(nullptr);
  EXPECT_EQ(SoDB::getSystemTimer(), nullptr);
  EXPECT_FALSE(b->pending);
  EXPECT_EQ(b->task, nullptr);
  EXPECT_EQ(b.timer->getRefCount(), 1);
  const size_t callsOfB = b->calls.size();
  alarm.setTime(now() - SbTime(1.0));
  EXPECT_EQ(b->calls.size(), callsOfB);
  SoDB::processEvents();
  EXPECT_EQ(g_firings.tags, Tags{1});
}

namespace {
// A system timer on a thread of its own, as a host event loop would have.
// stop() never waits for a running task.
class ThreadTimer : public SoSystemTimer {
 public:
  ThreadTimer() : m_thread([this] { loop(); }) {}
  ~ThreadTimer() override {
    {
      std::lock_guard<std::mutex> lock(m_mutex);
      m_quit = true;
    }
    m_wake.notify_all();
    m_thread.join();
    if (m_task) m_task->unref();
  }
  void start() override {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(m_delay);
    m_pending = true;
    m_wake.notify_all();
  }
  void stop() override {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_pending = false;
  }
  bool isPending() const override {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_pending;
  }
  void setDelay(unsigned int ms) override {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_delay = ms;
  }
  void setRepeat(bool) override {}
  void setTask(SoSystemTimerTask* task) override {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (task) task->ref();
    if (m_task) m_task->unref();
    m_task = task;
  }

 private:
  void loop() {
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_quit) {
      if (!m_pending || !m_task) {
        m_wake.wait(lock);
        continue;
      }
      if (m_wake.wait_until(lock, m_deadline) != std::cv_status::timeout) continue;
      if (!m_pending || std::chrono::steady_clock::now() < m_deadline) continue;
      m_pending = false;
      SoSystemTimerTask* task = m_task;
      task->ref();
      lock.unlock();
      task->run();  // without the timer's lock: the task arms the timer again
      task->unref();
      lock.lock();
    }
  }

  mutable std::mutex m_mutex;
  std::condition_variable m_wake;
  std::chrono::steady_clock::time_point m_deadline;
  unsigned int m_delay = 0;
  bool m_pending = false;
  bool m_quit = false;
  SoSystemTimerTask* m_task = nullptr;
  std::thread m_thread;
};

struct TickCounter {
  std::atomic<int> ticks{0};
  static void count(void* data, SoSensor*) { static_cast<TickCounter*>(data)->ticks++; }
};
}  // namespace

TEST_F(SystemTimer, AThreadTimerDrivesSensorsWithoutTheApplication) {
  auto* timer = new ThreadTimer;
  timer->ref();
  SoDB::setSystemTimer(timer);
  TickCounter counter;
  SoTimerSensor ticker(&TickCounter::count, &counter);
  ticker.setInterval(SbTime(0.01));
  ticker.schedule();
  SoAlarmSensor alarm(&TickCounter::count, &counter);
  alarm.setTimeFromNow(SbTime(0.02));
  alarm.schedule();
  // Nobody in this thread processes the queue; the timer's thread does.
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (counter.ticks < 6 && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  ticker.unschedule();
  EXPECT_GE(counter.ticks.load(), 6);
  EXPECT_FALSE(alarm.isScheduled());  // the alarm went off on the timer's thread
  SoDB::setSystemTimer(nullptr);
  timer->unref();
}
