// Vector classes against values worked out by hand.
#include <Orvex/SbPlane.h>
#include <Orvex/SbVec2s.h>
#include <Orvex/SbVec3d.h>
#include <Orvex/SbVec3f.h>
#include <Orvex/SbVec3s.h>
#include <Orvex/SbVec4f.h>
#include <Orvex/SbVec4ub.h>
#include <gtest/gtest.h>

namespace {
void expectVec(const SbVec3f& v, float x, float y, float z, float tol = 1e-6f) {
  EXPECT_NEAR(v[0], x, tol);
  EXPECT_NEAR(v[1], y, tol);
  EXPECT_NEAR(v[2], z, tol);
}
}  // namespace

TEST(SbVec3f, DefaultIsZeroAndLayoutIsXYZ) {
  SbVec3f v;
  expectVec(v, 0, 0, 0);
  SbVec3f w(1, 2, 3);
  const float* raw = reinterpret_cast<const float*>(&w);
  EXPECT_EQ(raw[0], 1);
  EXPECT_EQ(raw[1], 2);
  EXPECT_EQ(raw[2], 3);
}

TEST(SbVec3f, DotCrossLength) {
  SbVec3f a(1, 2, 3), b(4, 5, 6);
  EXPECT_FLOAT_EQ(a.dot(b), 32);
  expectVec(a.cross(b), -3, 6, -3);
  EXPECT_FLOAT_EQ(SbVec3f(3, 4, 0).length(), 5);
  EXPECT_FLOAT_EQ(SbVec3f(3, 4, 0).lengthSquared(), 25);
}

TEST(SbVec3f, NormalizeReturnsOldLengthAndKeepsZero) {
  SbVec3f v(0, 3, 4);
  EXPECT_FLOAT_EQ(v.normalize(), 5);
  expectVec(v, 0, 0.6f, 0.8f);
  SbVec3f zero;
  EXPECT_FLOAT_EQ(zero.normalize(), 0);
  expectVec(zero, 0, 0, 0);
}

TEST(SbVec3f, ArithmeticOperators) {
  SbVec3f a(1, 2, 3), b(4, 5, 6);
  expectVec(a + b, 5, 7, 9);
  expectVec(b - a, 3, 3, 3);
  expectVec(a * 2.0f, 2, 4, 6);
  expectVec(2.0f * a, 2, 4, 6);
  expectVec(b / 2.0f, 2, 2.5f, 3);
  expectVec(a * b, 4, 10, 18);
  expectVec(-a, -1, -2, -3);
  SbVec3f c = a;
  c += c;  // aliasing: receiver and operand are the same object
  expectVec(c, 2, 4, 6);
  c -= a;
  expectVec(c, 1, 2, 3);
  c.negate();
  expectVec(c, -1, -2, -3);
  EXPECT_TRUE(a == SbVec3f(1, 2, 3));
  EXPECT_TRUE(a != b);
}

TEST(SbVec3f, EqualsWithToleranceUsesSquaredDistance) {
  SbVec3f a(1, 1, 1);
  EXPECT_TRUE(a.equals(SbVec3f(1.1f, 1, 1), 0.011f));   // distance^2 = 0.01
  EXPECT_FALSE(a.equals(SbVec3f(1.1f, 1, 1), 0.009f));
}

TEST(SbVec3f, ClosestAxis) {
  expectVec(SbVec3f(0.2f, -0.9f, 0.3f).getClosestAxis(), 0, -1, 0);
  expectVec(SbVec3f(5, 1, -4).getClosestAxis(), 1, 0, 0);
  expectVec(SbVec3f(0, 0.1f, -0.2f).getClosestAxis(), 0, 0, -1);
}

TEST(SbVec3f, ThreePlaneIntersectionAndBarycentric) {
  SbVec3f p(SbPlane(SbVec3f(1, 0, 0), 1.0f), SbPlane(SbVec3f(0, 1, 0), 2.0f), SbPlane(SbVec3f(0, 0, 1), 3.0f));
  expectVec(p, 1, 2, 3);
  // Planes x + y = 2, y = 1, z = -1 meet at (1, 1, -1).
  SbVec3f q(SbPlane(SbVec3f(1, 1, 0), SbVec3f(1, 1, 0)), SbPlane(SbVec3f(0, 1, 0), 1.0f),
            SbPlane(SbVec3f(0, 0, 1), -1.0f));
  expectVec(q, 1, 1, -1, 1e-5f);
  SbVec3f b;
  b.setValue(SbVec3f(0.5f, 0.25f, 0.25f), SbVec3f(0, 0, 0), SbVec3f(4, 0, 0), SbVec3f(0, 8, 0));
  expectVec(b, 1, 2, 0);
}

TEST(SbVec3f, PrecisionConversion) {
  SbVec3d d(0.1, 0.2, 0.3);
  SbVec3f f;
  f.setValue(d);
  expectVec(f, 0.1f, 0.2f, 0.3f);
  SbVec3d back;
  back.setValue(SbVec3f(1.5f, -2, 4));
  EXPECT_DOUBLE_EQ(back[0], 1.5);
  EXPECT_DOUBLE_EQ(back[1], -2);
}

TEST(SbVec4f, HomogeneousDivide) {
  SbVec4f h(2, 4, 6, 2);
  expectVec(h.getReal(), 1, 2, 3);
}

TEST(SbIntegerVectors, RoundingAndUnsignedWrap) {
  SbVec3s s(1, 2, 3);
  s *= 2.5;  // 2.5, 5, 7.5 rounded to nearest (halves away from zero)
  EXPECT_EQ(s[0], 3);
  EXPECT_EQ(s[1], 5);
  EXPECT_EQ(s[2], 8);
  EXPECT_EQ(SbVec2s(3, 4).dot(SbVec2s(10, 100)), 430);
  SbVec4ub u(250, 1, 2, 3);
  u += SbVec4ub(10, 1, 1, 1);
  EXPECT_EQ(u[0], 4);  // 260 wraps modulo 256
  EXPECT_EQ(sizeof(SbVec4ub), 4u);
}
