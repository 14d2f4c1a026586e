#pragma once
// Helpers of the action tests: references, and geometry computed without
// the toolkit's own matrix code, to check its results against.

#include <Orvex/SbBox3f.h>
#include <Orvex/SbVec3f.h>
#include <Orvex/SoDB.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

#include "TestSupport.h"

namespace actiontest {

using orvextest::make;
using orvextest::Ref;

constexpr float kPi = 3.14159265358979f;

// A rotation by `angle` about a unit axis (Rodrigues' formula).
inline SbVec3f turn(const SbVec3f& p, const SbVec3f& axis, float angle) {
  const double c = std::cos(angle), s = std::sin(angle);
  const double x = axis[0], y = axis[1], z = axis[2];
  const double d = x * p[0] + y * p[1] + z * p[2];
  const double cx = y * p[2] - z * p[1], cy = z * p[0] - x * p[2], cz = x * p[1] - y * p[0];
  return SbVec3f(static_cast<float>(p[0] * c + cx * s + x * d * (1 - c)),
                 static_cast<float>(p[1] * c + cy * s + y * d * (1 - c)),
                 static_cast<float>(p[2] * c + cz * s + z * d * (1 - c)));
}

// The axis-aligned box around a set of points.
inline SbBox3f boxAround(const std::vector<SbVec3f>& points) {
  SbBox3f box;
  for (const SbVec3f& p : points) box.extendBy(p);
  return box;
}

// The corners of a box.
inline std::vector<SbVec3f> corners(const SbVec3f& lo, const SbVec3f& hi) {
  std::vector<SbVec3f> out;
  for (int c = 0; c < 8; ++c) out.emplace_back(c & 1 ? hi[0] : lo[0], c & 2 ? hi[1] : lo[1], c & 4 ? hi[2] : lo[2]);
  return out;
}

inline std::vector<SbVec3f> mapped(const std::vector<SbVec3f>& points, const std::function<SbVec3f(SbVec3f)>& f) {
  std::vector<SbVec3f> out;
  for (const SbVec3f& p : points) out.push_back(f(p));
  return out;
}

inline void expectNear(const SbVec3f& a, const SbVec3f& b, float eps = 1e-5f) {
  EXPECT_NEAR(a[0], b[0], eps) << "x";
  EXPECT_NEAR(a[1], b[1], eps) << "y";
  EXPECT_NEAR(a[2], b[2], eps) << "z";
}

inline void expectBoxNear(const SbBox3f& a, const SbBox3f& b, float eps = 1e-5f) {
  ASSERT_FALSE(a.isEmpty());
  expectNear(a.getMin(), b.getMin(), eps);
  expectNear(a.getMax(), b.getMax(), eps);
}

class ActionTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};

}  // namespace actiontest
