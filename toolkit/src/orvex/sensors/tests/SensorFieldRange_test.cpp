// A field sensor reports which values of a multiple-value field changed.

#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/sensors/SoFieldSensor.h>

#include "SensorTestSupport.h"

namespace {

struct RangeLog {
  std::vector<SoDataSensor::ChangeTypes> types;
  std::vector<int> starts;
  std::vector<int> counts;
  std::vector<SoNode*> nodes;
  static void record(void* data, SoSensor* s) {
    auto* log = static_cast<RangeLog*>(data);
    auto* sensor = static_cast<SoDataSensor*>(s);
    log->types.push_back(sensor->getTriggerType());
    log->starts.push_back(sensor->getTriggerMFieldStartIndex());
    log->counts.push_back(sensor->getTriggerMFieldNumValues());
    log->nodes.push_back(sensor->getTriggerNode());
  }
};

class FieldSensorRange : public SensorFixture {};

TEST_F(FieldSensorRange, MultipleValueChangesCarryTheirStartAndCount) {
  SoMFFloat field;
  field.setValues(0, 5, std::vector<float>{0, 1, 2, 3, 4}.data());
  RangeLog log;
  SoFieldSensor sensor(&RangeLog::record, &log);
  sensor.setPriority(0);
  sensor.attach(&field);

  field.set1Value(3, 7.0f);
  const float more[] = {8.0f, 9.0f};
  field.setValues(4, 2, more);  // grows the field by one
  field.setValue(1.0f);         // replaces every value
  field.startEditing()[0] = 2.0f;
  field.finishEditing();

  ASSERT_EQ(log.types.size(), 4u);
  EXPECT_EQ(log.types[0], SoDataSensor::FIELDMULTIVALUE);
  EXPECT_EQ(log.starts[0], 3);
  EXPECT_EQ(log.counts[0], 1);
  EXPECT_EQ(log.types[1], SoDataSensor::FIELDMULTIVALUE);
  EXPECT_EQ(log.starts[1], 4);
  EXPECT_EQ(log.counts[1], 2);
  EXPECT_EQ(log.types[2], SoDataSensor::UNSPECIFIED);
  EXPECT_EQ(log.starts[2], -1);
  EXPECT_EQ(log.counts[2], 0);
  EXPECT_EQ(log.types[3], SoDataSensor::FIELDMULTIVALUE);
  EXPECT_EQ(log.starts[3], 0);
  EXPECT_EQ(log.counts[3], 1);
}

TEST_F(FieldSensorRange, AFieldOfANodeReportsTheNodeAndTheRange) {
  auto* coords = new SoCoordinate3;
  coords->ref();
  coords->point.setNum(4);
  RangeLog log;
  SoFieldSensor sensor(&RangeLog::record, &log);
  sensor.setPriority(0);
  sensor.attach(&coords->point);
  coords->point.set1Value(2, SbVec3f(1, 2, 3));
  ASSERT_EQ(log.types.size(), 1u);
  EXPECT_EQ(log.types[0], SoDataSensor::FIELDMULTIVALUE);
  EXPECT_EQ(log.starts[0], 2);
  EXPECT_EQ(log.counts[0], 1);
  EXPECT_EQ(log.nodes[0], coords);
  sensor.detach();
  coords->unref();
}

}  // namespace
