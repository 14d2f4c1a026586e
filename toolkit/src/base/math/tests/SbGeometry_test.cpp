// Boxes, planes, lines, spheres, cylinders, colours and the handle-backed
// helpers, against hand-computed results.
#include <Orvex/SbBox2s.h>
#include <Orvex/SbBox3f.h>
#include <Orvex/SbBox4i32.h>
#include <Orvex/SbCPUID.h>
#include <Orvex/SbColor.h>
#include <Orvex/SbCylinder.h>
#include <Orvex/SbDataType.h>
#include <Orvex/SbPlane.h>
#include <Orvex/SbSphere.h>
#include <Orvex/SbViewVolume.h>
#include <Orvex/SbViewportRegion.h>
#include <Orvex/SbXfBox3f.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {
void expectVec(const SbVec3f& v, float x, float y, float z, float tol = 1e-5f) {
  EXPECT_NEAR(v[0], x, tol);
  EXPECT_NEAR(v[1], y, tol);
  EXPECT_NEAR(v[2], z, tol);
}
}  // namespace

TEST(SbBox3f, EmptyExtendIntersect) {
  SbBox3f b;
  EXPECT_TRUE(b.isEmpty());
  EXPECT_FALSE(b.hasVolume());
  EXPECT_FLOAT_EQ(b.getVolume(), 0);
  b.extendBy(SbVec3f(1, 2, 3));
  EXPECT_FALSE(b.isEmpty());
  EXPECT_FALSE(b.hasVolume());  // a single point
  b.extendBy(SbVec3f(-1, 0, 7));
  expectVec(b.getMin(), -1, 0, 3);
  expectVec(b.getMax(), 1, 2, 7);
  expectVec(b.getCenter(), 0, 1, 5);
  expectVec(b.getSize(), 2, 2, 4);
  EXPECT_FLOAT_EQ(b.getVolume(), 16);
  EXPECT_TRUE(b.intersect(SbVec3f(1, 2, 7)));   // on the boundary
  EXPECT_FALSE(b.intersect(SbVec3f(1.01f, 2, 7)));
  EXPECT_TRUE(b.intersect(SbBox3f(SbVec3f(1, 2, 7), SbVec3f(5, 5, 9))));  // touching corner
  EXPECT_FALSE(b.intersect(SbBox3f(SbVec3f(1.5f, 0, 0), SbVec3f(5, 5, 9))));
  expectVec(b.getClosestPoint(SbVec3f(10, 1, 0)), 1, 1, 3);
  SbBox3f empty;
  b.extendBy(empty);
  expectVec(b.getMin(), -1, 0, 3);
}

TEST(SbBox3f, TransformByRotation) {
  SbBox3f b(SbVec3f(0, 0, 0), SbVec3f(1, 2, 3));
  SbMatrix m;
  m.setRotate(SbRotation(SbVec3f(0, 0, 1), static_cast<float>(M_PI / 2)));
  b.transform(m);  // x -> y, y -> -x
  expectVec(b.getMin(), -2, 0, 0);
  expectVec(b.getMax(), 0, 1, 3);
}

TEST(SbIntegerBoxes, CenterAndLayout) {
  SbBox2s s(SbVec2s(0, 0), SbVec2s(5, 9));
  EXPECT_EQ(s.getCenter()[0], 2);  // 5 / 2 rounds towards zero
  EXPECT_EQ(s.getCenter()[1], 4);
  EXPECT_TRUE(s.hasArea());
  EXPECT_EQ(sizeof(SbBox4i32), 32u);
  SbBox4i32 b;
  EXPECT_TRUE(b.isEmpty());
  b.extendBy(SbVec4i32(1, 2, 3, 4));
  EXPECT_FALSE(b.isEmpty());
}

