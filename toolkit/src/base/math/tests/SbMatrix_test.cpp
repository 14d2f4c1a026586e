// Matrices and rotations against hand-computed results.
#include <Orvex/SbLine.h>
#include <Orvex/SbMatrix.h>
#include <Orvex/SbRotation.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {
const float kHalfPi = static_cast<float>(M_PI / 2);

void expectVec(const SbVec3f& v, float x, float y, float z, float tol = 1e-5f) {
  EXPECT_NEAR(v[0], x, tol);
  EXPECT_NEAR(v[1], y, tol);
  EXPECT_NEAR(v[2], z, tol);
}

SbMatrix scaleThenTranslate() {
  return SbMatrix(2, 0, 0, 0,  //
                  0, 4, 0, 0,  //
                  0, 0, 8, 0,  //
                  1, 2, 3, 1);
}
}  // namespace

TEST(SbMatrix, DefaultIsIdentityRowMajor) {
  SbMatrix m;
  EXPECT_TRUE(m.isIdentity());
  SbMatrix t;
  t.setTranslate(SbVec3f(5, 6, 7));
  const float* raw = reinterpret_cast<const float*>(&t);
  EXPECT_EQ(raw[12], 5);  // translation is the last row
  EXPECT_EQ(raw[13], 6);
  EXPECT_EQ(raw[14], 7);
}

TEST(SbMatrix, PointAndDirectionTransforms) {
  const SbMatrix m = scaleThenTranslate();
  SbVec3f p;
  m.multVecMatrix(SbVec3f(1, 1, 1), p);
  expectVec(p, 3, 6, 11);
  SbVec3f d;
  m.multDirMatrix(SbVec3f(1, 1, 1), d);
  expectVec(d, 2, 4, 8);
  // Column form: M * (1, 1, 1, 1): rows (2,0,0,0), (0,4,0,0), (0,0,8,0), w = 7.
  SbVec3f c;
  m.multMatrixVec(SbVec3f(1, 1, 1), c);
  expectVec(c, 2.0f / 7, 4.0f / 7, 8.0f / 7);
  SbVec3f inPlace(1, 1, 1);
  m.multVecMatrix(inPlace, inPlace);
  expectVec(inPlace, 3, 6, 11);
}

TEST(SbMatrix, DeterminantsInverseTranspose) {
  const SbMatrix m = scaleThenTranslate();
  EXPECT_FLOAT_EQ(m.det3(), 64);
  EXPECT_FLOAT_EQ(m.det4(), 64);
  const SbMatrix inv = m.inverse();
  const SbMatrix expected(0.5f, 0, 0, 0, 0, 0.25f, 0, 0, 0, 0, 0.125f, 0, -0.5f, -0.5f, -0.375f, 1);
  EXPECT_TRUE(inv.equals(expected, 1e-6f));
  EXPECT_TRUE((m * inv).equals(SbMatrix(), 1e-6f));
  const SbMatrix t = m.transpose();
  EXPECT_EQ(t[0][3], 1);
  EXPECT_EQ(t[2][3], 3);
  // A singular matrix is returned unchanged by inverse().
  SbMatrix singular;
  singular.setScale(SbVec3f(1, 0, 1));
  EXPECT_TRUE(singular.inverse() == singular);
}

TEST(SbMatrix, MultOrderAppliesLeftOperandFirst) {
  SbMatrix s, t;
  s.setScale(2);
  t.setTranslate(SbVec3f(1, 0, 0));
  SbVec3f p;
  (s * t).multVecMatrix(SbVec3f(1, 0, 0), p);  // scale, then translate
  expectVec(p, 3, 0, 0);
  (t * s).multVecMatrix(SbVec3f(1, 0, 0), p);  // translate, then scale
  expectVec(p, 4, 0, 0);
  SbMatrix m = s;
  m.multLeft(t);
  EXPECT_TRUE(m == t * s);
  m = s;
  m *= t;
  EXPECT_TRUE(m == s * t);
}

