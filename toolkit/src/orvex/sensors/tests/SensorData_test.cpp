#include <Orvex/fields/SoSFTime.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/sensors/SoFieldSensor.h>

#include <memory>

#include "SensorTestSupport.h"

namespace {

using Tags = std::vector<intptr_t>;

class FieldSensor : public SensorFixture {};

TEST(DataSensorTypes, ChangeTypesKeepTheirOrder) {
  EXPECT_EQ(SoDataSensor::UNSPECIFIED, 0);
  EXPECT_EQ(SoDataSensor::GROUPADDCHILD, 1);
  EXPECT_EQ(SoDataSensor::GROUPINSERTCHILD, 2);
  EXPECT_EQ(SoDataSensor::GROUPREPLACECHILD, 3);
  EXPECT_EQ(SoDataSensor::GROUPREMOVECHILD, 4);
  EXPECT_EQ(SoDataSensor::GROUPREMOVEALLCHILDREN, 5);
  EXPECT_EQ(SoDataSensor::FIELDMULTIVALUE, 6);
}

TEST_F(FieldSensor, FiresOnceForTheChangesBeforeProcessing) {
  SoSFTime field;
  SoFieldSensor sensor(&FiringLog::record, tag(1));
  EXPECT_EQ(sensor.getAttachedField(), nullptr);
  sensor.attach(&field);
  EXPECT_EQ(sensor.getAttachedField(), &field);
  EXPECT_FALSE(sensor.isScheduled());

  field.setValue(SbTime(1.0));
  field.setValue(SbTime(2.0));
  field.touch();
  EXPECT_TRUE(sensor.isScheduled());
  EXPECT_TRUE(g_firings.tags.empty());
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, Tags{1});

  field.setValue(SbTime(3.0));  // a later change fires again
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, (Tags{1, 1}));
}

TEST_F(FieldSensor, FieldsWithNotificationOffAreNotWatched) {
  SoSFTime field;
  SoFieldSensor sensor(&FiringLog::record, tag(1));
  sensor.attach(&field);
  field.enableNotify(false);
  field.setValue(SbTime(1.0));
  EXPECT_FALSE(sensor.isScheduled());
}

// Records what the sensor reported while it fired.
struct Seen {
  std::vector<SoField*> fields;
  std::vector<SoDataSensor::ChangeTypes> types;
  std::vector<bool> fastEdit;
  static void run(void* data, SoSensor* s) {
    auto* seen = static_cast<Seen*>(data);
    auto* ds = static_cast<SoDataSensor*>(s);
    seen->fields.push_back(ds->getTriggerField());
    seen->types.push_back(ds->getTriggerType());
    seen->fastEdit.push_back(ds->getTriggerFastEditInfo());
    EXPECT_EQ(ds->getTriggerNode(), nullptr);  // a field outside any node
    EXPECT_EQ(ds->getTriggerChild(), nullptr);
    EXPECT_EQ(ds->getTriggerChildIndex(), -1);
    EXPECT_EQ(ds->getTriggerMFieldStartIndex(), -1);
    EXPECT_EQ(ds->getTriggerMFieldNumValues(), 0);
  }
};

TEST_F(FieldSensor, ImmediateSensorFiresForEveryChangeWithItsTriggerField) {
  SoSFTime field;
  Seen seen;
  SoFieldSensor sensor(&Seen::run, &seen);
  sensor.setPriority(0);
  sensor.attach(&field);
  field.setValue(SbTime(1.0));
  field.setValue(SbTime(2.0));
  ASSERT_EQ(seen.fields.size(), 2u);  // during each change, no processing needed
  EXPECT_EQ(seen.fields[0], &field);
  EXPECT_EQ(seen.fields[1], &field);
  EXPECT_EQ(seen.types[0], SoDataSensor::UNSPECIFIED);
  EXPECT_FALSE(seen.fastEdit[0]);  // not asked for
  EXPECT_FALSE(sensor.isScheduled());

  sensor.setTriggerFastEditInfoFlag(true);
  EXPECT_TRUE(sensor.getTriggerFastEditInfoFlag());
  field.setValue(SbTime(3.0));
  ASSERT_EQ(seen.fastEdit.size(), 3u);
  EXPECT_TRUE(seen.fastEdit[2]);  // a plain value change can be edited in place
}

TEST_F(FieldSensor, TheTriggerNodeIsTheFieldsNode) {
  auto* node = new SoTranslation;
  node->ref();
  SoFieldSensor sensor;
  struct Seen {
    SoNode* node = nullptr;
    SoField* field = nullptr;
  } seen;
  sensor.setFunction(
      [](void* data, SoSensor* s) {
        auto* ds = static_cast<SoDataSensor*>(s);
        static_cast<Seen*>(data)->node = ds->getTriggerNode();
        static_cast<Seen*>(data)->field = ds->getTriggerField();
      },
      &seen);
  sensor.setPriority(0);
  sensor.attach(&node->translation);
  node->translation.setValue(1, 2, 3);
  EXPECT_EQ(seen.node, node);
  EXPECT_EQ(seen.field, &node->translation);
  sensor.detach();
  node->unref();
}