TEST(SbXfBox3f, WorldSpaceQueries) {
  SbXfBox3f b(SbVec3f(-1, -1, -1), SbVec3f(1, 1, 1));
  SbMatrix m;
  m.setTransform(SbVec3f(10, 0, 0), SbRotation(), SbVec3f(2, 2, 2));
  b.setTransform(m);
  EXPECT_FLOAT_EQ(b.getVolume(), 64);  // 8 in local space, scaled by 2^3
  expectVec(b.getCenter(), 10, 0, 0);
  EXPECT_TRUE(b.intersect(SbVec3f(11.9f, 0, 0)));
  EXPECT_FALSE(b.intersect(SbVec3f(12.1f, 0, 0)));
  const SbBox3f world = b.project();
  expectVec(world.getMin(), 8, -2, -2);
  expectVec(world.getMax(), 12, 2, 2);
  b.extendBy(SbVec3f(14, 0, 0));  // local x up to 2
  expectVec(b.getMax(), 2, 1, 1);
  EXPECT_EQ(sizeof(SbXfBox3f), 152u);
}

TEST(SbPlane, ConstructionIntersectionTransform) {
  SbPlane p(SbVec3f(0, 0, 1), SbVec3f(1, 0, 1), SbVec3f(0, 1, 1));
  expectVec(p.getNormal(), 0, 0, 1);
  EXPECT_FLOAT_EQ(p.getDistanceFromOrigin(), 1);
  SbVec3f hit;
  ASSERT_TRUE(p.intersect(SbLine(SbVec3f(2, 3, -4), SbVec3f(2, 3, 0)), hit));
  expectVec(hit, 2, 3, 1);
  EXPECT_FALSE(p.intersect(SbLine(SbVec3f(0, 0, 0), SbVec3f(1, 0, 0)), hit));
  EXPECT_TRUE(p.isInHalfSpace(SbVec3f(0, 0, 5)));
  EXPECT_FLOAT_EQ(p.getDistance(SbVec3f(0, 0, -2)), -3);
  SbMatrix t;
  t.setTranslate(SbVec3f(0, 0, 2));
  p.transform(t);
  EXPECT_NEAR(p.getDistanceFromOrigin(), 3, 1e-6f);
  // Planes x = 1 and y = 2 meet in the vertical line through (1, 2, 0).
  SbLine line;
  ASSERT_TRUE(SbPlane(SbVec3f(1, 0, 0), 1.0f).intersect(SbPlane(SbVec3f(0, 1, 0), 2.0f), line));
  expectVec(line.getPosition(), 1, 2, 0);
  expectVec(line.getDirection(), 0, 0, 1);
}

TEST(SbLine, ClosestPointsBoxAndTriangle) {
  const SbLine x(SbVec3f(0, 0, 0), SbVec3f(3, 0, 0));
  expectVec(x.getDirection(), 1, 0, 0);
  expectVec(x.getClosestPoint(SbVec3f(5, 7, 1)), 5, 0, 0);
  SbVec3f a, b;
  ASSERT_TRUE(x.getClosestPoints(SbLine(SbVec3f(2, 1, 5), SbVec3f(2, 1, 6)), a, b));
  expectVec(a, 2, 0, 0);
  expectVec(b, 2, 1, 0);
  SbVec3f enter, exit;
  ASSERT_TRUE(SbLine(SbVec3f(-5, 0.5f, 0.5f), SbVec3f(0, 0.5f, 0.5f))
                  .intersect(SbBox3f(SbVec3f(0, 0, 0), SbVec3f(1, 1, 1)), enter, exit));
  expectVec(enter, 0, 0.5f, 0.5f);
  expectVec(exit, 1, 0.5f, 0.5f);
  SbVec3f pt, bary;
  bool front = false;
  const SbLine down(SbVec3f(0.25f, 0.25f, 5), SbVec3f(0.25f, 0.25f, 0));
  ASSERT_TRUE(down.intersect(SbVec3f(0, 0, 0), SbVec3f(1, 0, 0), SbVec3f(0, 1, 0), pt, bary, front));
  expectVec(pt, 0.25f, 0.25f, 0);
  expectVec(bary, 0.5f, 0.25f, 0.25f);
  EXPECT_TRUE(front);  // counter-clockwise seen from +z, the line comes from +z
  EXPECT_FALSE(down.intersect(SbVec3f(1, 1, 0), SbVec3f(2, 1, 0), SbVec3f(1, 2, 0), pt, bary, front));
}

