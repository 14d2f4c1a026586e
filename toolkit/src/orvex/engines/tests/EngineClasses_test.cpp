// What each engine computes, checked against values worked out by hand.

#include <Orvex/SoDB.h>
#include <Orvex/engines/SoBoolOperation.h>
#include <Orvex/engines/SoComposeMatrix.h>
#include <Orvex/engines/SoComposeRotation.h>
#include <Orvex/engines/SoComposeRotationFromTo.h>
#include <Orvex/engines/SoComposeVec2f.h>
#include <Orvex/engines/SoCounter.h>
#include <Orvex/engines/SoDecomposeMatrix.h>
#include <Orvex/engines/SoDecomposeRotation.h>
#include <Orvex/engines/SoDecomposeVec3f.h>
#include <Orvex/engines/SoElapsedTime.h>
#include <Orvex/engines/SoGate.h>
#include <Orvex/engines/SoInterpolateFloat.h>
#include <Orvex/engines/SoInterpolateRotation.h>
#include <Orvex/engines/SoInterpolateVec3f.h>
#include <Orvex/engines/SoTimeCounter.h>
#include <Orvex/fields/SoMFBool.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFMatrix.h>
#include <Orvex/fields/SoMFRotation.h>
#include <Orvex/fields/SoMFVec2f.h>
#include <Orvex/fields/SoMFVec3f.h>
#include <Orvex/fields/SoSFShort.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/nodes/SoTransform.h>

#include <gtest/gtest.h>

#include <cmath>

#include "TestSupport.h"

namespace {

constexpr float kPi = 3.14159265358979f;

class Engines : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};

// Holds an engine for a test.
template <class E>
orvextest::Ref<E> engine(E* e) {
  return orvextest::Ref<E>(e);
}

TEST_F(Engines, ElapsedTimeCountsWhileOnAtItsSpeed) {
  auto timer = engine(new SoElapsedTime);
  EXPECT_TRUE(timer->timeIn.isConnected());  // follows realTime
  timer->timeIn.disconnect();
  timer->timeIn = SbTime(100.0);
  timer->reset.setValue();
  SoSFTime out;
  out.connectFrom(&timer->timeOut);
  EXPECT_DOUBLE_EQ(out.getValue().getValue(), 0.0);
  timer->timeIn = SbTime(102.0);
  EXPECT_DOUBLE_EQ(out.getValue().getValue(), 2.0);
  timer->speed = 2.0f;  // from now on twice as fast
  timer->timeIn = SbTime(103.0);
  EXPECT_DOUBLE_EQ(out.getValue().getValue(), 4.0);
  timer->on = false;
  timer->timeIn = SbTime(110.0);
  EXPECT_DOUBLE_EQ(out.getValue().getValue(), 4.0);
  timer->on = true;
  timer->timeIn = SbTime(111.0);
  EXPECT_DOUBLE_EQ(out.getValue().getValue(), 6.0);
  timer->pause = true;
  timer->timeIn = SbTime(112.0);
  EXPECT_DOUBLE_EQ(out.getValue().getValue(), 6.0);  // stands still...
  timer->pause = false;
  EXPECT_DOUBLE_EQ(out.getValue().getValue(), 8.0);  // ...while the time went on
  timer->reset.setValue();
  EXPECT_DOUBLE_EQ(out.getValue().getValue(), 0.0);
  out.disconnect();
}

TEST_F(Engines, InterpolatorsBlendValueByValue) {
  auto lerp = engine(new SoInterpolateFloat);
  lerp->input0.setValues(0, 3, std::vector<float>{0, 10, 20}.data());
  lerp->input1.setValues(0, 2, std::vector<float>{100, 200}.data());
  lerp->alpha = 0.25f;
  SoMFFloat out;
  out.connectFrom(&lerp->output);
  ASSERT_EQ(out.getNum(), 3);
  EXPECT_FLOAT_EQ(out[0], 25.0f);
  EXPECT_FLOAT_EQ(out[1], 57.5f);
  EXPECT_FLOAT_EQ(out[2], 65.0f);  // input1 repeats 200
  out.disconnect();

  auto vec = engine(new SoInterpolateVec3f);
  vec->input0.setValue(SbVec3f(0, 0, 0));
  vec->input1.setValue(SbVec3f(2, 4, 8));
  vec->alpha = 0.5f;
  SoMFVec3f v;
  v.connectFrom(&vec->output);
  EXPECT_EQ(v[0], SbVec3f(1, 2, 4));
  v.disconnect();

  auto rot = engine(new SoInterpolateRotation);
  rot->input0.setValue(SbRotation());
  rot->input1.setValue(SbRotation(SbVec3f(0, 0, 1), kPi / 2));
  rot->alpha = 0.5f;
  SoMFRotation r;
  r.connectFrom(&rot->output);
  SbVec3f turned;
  r[0].multVec(SbVec3f(1, 0, 0), turned);
  EXPECT_NEAR(turned[0], std::cos(kPi / 4), 1e-5f);
  EXPECT_NEAR(turned[1], std::sin(kPi / 4), 1e-5f);
  r.disconnect();
}

