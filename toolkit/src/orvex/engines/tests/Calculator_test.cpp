// The calculator's expressions against values worked out by hand.

#include <Orvex/SoDB.h>
#include <Orvex/engines/SoCalculator.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoMFVec3f.h>

#include <gtest/gtest.h>

#include <cmath>

#include "ErrorCapture.h"
#include "TestSupport.h"

namespace {

class Calculator : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
  void SetUp() override {
    calc = orvextest::Ref<SoCalculator>(new SoCalculator);
    SoEngineOutput* numberOuts[4] = {&calc->oa, &calc->ob, &calc->oc, &calc->od};
    SoEngineOutput* vectorOuts[4] = {&calc->oA, &calc->oB, &calc->oC, &calc->oD};
    for (int k = 0; k < 4; ++k) {
      numbers[k].connectFrom(numberOuts[k]);
      vectors[k].connectFrom(vectorOuts[k]);
    }
  }
  void TearDown() override {
    for (int k = 0; k < 4; ++k) {
      numbers[k].disconnect();
      vectors[k].disconnect();
    }
  }
  void expectVector(const SbVec3f& got, const SbVec3f& want) {
    EXPECT_NEAR(got[0], want[0], 1e-5f);
    EXPECT_NEAR(got[1], want[1], 1e-5f);
    EXPECT_NEAR(got[2], want[2], 1e-5f);
  }
  orvextest::Ref<SoCalculator> calc;
  SoMFFloat numbers[4];
  SoMFVec3f vectors[4];
};

TEST_F(Calculator, ArithmeticValueByValue) {
  calc->a.setValues(0, 3, std::vector<float>{1, 2, 3}.data());
  calc->b.setValue(10.0f);  // shorter: repeats
  calc->expression.setValue("oa = a * 2 + b; ob = a > 1 ? -a : a % 2");
  ASSERT_EQ(numbers[0].getNum(), 3);
  EXPECT_FLOAT_EQ(numbers[0][0], 12.0f);
  EXPECT_FLOAT_EQ(numbers[0][2], 16.0f);
  EXPECT_FLOAT_EQ(numbers[1][0], 1.0f);
  EXPECT_FLOAT_EQ(numbers[1][1], -2.0f);
  EXPECT_FLOAT_EQ(numbers[1][2], -3.0f);
  // Outputs not assigned are zero, as many as the others.
  ASSERT_EQ(numbers[3].getNum(), 3);
  EXPECT_EQ(numbers[3][1], 0.0f);
}

TEST_F(Calculator, VectorsAndTheirFunctions) {
  calc->A.setValue(SbVec3f(1, 0, 0));
  calc->B.setValue(SbVec3f(0, 1, 0));
  calc->expression.setValue(
      "oA = cross(A, B); oc = length(A + B); oB = normalize(vec3f(3, 0, 4)) * 2; od = dot(A, B) + A[0]");
  expectVector(vectors[0][0], SbVec3f(0, 0, 1));
  EXPECT_NEAR(numbers[2][0], std::sqrt(2.0f), 1e-6f);
  expectVector(vectors[1][0], SbVec3f(1.2f, 0, 1.6f));
  EXPECT_FLOAT_EQ(numbers[3][0], 1.0f);
}

TEST_F(Calculator, TemporariesComponentsAndSeveralStrings) {
  calc->a.setValues(0, 2, std::vector<float>{1, 4}.data());
  const SbString texts[2] = {SbString("ta = a + 1"), SbString("tA = vec3f(ta, ta, ta); oA = tA * 2; oA[1] = -1")};
  calc->expression.setValues(0, 2, texts);
  ASSERT_EQ(vectors[0].getNum(), 2);
  expectVector(vectors[0][0], SbVec3f(4, -1, 4));
  expectVector(vectors[0][1], SbVec3f(10, -1, 10));
}

TEST_F(Calculator, ConstantsFunctionsAndLogic) {
  calc->expression.setValue(
      "oa = cos(M_PI); ob = pow(2, 10); oc = atan2(1, 1) * 4; od = floor(2.7) + ceil(0.2) + fabs(-3) + fmod(7, 4)");
  EXPECT_NEAR(numbers[0][0], -1.0f, 1e-6f);
  EXPECT_FLOAT_EQ(numbers[1][0], 1024.0f);
  EXPECT_NEAR(numbers[2][0], 3.14159265f, 1e-6f);
  EXPECT_FLOAT_EQ(numbers[3][0], 9.0f);
  calc->a.setValues(0, 3, std::vector<float>{1, 2, 3}.data());
  calc->b.setValue(0.0f);
  calc->expression.setValue("oa = (a > 1 && a < 3) || b; ob = !(a == 2); oc = rand(5)");
  EXPECT_EQ(numbers[0][0], 0.0f);
  EXPECT_EQ(numbers[0][1], 1.0f);
  EXPECT_EQ(numbers[0][2], 0.0f);
  EXPECT_EQ(numbers[1][1], 0.0f);
  for (int i = 0; i < 3; ++i) {
    EXPECT_GE(numbers[2][i], 0.0f);
    EXPECT_LT(numbers[2][i], 5.0f);
  }
}

TEST_F(Calculator, BadExpressionsAreReported) {
  for (const char* bad : {"oa = A", "oa = foo(1)", "oa = 1 +", "ia = 3", "oA = A * B", "oa = cross(a, b)",
                          "oa = (1", "oa = 2 ob = 3"}) {
    ErrorCapture<SoDebugError> errors;
    calc->expression.setValue(bad);
    EXPECT_EQ(numbers[0].getNum(), 0) << bad;
    EXPECT_EQ(errors.count(), 1u) << bad;
  }
  calc->expression.setValue("oa = 2");
  ASSERT_EQ(numbers[0].getNum(), 1);
  EXPECT_EQ(numbers[0][0], 2.0f);
}

}  // namespace