TEST(SbSphereAndCylinder, LineIntersections) {
  const SbSphere s(SbVec3f(0, 0, 0), 1);
  SbVec3f enter, exit, hit;
  ASSERT_TRUE(s.intersect(SbLine(SbVec3f(-5, 0, 0), SbVec3f(5, 0, 0)), enter, exit));
  expectVec(enter, -1, 0, 0);
  expectVec(exit, 1, 0, 0);
  ASSERT_TRUE(s.intersect(SbLine(SbVec3f(0, 0, 0), SbVec3f(0, 1, 0)), hit));  // from inside
  expectVec(hit, 0, 1, 0);
  EXPECT_FALSE(s.intersect(SbLine(SbVec3f(-5, 2, 0), SbVec3f(5, 2, 0)), hit));
  SbSphere around;
  around.circumscribe(SbBox3f(SbVec3f(0, 0, 0), SbVec3f(2, 2, 2)));
  expectVec(around.getCenter(), 1, 1, 1);
  EXPECT_NEAR(around.getRadius(), std::sqrt(3.0f), 1e-6f);

  const SbCylinder c;  // radius 1 around the y axis
  ASSERT_TRUE(c.intersect(SbLine(SbVec3f(-5, 3, 0), SbVec3f(5, 3, 0)), enter, exit));
  expectVec(enter, -1, 3, 0);
  expectVec(exit, 1, 3, 0);
  EXPECT_FALSE(c.intersect(SbLine(SbVec3f(0, 0, 0), SbVec3f(0, 1, 0)), hit));  // along the axis
  EXPECT_TRUE(c.isInside(SbVec3f(0.5f, 100, 0)));
}

TEST(SbColor, HsvAndPacked) {
  SbColor c;
  c.setHSVValue(1.0f / 3, 1, 1);
  expectVec(c, 0, 1, 0);
  c.setHSVValue(0, 0, 0.5f);
  expectVec(c, 0.5f, 0.5f, 0.5f);
  float h, s, v;
  SbColor(0, 0, 0.8f).getHSVValue(h, s, v);
  EXPECT_NEAR(h, 2.0f / 3, 1e-6f);
  EXPECT_NEAR(s, 1, 1e-6f);
  EXPECT_NEAR(v, 0.8f, 1e-6f);
  float transparency = -1;
  c.setPackedValue(0xFF8000FFu, transparency);
  expectVec(c, 1, 128.0f / 255, 0);
  EXPECT_FLOAT_EQ(transparency, 0);
  EXPECT_EQ(c.getPackedValue(0.5f), 0xFF800080u);
  SbColorRGBA rgba(1, 0, 0, 0.5f);
  EXPECT_EQ(rgba.getPackedValue(), 0xFF000080u);
  EXPECT_EQ(sizeof(SbColorRGBA), 16u);
}

TEST(SbViewVolume, PerspectiveProjection) {
  SbViewVolume vv;
  vv.perspective(static_cast<float>(M_PI / 2), 1, 1, 10);
  EXPECT_EQ(vv.getProjectionType(), SbViewVolume::PERSPECTIVE);
  EXPECT_NEAR(vv.getWidth(), 2, 1e-5f);
  SbVec3f s;
  vv.projectToScreen(SbVec3f(0, 0, -5), s);
  // Depth in normalised device z: (f+n)/(f-n) - 2fn/((f-n) d) = 7/9 at d = 5.
  expectVec(s, 0.5f, 0.5f, (1 + 7.0f / 9) / 2);
  vv.projectToScreen(SbVec3f(1, 0, -1), s);  // right edge of the near rectangle
  EXPECT_NEAR(s[0], 1, 1e-5f);
  SbLine ray;
  vv.projectPointToLine(SbVec2f(1, 0.5f), ray);
  expectVec(ray.getDirection(), std::sqrt(0.5f), 0, -std::sqrt(0.5f));
  expectVec(vv.getPlanePoint(4, SbVec2f(1, 1)), 4, 4, -4);
  vv.translateCamera(SbVec3f(0, 0, 10));
  expectVec(vv.getSightPoint(3), 0, 0, 7);
  expectVec(vv.getPlane(3).getNormal(), 0, 0, 1);
}

