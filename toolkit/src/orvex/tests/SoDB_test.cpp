#include <Orvex/SoDB.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/sensors/SoSensorManager.h>
#include <Orvex/sensors/SoTimerSensor.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "ErrorCapture.h"

namespace {

class SoDBTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SoDB::init();
    SoDB::enableRealTimeSensor(true);
    SoDB::restoreRealTimeSensorCB();
    m_savedRealTime = realTime()->getValue();
  }
  // Tests that play with the clock leave it as they found it.
  void TearDown() override { realTime()->setValue(m_savedRealTime); }
  static SoSFTime* realTime() { return dynamic_cast<SoSFTime*>(SoDB::getGlobalField("realTime")); }
  // Makes the real-time sensor due now, on its grid.
  static void makeRealTimeDue() { SoDB::getRealTimeSensor()->setBaseTime(SbTime::getTimeOfDay() - SbTime(1.0)); }

 private:
  SbTime m_savedRealTime;
};

// A second field type, to show that a global field name is bound to one type.
class TestSFFlag : public SoSField {
 public:
  static SoType getClassTypeId() { return s_type; }
  SoType getTypeId() const override { return s_type; }
  static void initClass() {
    if (s_type.isBad())
      s_type = SoType::createType(SoSField::getClassTypeId(), "TestSFFlag",
                                  [] { return static_cast<void*>(static_cast<SoField*>(new TestSFFlag)); });
  }

 private:
  static SoType s_type;
};
SoType TestSFFlag::s_type;

}  // namespace

TEST_F(SoDBTest, InitIsIdempotent) {
  EXPECT_TRUE(SoDB::isInitialized());
  SoSensorManager* manager = SoDB::getSensorManager();
  SoField* field = SoDB::getGlobalField("realTime");
  SoTimerSensor* sensor = SoDB::getRealTimeSensor();
  const int types = SoType::getNumTypes();
  SoDB::init();
  EXPECT_EQ(SoDB::getSensorManager(), manager);
  EXPECT_EQ(SoDB::getGlobalField("realTime"), field);
  EXPECT_EQ(SoDB::getRealTimeSensor(), sensor);
  EXPECT_EQ(SoType::getNumTypes(), types);
}

TEST_F(SoDBTest, InitRegistersTheCoreTypes) {
  for (const char* name : {"TypedObject", "SoError", "SoDebugError", "SoReadError", "SoMemoryError",
                           "SoGLError", "SoErrorStack", "Base", "Field", "SField", "SFTime"})
    EXPECT_FALSE(SoType::fromName(name).isBad()) << name;
}

TEST_F(SoDBTest, Version) {
  EXPECT_STREQ(SoDB::getVersion(), "Orvex " ORVEX_EXPECTED_VERSION);
}

TEST_F(SoDBTest, RealTimeFieldHoldsTheTimeOfDay) {
  SoSFTime* field = realTime();
  ASSERT_NE(field, nullptr);
  EXPECT_EQ(field->getTypeId(), SoSFTime::getClassTypeId());
  EXPECT_GT(field->getValue(), SbTime::getTimeOfDay() - SbTime(3600.0));
  EXPECT_LE(field->getValue(), SbTime::getTimeOfDay());
}

TEST_F(SoDBTest, RealTimeSensorUpdatesTheField) {
  SoTimerSensor* sensor = SoDB::getRealTimeSensor();
  ASSERT_NE(sensor, nullptr);
  EXPECT_TRUE(SoDB::isRealTimeSensorEnabled());
  EXPECT_TRUE(sensor->isScheduled());
  EXPECT_EQ(sensor->getInterval(), SoDB::getRealTimeInterval());

  realTime()->setValue(SbTime(0.0));
  makeRealTimeDue();
  const SbTime before = SbTime::getTimeOfDay();
  SoDB::getSensorManager()->processTimerQueue();
  EXPECT_GE(realTime()->getValue(), before);
  EXPECT_LE(realTime()->getValue(), SbTime::getTimeOfDay());
}

TEST_F(SoDBTest, DefaultRealTimeIntervalIsATwelfthOfASecond) {
  // The other tests may change it; a fresh process starts with 1/12 s.
  SoDB::setRealTimeInterval(SbTime(1.0 / 12.0));
  EXPECT_DOUBLE_EQ(SoDB::getRealTimeSensor()->getInterval().getValue(), 1.0 / 12.0);
}

TEST_F(SoDBTest, DisabledRealTimeSensorLeavesTheFieldAlone) {
  SoDB::enableRealTimeSensor(false);
  EXPECT_FALSE(SoDB::isRealTimeSensorEnabled());
  EXPECT_FALSE(SoDB::getRealTimeSensor()->isScheduled());
  realTime()->setValue(SbTime(1.0));
  SoDB::getSensorManager()->processTimerQueue();
  EXPECT_EQ(realTime()->getValue(), SbTime(1.0));
  SoDB::enableRealTimeSensor(true);
  EXPECT_TRUE(SoDB::getRealTimeSensor()->isScheduled());
}

TEST_F(SoDBTest, HandOverToAnExternalClockAndBack) {
  // What a host with its own clock does: stop the sensor, drop its function,
  // and drive the field itself.
  SoDB::enableRealTimeSensor(false);
  SoDB::getRealTimeSensor()->setFunction(nullptr);
  SbTime start;
  start.setMsecValue(1234567u);
  realTime()->setValue(start);
  realTime()->enableNotify(true);

  SoDB::enableRealTimeSensor(true);  // scheduled, but with no function
  makeRealTimeDue();
  SoDB::getSensorManager()->processTimerQueue();
  EXPECT_EQ(realTime()->getValue().getMsecValue(), 1234567u);

  SoDB::restoreRealTimeSensorCB();
  makeRealTimeDue();
  SoDB::getSensorManager()->processTimerQueue();
  EXPECT_GT(realTime()->getValue(), SbTime::getTimeOfDay() - SbTime(60.0));
}