TEST_F(FieldSensor, DelayedSensorHasNoTriggerInformation) {
  SoSFTime field;
  Seen seen;
  SoFieldSensor sensor(&Seen::run, &seen);
  sensor.setTriggerFastEditInfoFlag(true);
  sensor.attach(&field);
  field.setValue(SbTime(1.0));
  manager->processDelayQueue(false);
  ASSERT_EQ(seen.fields.size(), 1u);
  EXPECT_EQ(seen.fields[0], nullptr);
  EXPECT_FALSE(seen.fastEdit[0]);
}

TEST_F(FieldSensor, TriggerPathFlagIsKept) {
  SoFieldSensor sensor;
  EXPECT_FALSE(sensor.getTriggerPathFlag());
  sensor.setTriggerPathFlag(true);
  EXPECT_TRUE(sensor.getTriggerPathFlag());
  EXPECT_EQ(sensor.getTriggerPath(), nullptr);  // nothing changed yet
}

TEST_F(FieldSensor, DetachedSensorIsNeverToldAgain) {
  SoSFTime field;
  SoFieldSensor sensor(&FiringLog::record, tag(1));
  sensor.attach(&field);
  field.setValue(SbTime(1.0));
  sensor.detach();  // also drops the pending firing
  EXPECT_FALSE(sensor.isScheduled());
  EXPECT_EQ(sensor.getAttachedField(), nullptr);
  EXPECT_EQ(field.getNumAuditors(), 0);
  field.setValue(SbTime(2.0));
  manager->processDelayQueue(true);
  EXPECT_TRUE(g_firings.tags.empty());
}

TEST_F(FieldSensor, AttachingElsewhereLeavesTheFirstField) {
  SoSFTime first, second;
  SoFieldSensor sensor(&FiringLog::record, tag(1));
  sensor.attach(&first);
  sensor.attach(&second);
  EXPECT_EQ(first.getNumAuditors(), 0);
  EXPECT_EQ(second.getNumAuditors(), 1);
  first.setValue(SbTime(1.0));
  EXPECT_FALSE(sensor.isScheduled());
  second.setValue(SbTime(1.0));
  EXPECT_TRUE(sensor.isScheduled());
}

TEST_F(FieldSensor, DeletedSensorLeavesTheFieldAndNeverFires) {
  SoSFTime field;
  auto sensor = std::make_unique<SoFieldSensor>(&FiringLog::record, tag(1));
  sensor->attach(&field);
  field.setValue(SbTime(1.0));
  sensor.reset();  // attached and scheduled
  EXPECT_EQ(field.getNumAuditors(), 0);
  field.setValue(SbTime(2.0));
  manager->processDelayQueue(true);
  EXPECT_TRUE(g_firings.tags.empty());
}

struct Dying {
  SoSensor* sensorSeen = nullptr;
  SoField* attachedDuringCall = reinterpret_cast<SoField*>(1);
  static void run(void* data, SoSensor* s) {
    auto* d = static_cast<Dying*>(data);
    d->sensorSeen = s;
    d->attachedDuringCall = static_cast<SoFieldSensor*>(s)->getAttachedField();
  }
};

TEST_F(FieldSensor, DestroyedFieldCallsTheDeleteCallbackAndDetaches) {
  auto field = std::make_unique<SoSFTime>();
  SoFieldSensor sensor(&FiringLog::record, tag(1));
  Dying dying;
  sensor.setDeleteCallback(&Dying::run, &dying);
  sensor.attach(field.get());
  field->setValue(SbTime(1.0));  // pending when the field dies
  field.reset();
  EXPECT_EQ(dying.sensorSeen, &sensor);
  EXPECT_EQ(dying.attachedDuringCall, nullptr);
  EXPECT_EQ(sensor.getAttachedField(), nullptr);
  EXPECT_FALSE(sensor.isScheduled());
  manager->processDelayQueue(true);
  EXPECT_TRUE(g_firings.tags.empty());  // the last change is not reported after death
}

TEST_F(FieldSensor, DeleteCallbackMayDeleteTheSensor) {
  auto field = std::make_unique<SoSFTime>();
  auto* sensor = new SoFieldSensor(&FiringLog::record, tag(1));  // owned by its delete callback
  int deleted = 0;
  sensor->setDeleteCallback(
      [](void* data, SoSensor* s) {
        ++*static_cast<int*>(data);
        delete s;
      },
      &deleted);
  sensor->attach(field.get());
  field.reset();
  EXPECT_EQ(deleted, 1);
}

TEST_F(FieldSensor, DeleteCallbackMayReattachTheSensor) {
  auto field = std::make_unique<SoSFTime>();
  SoSFTime spare;
  SoFieldSensor sensor(&FiringLog::record, tag(1));
  struct Ctx {
    SoSFTime* spare;
  } ctx{&spare};
  sensor.setDeleteCallback(
      [](void* data, SoSensor* s) { static_cast<SoFieldSensor*>(s)->attach(static_cast<Ctx*>(data)->spare); }, &ctx);
  sensor.attach(field.get());
  field.reset();
  EXPECT_EQ(sensor.getAttachedField(), &spare);
  spare.setValue(SbTime(4.0));
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, Tags{1});
}

TEST_F(FieldSensor, SensorsOfOneFieldFireInPriorityOrder) {
  SoSFTime field;
  SoFieldSensor low(&FiringLog::record, tag(1)), high(&FiringLog::record, tag(2));
  low.setPriority(150);
  high.setPriority(20);
  low.attach(&field);
  high.attach(&field);
  field.setValue(SbTime(1.0));
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, (Tags{2, 1}));
}

}  // namespace