TEST(SbViewVolume, OrthographicProjection) {
  SbViewVolume vv;
  vv.ortho(-2, 2, -1, 1, 0, 4);
  SbVec3f s;
  vv.projectToScreen(SbVec3f(1, 0.5f, -2), s);
  expectVec(s, 0.75f, 0.75f, 0.5f);
  vv.rotateCamera(SbRotation(SbVec3f(0, 1, 0), static_cast<float>(M_PI / 2)));
  expectVec(vv.getProjectionDirection(), -1, 0, 0);
}

TEST(SbViewportRegion, PixelsAndAspect) {
  SbViewportRegion vp(200, 100);
  vp.setViewport(0.25f, 0, 0.5f, 1);
  EXPECT_EQ(vp.getViewportSizePixels(), SbVec2s(100, 100));
  EXPECT_EQ(vp.getViewportOriginPixels(), SbVec2s(50, 0));
  EXPECT_FLOAT_EQ(vp.getViewportAspectRatio(), 1);
  vp.scaleWidth(0.5f);
  EXPECT_EQ(vp.getViewportSizePixels(), SbVec2s(50, 100));
  EXPECT_EQ(vp.getViewportOriginPixels(), SbVec2s(75, 0));  // scaled about the centre
  SbViewportRegion copy(vp);
  EXPECT_TRUE(copy == vp);
  copy.setPixelsPerInch(144);
  EXPECT_FLOAT_EQ(copy.getPixelsPerPoint(), 2);
  EXPECT_FALSE(copy == vp);
}

TEST(SbDataType, SizesRangesNames) {
  EXPECT_EQ(SbDataType(SbDataType::SIGNED_SHORT).getSize(), 2u);
  EXPECT_EQ(SbDataType(SbDataType::DOUBLE).getNumBits(), 64u);
  EXPECT_DOUBLE_EQ(SbDataType(SbDataType::SIGNED_BYTE).getMin(), -128);
  EXPECT_DOUBLE_EQ(SbDataType(SbDataType::UNSIGNED_SHORT).getMax(), 65535);
  EXPECT_DOUBLE_EQ(SbDataType(SbDataType::UNSIGNED_BYTE).normalize(300.7), 255);
  EXPECT_DOUBLE_EQ(SbDataType(SbDataType::SIGNED_INT32).normalize(-2.5), -3);
  EXPECT_FALSE(SbDataType(SbDataType::UNSIGNED_INT32).isSigned());
  EXPECT_FALSE(SbDataType(SbDataType::FLOAT).isInteger());
  EXPECT_EQ(SbDataType(SbString("FLOAT")).getType(), SbDataType::FLOAT);
  EXPECT_EQ(SbDataType(SbString("nonsense")).getType(), SbDataType::UNKNOWN);
  EXPECT_EQ(SbDataType(SbDataType::UNSIGNED_SHORT).getString(), SbString("UNSIGNED_SHORT"));
}

TEST(SbCPUID, ReportsAtLeastOneProcessor) {
  SbCPUID cpu;
  EXPECT_GE(cpu.getNumLogicalProcessors(), 1);
  EXPECT_FALSE(cpu.getVendor().isEmpty());
#if defined(__x86_64__)
  EXPECT_TRUE(cpu.hasSSE2());  // part of the x86-64 baseline
#endif
}