TEST_F(SoDBTest, SetRealTimeIntervalReschedules) {
  SoDB::setRealTimeInterval(SbTime(0.5));
  EXPECT_EQ(SoDB::getRealTimeInterval(), SbTime(0.5));
  SoTimerSensor* sensor = SoDB::getRealTimeSensor();
  EXPECT_EQ(sensor->getInterval(), SbTime(0.5));
  EXPECT_TRUE(sensor->isScheduled());
  SoDB::setRealTimeInterval(SbTime(1.0 / 12.0));
}

TEST_F(SoDBTest, GlobalFields) {
  TestSFFlag::initClass();
  ErrorCapture<SoDebugError> errors;
  SoField* f = SoDB::createGlobalField("testGlobal", SoSFTime::getClassTypeId());
  ASSERT_NE(f, nullptr);
  EXPECT_EQ(f->getTypeId(), SoSFTime::getClassTypeId());
  EXPECT_EQ(SoDB::createGlobalField("testGlobal", SoSFTime::getClassTypeId()), f);
  EXPECT_EQ(SoDB::createGlobalField("testGlobal", TestSFFlag::getClassTypeId()), nullptr);
  EXPECT_EQ(SoDB::getGlobalField("testGlobal"), f);
  EXPECT_EQ(errors.count(), 0u);

  // Types that are no creatable fields are refused with a debug error.
  EXPECT_EQ(SoDB::createGlobalField("testBad", SoSField::getClassTypeId()), nullptr);
  EXPECT_EQ(SoDB::createGlobalField("testBad", SoType::badType()), nullptr);
  EXPECT_EQ(errors.count(), 2u);
  EXPECT_EQ(SoDB::getGlobalField("testBad"), nullptr);

  SoDB::renameGlobalField("testGlobal", "testRenamed");
  EXPECT_EQ(SoDB::getGlobalField("testGlobal"), nullptr);
  EXPECT_EQ(SoDB::getGlobalField("testRenamed"), f);
  SoField* flag = SoDB::createGlobalField("testFlag", TestSFFlag::getClassTypeId());
  ASSERT_NE(flag, nullptr);
  SoDB::renameGlobalField("testFlag", "testRenamed");  // replaces the old one
  EXPECT_EQ(SoDB::getGlobalField("testRenamed"), flag);
  SoDB::renameGlobalField("testRenamed", "");  // deletes
  EXPECT_EQ(SoDB::getGlobalField("testRenamed"), nullptr);
  SoDB::renameGlobalField("absent", "whatever");
  EXPECT_EQ(SoDB::getGlobalField("whatever"), nullptr);
}

TEST_F(SoDBTest, MainThread) {
  SoDB::resetMainThreadId();
  EXPECT_TRUE(SoDB::isMainThread());
  bool otherIsMain = true;
  std::thread([&] {
    otherIsMain = SoDB::isMainThread();
    SoDB::resetMainThreadId();
  }).join();
  EXPECT_FALSE(otherIsMain);
  EXPECT_FALSE(SoDB::isMainThread());
  SoDB::resetMainThreadId();
  EXPECT_TRUE(SoDB::isMainThread());
}

TEST_F(SoDBTest, DelaySensorTimeout) {
  SoDB::setDelaySensorTimeout(SbTime(0.25));
  EXPECT_EQ(SoDB::getDelaySensorTimeout(), SbTime(0.25));
  SoDB::setDelaySensorTimeout(SbTime(1.0 / 12.0));
  EXPECT_EQ(SoDB::getDelaySensorTimeout(), SbTime(1.0 / 12.0));
}

TEST_F(SoDBTest, RealTimeSensorSurvivesConcurrentProcessing) {
  // A host timer thread drives the queue while this thread reconfigures the
  // real-time sensor, as a host handing the clock back at run time does.
  std::atomic<bool> stop{false};
  std::thread driver([&] {
    while (!stop) SoDB::getSensorManager()->processTimerQueue();
  });
  for (int i = 0; i < 2000; ++i) {
    SoDB::enableRealTimeSensor(i % 3 != 0);
    SoDB::setRealTimeInterval(SbTime(0.0001 * (i % 5)));
    if (i % 7 == 0) SoDB::restoreRealTimeSensorCB();
  }
  SoDB::setRealTimeInterval(SbTime(1.0 / 12.0));
  SoDB::enableRealTimeSensor(true);
  stop = true;
  driver.join();

  // The queue is consistent: the sensor is queued once, at its own time.
  SoTimerSensor* sensor = SoDB::getRealTimeSensor();
  ASSERT_TRUE(sensor->isScheduled());
  SbTime earliest;
  ASSERT_TRUE(SoDB::getSensorManager()->isTimerSensorPending(earliest));
  EXPECT_EQ(earliest, sensor->getTriggerTime());
  sensor->unschedule();
  EXPECT_FALSE(SoDB::getSensorManager()->isTimerSensorPending(earliest));
  SoDB::enableRealTimeSensor(true);
  realTime()->setValue(SbTime(0.0));
  makeRealTimeDue();
  SoDB::getSensorManager()->processTimerQueue();
  EXPECT_GT(realTime()->getValue(), SbTime(0.0));
}