TEST_F(Engines, ComposeAndDecompose) {
  auto compose = engine(new SoComposeVec2f);
  compose->x.setValues(0, 3, std::vector<float>{1, 2, 3}.data());
  compose->y.setValue(9.0f);
  SoMFVec2f v;
  v.connectFrom(&compose->vector);
  ASSERT_EQ(v.getNum(), 3);
  EXPECT_EQ(v[2], SbVec2f(3, 9));
  v.disconnect();

  auto decompose = engine(new SoDecomposeVec3f);
  decompose->vector.setValues(0, 2, std::vector<SbVec3f>{SbVec3f(1, 2, 3), SbVec3f(4, 5, 6)}.data());
  SoMFFloat ys;
  ys.connectFrom(&decompose->y);
  ASSERT_EQ(ys.getNum(), 2);
  EXPECT_EQ(ys[1], 5.0f);
  ys.disconnect();

  auto fromTo = engine(new SoComposeRotationFromTo);
  fromTo->from.setValue(SbVec3f(1, 0, 0));
  fromTo->to.setValue(SbVec3f(0, 0, 1));
  SoMFRotation r;
  r.connectFrom(&fromTo->rotation);
  SbVec3f mapped;
  r[0].multVec(SbVec3f(1, 0, 0), mapped);
  EXPECT_NEAR(mapped[2], 1.0f, 1e-5f);
  r.disconnect();

  auto axisAngle = engine(new SoComposeRotation);
  axisAngle->axis.setValue(SbVec3f(0, 1, 0));
  axisAngle->angle.setValue(0.75f);
  auto split = engine(new SoDecomposeRotation);
  split->rotation.connectFrom(&axisAngle->rotation);
  SoMFFloat angle;
  SoMFVec3f axis;
  angle.connectFrom(&split->angle);
  axis.connectFrom(&split->axis);
  EXPECT_NEAR(angle[0], 0.75f, 1e-5f);
  EXPECT_NEAR(axis[0][1], 1.0f, 1e-5f);
  angle.disconnect();
  axis.disconnect();
  split->rotation.disconnect();
}

TEST_F(Engines, MatricesAreComposedAsTransformsDo) {
  auto compose = engine(new SoComposeMatrix);
  compose->translation.setValue(SbVec3f(1, 2, 3));
  compose->rotation.setValue(SbRotation(SbVec3f(1, 0, 0), 0.5f));
  compose->scaleFactor.setValue(SbVec3f(2, 3, 4));
  compose->center.setValue(SbVec3f(0.5f, 0, 0));
  auto transform = orvextest::make(new SoTransform);
  transform->translation.setValue(1, 2, 3);
  transform->rotation.setValue(SbRotation(SbVec3f(1, 0, 0), 0.5f));
  transform->scaleFactor.setValue(2, 3, 4);
  transform->center.setValue(0.5f, 0, 0);
  SoMFMatrix m;
  m.connectFrom(&compose->matrix);
  EXPECT_TRUE(m[0].equals(transform->getMatrix(), 1e-6f));
  auto decompose = engine(new SoDecomposeMatrix);
  decompose->matrix.connectFrom(&compose->matrix);
  decompose->center.setValue(SbVec3f(0.5f, 0, 0));
  SoMFVec3f scale, translation;
  scale.connectFrom(&decompose->scaleFactor);
  translation.connectFrom(&decompose->translation);
  EXPECT_NEAR(scale[0][0], 2.0f, 1e-5f);
  EXPECT_NEAR(scale[0][2], 4.0f, 1e-5f);
  EXPECT_NEAR(translation[0][1], 2.0f, 1e-5f);
  m.disconnect();
  scale.disconnect();
  translation.disconnect();
  decompose->matrix.disconnect();
}

TEST_F(Engines, BooleanOperationsFollowTheirTruthTables) {
  auto op = engine(new SoBoolOperation);
  const bool as[4] = {false, false, true, true};
  const bool bs[4] = {false, true, false, true};
  op->a.setValues(0, 4, as);
  op->b.setValues(0, 4, bs);
  SoMFBool out, inverse;
  out.connectFrom(&op->output);
  inverse.connectFrom(&op->inverse);
  using Op = SoBoolOperation::Operation;
  const struct {
    Op op;
    bool (*f)(bool, bool);
  } table[] = {
      {SoBoolOperation::CLEAR, [](bool, bool) { return false; }},
      {SoBoolOperation::SET, [](bool, bool) { return true; }},
      {SoBoolOperation::A, [](bool a, bool) { return a; }},
      {SoBoolOperation::NOT_A, [](bool a, bool) { return !a; }},
      {SoBoolOperation::B, [](bool, bool b) { return b; }},
      {SoBoolOperation::NOT_B, [](bool, bool b) { return !b; }},
      {SoBoolOperation::A_OR_B, [](bool a, bool b) { return a || b; }},
      {SoBoolOperation::NOT_A_OR_B, [](bool a, bool b) { return !a || b; }},
      {SoBoolOperation::A_OR_NOT_B, [](bool a, bool b) { return a || !b; }},
      {SoBoolOperation::NOT_A_OR_NOT_B, [](bool a, bool b) { return !a || !b; }},
      {SoBoolOperation::A_AND_B, [](bool a, bool b) { return a && b; }},
      {SoBoolOperation::NOT_A_AND_B, [](bool a, bool b) { return !a && b; }},
      {SoBoolOperation::A_AND_NOT_B, [](bool a, bool b) { return a && !b; }},
      {SoBoolOperation::NOT_A_AND_NOT_B, [](bool a, bool b) { return !a && !b; }},
      {SoBoolOperation::A_EQUALS_B, [](bool a, bool b) { return a == b; }},
      {SoBoolOperation::A_NOT_EQUALS_B, [](bool a, bool b) { return a != b; }},
  };
  for (const auto& row : table) {
    op->operation.setValue(row.op);
    ASSERT_EQ(out.getNum(), 4);
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(out[i], row.f(as[i], bs[i])) << row.op << " " << i;
      EXPECT_EQ(inverse[i], !row.f(as[i], bs[i]));
    }
  }
  out.disconnect();
  inverse.disconnect();
}