TEST(SbMatrix, SetTransformKnownResult) {
  SbMatrix m;
  m.setTransform(SbVec3f(1, 2, 3), SbRotation(SbVec3f(0, 0, 1), kHalfPi), SbVec3f(2, 3, 4));
  SbVec3f p;
  // (1,0,0) scaled (2,0,0), turned 90 degrees about z (0,2,0), moved (1,4,3).
  m.multVecMatrix(SbVec3f(1, 0, 0), p);
  expectVec(p, 1, 4, 3);
  m.multVecMatrix(SbVec3f(0, 1, 0), p);  // (0,3,0) -> (-3,0,0) -> (-2,2,3)
  expectVec(p, -2, 2, 3);
}

TEST(SbMatrix, GetTransformRecoversParts) {
  SbMatrix m;
  m.setTransform(SbVec3f(1, 2, 3), SbRotation(SbVec3f(0, 0, 1), kHalfPi), SbVec3f(2, 3, 4));
  SbVec3f t, s;
  SbRotation r, so;
  m.getTransform(t, r, s, so);
  expectVec(t, 1, 2, 3);
  // The stretch is diagonal here, so no scale orientation is needed.
  SbMatrix rebuilt;
  rebuilt.setTransform(t, r, s, so);
  EXPECT_TRUE(rebuilt.equals(m, 1e-5f));
  SbVec3f rotated;
  r.multVec(SbVec3f(1, 0, 0), rotated);
  expectVec(rotated, 0, 1, 0);
}

TEST(SbMatrix, GetTransformWithScaleOrientationAndCenterRoundTrips) {
  const SbVec3f t(-4, 0.5f, 2), s(1.5f, 0.5f, 3), c(1, -1, 2);
  const SbRotation r(SbVec3f(1, 1, 0), 0.7f), so(SbVec3f(0, 1, 1), 0.4f);
  SbMatrix m;
  m.setTransform(t, r, s, so, c);
  SbVec3f t2, s2;
  SbRotation r2, so2;
  m.getTransform(t2, r2, s2, so2, c);
  SbMatrix rebuilt;
  rebuilt.setTransform(t2, r2, s2, so2, c);
  EXPECT_TRUE(rebuilt.equals(m, 1e-4f));
  expectVec(t2, -4, 0.5f, 2, 1e-4f);
  // Scale factors may come back in another order; their product may not change.
  EXPECT_NEAR(s2[0] * s2[1] * s2[2], 1.5f * 0.5f * 3, 1e-4f);
}

TEST(SbMatrix, LineTransform) {
  SbMatrix m;
  m.setTranslate(SbVec3f(0, 0, 5));
  SbLine out;
  m.multLineMatrix(SbLine(SbVec3f(0, 0, 0), SbVec3f(1, 0, 0)), out);
  expectVec(out.getPosition(), 0, 0, 5);
  expectVec(out.getDirection(), 1, 0, 0);
}

TEST(SbMatrixd, InverseAndDeterminant) {
  const SbMatrixd m(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 2, 0, 3, 4, 5, 1);
  EXPECT_DOUBLE_EQ(m.det4(), 2);
  EXPECT_TRUE((m * m.inverse()).equals(SbMatrixd(), 1e-12));
}

TEST(SbMatrix3, DeterminantAndInverse) {
  const SbMatrix3 m(2, 0, 0, 0, 3, 0, 1, 0, 4);
  EXPECT_FLOAT_EQ(m.det(), 24);
  EXPECT_TRUE((m * m.inverse()).equals(SbMatrix3(), 1e-6f));
}

TEST(SbRotation, AxisAngleQuaternionAndMatrix) {
  const SbRotation r(SbVec3f(0, 0, 2), kHalfPi);  // axis need not be unit
  const float* q = r.getValue();
  EXPECT_NEAR(q[0], 0, 1e-6f);
  EXPECT_NEAR(q[2], std::sqrt(0.5f), 1e-6f);
  EXPECT_NEAR(q[3], std::sqrt(0.5f), 1e-6f);
  SbVec3f v;
  r.multVec(SbVec3f(1, 0, 0), v);
  expectVec(v, 0, 1, 0);
  const SbMatrix m = r.getMatrix();
  EXPECT_NEAR(m[0][1], 1, 1e-6f);  // x goes to y: first row (0, 1, 0)
  EXPECT_NEAR(m[1][0], -1, 1e-6f);
  SbVec3f axis;
  float angle;
  r.getValue(axis, angle);
  expectVec(axis, 0, 0, 1);
  EXPECT_NEAR(angle, kHalfPi, 1e-6f);
  EXPECT_TRUE(SbRotation(m).equals(r, 1e-6f));
  EXPECT_TRUE(SbRotation().setValue(r.getMatrix3()).equals(r, 1e-6f));
}

TEST(SbRotation, CompositionAppliesLeftFirst) {
  const SbRotation aboutZ(SbVec3f(0, 0, 1), kHalfPi), aboutX(SbVec3f(1, 0, 0), kHalfPi);
  SbVec3f v;
  (aboutZ * aboutX).multVec(SbVec3f(1, 0, 0), v);  // x -> y -> z
  expectVec(v, 0, 0, 1);
  SbRotation r = aboutZ;
  r *= aboutX;
  EXPECT_TRUE(r.equals(aboutZ * aboutX, 1e-6f));
}

TEST(SbRotation, FromToSlerpScaleInverse) {
  const SbRotation fromTo(SbVec3f(1, 0, 0), SbVec3f(0, 5, 0));
  EXPECT_TRUE(fromTo.equals(SbRotation(SbVec3f(0, 0, 1), kHalfPi), 1e-6f));
  const SbRotation opposite(SbVec3f(1, 0, 0), SbVec3f(-1, 0, 0));
  SbVec3f v;
  opposite.multVec(SbVec3f(1, 0, 0), v);
  expectVec(v, -1, 0, 0);

  const SbRotation half = SbRotation::slerp(SbRotation(), SbRotation(SbVec3f(0, 0, 1), kHalfPi), 0.5f);
  half.multVec(SbVec3f(1, 0, 0), v);
  expectVec(v, std::sqrt(0.5f), std::sqrt(0.5f), 0);

  SbRotation scaled(SbVec3f(0, 0, 1), kHalfPi);
  scaled.scaleAngle(2);
  scaled.multVec(SbVec3f(1, 0, 0), v);
  expectVec(v, -1, 0, 0);

  const SbRotation r(SbVec3f(1, 2, 3), 0.8f);
  EXPECT_TRUE((r * r.inverse()).equals(SbRotation::identity(), 1e-6f));
  SbRotation inv = r;
  inv.invert();
  EXPECT_TRUE(inv == r.inverse());
}

TEST(SbRotation, EqualsTreatsNegatedQuaternionAsSame) {
  const SbRotation a(0, 0, 0, 1), b(0, 0, 0, -1);
  EXPECT_TRUE(a.equals(b, 1e-6f));
  EXPECT_FALSE(a == b);
}

TEST(SbRotation, DecomposeIntoSwingAndTwist) {
  const SbRotation twistIn(SbVec3f(0, 0, 1), 0.6f), swingIn(SbVec3f(1, 0, 0), 0.3f);
  const SbRotation r = twistIn * swingIn;
  SbRotation swing, twist;
  r.decompose(SbVec3f(0, 0, 1), swing, twist);
  EXPECT_TRUE((twist * swing).equals(r, 1e-5f));
  SbVec3f axis;
  float angle;
  twist.getValue(axis, angle);
  expectVec(axis, 0, 0, 1);
}

TEST(SbRotationd, MatchesSinglePrecision) {
  const SbRotationd r(SbVec3d(0, 1, 0), M_PI / 2);
  SbVec3d v;
  r.multVec(SbVec3d(1, 0, 0), v);  // x turns to -z about y
  EXPECT_NEAR(v[0], 0, 1e-12);
  EXPECT_NEAR(v[2], -1, 1e-12);
}