TEST_F(Engines, CountersCountTriggersAndSyncOnWrapping) {
  auto tens = engine(new SoCounter);
  tens->min = 0;
  tens->max = 9;
  auto hundreds = engine(new SoCounter);
  hundreds->max = 9;
  hundreds->trigger.connectFrom(&tens->syncOut, false);  // connecting is no trigger
  SoSFShort ones, carry;
  ones.connectFrom(&tens->output);
  carry.connectFrom(&hundreds->output);
  for (int i = 0; i < 23; ++i) tens->trigger.setValue();  // counted as they come, read once
  EXPECT_EQ(ones.getValue(), 3);
  EXPECT_EQ(carry.getValue(), 2);
  tens->reset = 7;
  EXPECT_EQ(ones.getValue(), 7);
  tens->step = 5;
  tens->trigger.setValue();  // 12 > 9: back to 0, one more carry
  EXPECT_EQ(ones.getValue(), 0);
  EXPECT_EQ(carry.getValue(), 3);
  ones.disconnect();
  carry.disconnect();
  hundreds->trigger.disconnect();
}

TEST_F(Engines, TimeCountersStepThroughTheirCycle) {
  auto counter = engine(new SoTimeCounter);
  counter->timeIn.disconnect();
  counter->timeIn = SbTime(50.0);
  counter->syncIn.setValue();  // the cycle starts now
  counter->min = 0;
  counter->max = 3;
  counter->frequency = 1.0f;
  auto cycles = engine(new SoCounter);
  cycles->max = 100;
  cycles->trigger.connectFrom(&counter->syncOut, false);
  SoSFShort value, count;
  value.connectFrom(&counter->output);
  count.connectFrom(&cycles->output);
  counter->timeIn = SbTime(50.3);  // 0.3 of 4 equal shares: the second value
  EXPECT_EQ(value.getValue(), 1);
  counter->timeIn = SbTime(50.99);
  EXPECT_EQ(value.getValue(), 3);
  EXPECT_EQ(count.getValue(), 0);
  counter->timeIn = SbTime(51.1);  // a new cycle
  EXPECT_EQ(value.getValue(), 0);
  EXPECT_EQ(count.getValue(), 1);
  counter->duty.setValues(0, 4, std::vector<float>{3, 1, 1, 1}.data());  // the first value half the time
  counter->timeIn = SbTime(51.45);
  EXPECT_EQ(value.getValue(), 0);
  counter->timeIn = SbTime(51.55);
  EXPECT_EQ(value.getValue(), 1);
  counter->reset = 3;  // its share begins now
  EXPECT_EQ(value.getValue(), 3);
  value.disconnect();
  count.disconnect();
  cycles->trigger.disconnect();
}

TEST_F(Engines, AGatePassesWhileEnabledOrOnceWhenTriggered) {
  auto gate = engine(new SoGate(SoMFFloat::getClassTypeId()));
  EXPECT_EQ(gate->input->getTypeId(), SoMFFloat::getClassTypeId());
  EXPECT_EQ(gate->getField("input"), gate->input);
  EXPECT_EQ(gate->getOutput("output"), gate->output);
  auto* input = static_cast<SoMFFloat*>(gate->input);
  SoMFFloat out;
  out.connectFrom(gate->output);
  out.setValue(-1.0f);
  input->setValue(1.0f);
  EXPECT_EQ(out[0], -1.0f);  // closed
  gate->trigger.setValue();
  input->setValue(2.0f);  // after the trigger: not passed
  EXPECT_EQ(out[0], 1.0f);
  input->setValue(3.0f);
  EXPECT_EQ(out[0], 1.0f);
  gate->enable = true;
  EXPECT_EQ(out[0], 3.0f);
  input->setValues(0, 2, std::vector<float>{4, 5}.data());
  ASSERT_EQ(out.getNum(), 2);
  EXPECT_EQ(out[1], 5.0f);
  out.disconnect();
}

}  // namespace
