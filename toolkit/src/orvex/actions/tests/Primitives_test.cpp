// The primitives every shape generates, checked against its geometry, and
// the counts of the primitive count action.

#include <Orvex/actions/SoGetPrimitiveCountAction.h>
#include <Orvex/details/SoLineDetail.h>
#include <Orvex/nodes/SoComplexity.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoCylinder.h>
#include <Orvex/nodes/SoDrawStyle.h>
#include <Orvex/nodes/SoFaceSet.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoIndexedLineSet.h>
#include <Orvex/nodes/SoLineSet.h>
#include <Orvex/nodes/SoMaterialBinding.h>
#include <Orvex/nodes/SoNormal.h>
#include <Orvex/nodes/SoNormalBinding.h>
#include <Orvex/nodes/SoPointSet.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoShapeHints.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoTextureCoordinate2.h>
#include <Orvex/nodes/SoTriangleStripSet.h>

#include <cmath>

#include "ActionTestSupport.h"
#include "PrimitiveCollector.h"

using namespace actiontest;

namespace {

class ShapePrimitives : public ActionTest {};

SoCoordinate3* coordinates(const std::vector<SbVec3f>& points) {
  auto* c = new SoCoordinate3;
  c->point.setValues(0, static_cast<int>(points.size()), points.data());
  return c;
}

TEST_F(ShapePrimitives, ACubeIsTwelveOutwardTrianglesWithFaceParts) {
  auto cube = make(new SoCube);
  cube->width = 2;
  cube->height = 4;
  cube->depth = 6;
  const Primitives p = Primitives::of(cube.get());
  ASSERT_EQ(p.triangles.size(), 12u);
  const float w = 1, h = 2, d = 3;
  const SbVec3f normals[6] = {SbVec3f(0, 0, 1), SbVec3f(0, 0, -1), SbVec3f(-1, 0, 0),
                              SbVec3f(1, 0, 0), SbVec3f(0, 1, 0),  SbVec3f(0, -1, 0)};
  float total = 0;
  int perPart[6] = {0};
  for (const auto& t : p.triangles) {
    total += area(t);
    const int part = t[0].part();
    ASSERT_GE(part, 0);
    ASSERT_LT(part, 6);
    ++perPart[part];
    SbVec3f n = faceNormal(t);
    n.normalize();
    expectNear(n, normals[part]);
    for (const Vertex& v : t) {
      EXPECT_EQ(v.part(), part);
      expectNear(v.normal, normals[part]);
      // On the face's plane, at a corner.
      EXPECT_NEAR(std::fabs(v.point[0]), w, 1e-6f);
      EXPECT_NEAR(std::fabs(v.point[1]), h, 1e-6f);
      EXPECT_NEAR(std::fabs(v.point[2]), d, 1e-6f);
      const float x = v.point[0], y = v.point[1], z = v.point[2];
      const float s[6] = {(x + w) / (2 * w), (w - x) / (2 * w), (z + d) / (2 * d),
                          (d - z) / (2 * d), (x + w) / (2 * w), (x + w) / (2 * w)};
      const float tt[6] = {(y + h) / (2 * h), (y + h) / (2 * h), (y + h) / (2 * h),
                           (y + h) / (2 * h), (d - z) / (2 * d), (z + d) / (2 * d)};
      EXPECT_NEAR(v.tex[0], s[part], 1e-6f);
      EXPECT_NEAR(v.tex[1], tt[part], 1e-6f);
    }
  }
  for (int n : perPart) EXPECT_EQ(n, 2);
  EXPECT_NEAR(total, 2 * (2 * 4 + 4 * 6 + 2 * 6), 1e-4f);
}

TEST_F(ShapePrimitives, ASphereLiesOnItsSurfaceAndFacesOut) {
  auto root = make(new SoSeparator);
  auto* complexity = new SoComplexity;
  root->addChild(complexity);
  auto* sphere = new SoSphere;
  sphere->radius = 3;
  root->addChild(sphere);
  for (float c : {0.0f, 0.5f, 1.0f}) {
    complexity->value = c;
    const Primitives p = Primitives::of(root.get());
    const int slices = std::max(4, static_cast<int>(c * 64 + 0.5f)), stacks = std::max(2, slices / 2);
    EXPECT_EQ(p.triangles.size(), static_cast<size_t>(slices * (2 * stacks - 2))) << c;
    for (const auto& t : p.triangles) {
      SbVec3f centroid = (t[0].point + t[1].point + t[2].point) / 3.0f;
      EXPECT_GT(faceNormal(t).dot(centroid), 0.0f);
      for (const Vertex& v : t) {
        EXPECT_NEAR(v.point.length(), 3.0f, 1e-5f);
        expectNear(v.normal, v.point / 3.0f);
        EXPECT_NEAR(v.tex[1], 1.0f - std::acos(std::max(-1.0f, std::min(1.0f, v.point[1] / 3.0f))) / kPi, 1e-5f);
        if (std::fabs(v.point[1]) < 2.9999f) {
          float s = std::atan2(-v.point[0], -v.point[2]) / (2 * kPi);
          if (s < 0) s += 1;
          const float ds = std::fabs(v.tex[0] - s);
          EXPECT_TRUE(ds < 1e-4f || std::fabs(ds - 1) < 1e-4f) << v.tex[0] << " vs " << s;
        }
      }
    }
  }
}

TEST_F(ShapePrimitives, ConesAndCylindersGiveTheirParts) {
  auto cone = make(new SoCone);
  cone->bottomRadius = 2;
  cone->height = 4;
  const Primitives c = Primitives::of(cone.get());
  const int slices = 32;  // complexity 0.5
  ASSERT_EQ(c.triangles.size(), static_cast<size_t>(2 * slices));
  for (const auto& t : c.triangles) {
    const int part = t[0].part();
    const SbVec3f centroid = (t[0].point + t[1].point + t[2].point) / 3.0f;
    if (part == SoCone::BOTTOM) {
      for (const Vertex& v : t) EXPECT_FLOAT_EQ(v.point[1], -2.0f);
      EXPECT_LT(faceNormal(t)[1], 0.0f);
    } else {
      ASSERT_EQ(part, SoCone::SIDES);
      // Points on the cone: radius shrinks linearly to the apex.
      for (const Vertex& v : t)
        EXPECT_NEAR(std::sqrt(v.point[0] * v.point[0] + v.point[2] * v.point[2]), (2.0f - v.point[1]) / 2.0f, 1e-5f);
      EXPECT_GT(faceNormal(t).dot(SbVec3f(centroid[0], 0, centroid[2])), 0.0f);
    }
  }
  cone->parts = SoCone::BOTTOM;
  EXPECT_EQ(Primitives::of(cone.get()).triangles.size(), static_cast<size_t>(slices));

  auto cylinder = make(new SoCylinder);
  const Primitives y = Primitives::of(cylinder.get());
  ASSERT_EQ(y.triangles.size(), static_cast<size_t>(4 * slices));
  int byPart[8] = {0};
  for (const auto& t : y.triangles) {
    ++byPart[t[0].part()];
    const SbVec3f n = faceNormal(t);
    if (t[0].part() == SoCylinder::TOP) {
      EXPECT_GT(n[1], 0.0f);
    }
    if (t[0].part() == SoCylinder::BOTTOM) {
      EXPECT_LT(n[1], 0.0f);
    }
    if (t[0].part() == SoCylinder::SIDES) {
      for (const Vertex& v : t) EXPECT_NEAR(v.point[0] * v.point[0] + v.point[2] * v.point[2], 1.0f, 1e-5f);
    }
  }
  EXPECT_EQ(byPart[SoCylinder::SIDES], 2 * slices);
  EXPECT_EQ(byPart[SoCylinder::TOP], slices);
  EXPECT_EQ(byPart[SoCylinder::BOTTOM], slices);
}

// Whether a point lies inside a polygon of the xy plane (even-odd rule).
bool insidePolygon(const std::vector<SbVec3f>& poly, float x, float y) {
  bool inside = false;
  for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
    if ((poly[i][1] > y) != (poly[j][1] > y) &&
        x < (poly[j][0] - poly[i][0]) * (y - poly[i][1]) / (poly[j][1] - poly[i][1]) + poly[i][0])
      inside = !inside;
  }
  return inside;
}

TEST_F(ShapePrimitives, FacesAreCutIntoTrianglesThatCoverThemExactly) {
  // A U shape: its notch makes a fan from the first corner go outside.
  const std::vector<SbVec3f> u = {SbVec3f(0, 0, 0), SbVec3f(3, 0, 0), SbVec3f(3, 3, 0), SbVec3f(2, 3, 0),
                                  SbVec3f(2, 1, 0), SbVec3f(1, 1, 0), SbVec3f(1, 3, 0), SbVec3f(0, 3, 0)};
  auto root = make(new SoSeparator);
  auto* hints = new SoShapeHints;
  hints->faceType = SoShapeHints::UNKNOWN_FACE_TYPE;
  root->addChild(hints);
  root->addChild(coordinates(u));
  auto* faces = new SoFaceSet;
  faces->numVertices.setValue(8);
  root->addChild(faces);
  const Primitives p = Primitives::of(root.get());
  ASSERT_EQ(p.triangles.size(), 6u);
  float total = 0;
  for (const auto& t : p.triangles) {
    total += area(t);
    EXPECT_GT(faceNormal(t)[2], 0.0f);
    const SbVec3f c = (t[0].point + t[1].point + t[2].point) / 3.0f;
    EXPECT_TRUE(insidePolygon(u, c[0], c[1])) << c[0] << "," << c[1];
    for (const Vertex& v : t) expectNear(v.normal, SbVec3f(0, 0, 1));
  }
  EXPECT_NEAR(total, 7.0f, 1e-5f);

  // A convex face is a fan from its first vertex.
  hints->faceType = SoShapeHints::CONVEX;
  faces->numVertices.setValue(4);
  const Primitives q = Primitives::of(root.get());
  ASSERT_EQ(q.triangles.size(), 2u);
  EXPECT_EQ(q.triangles[0][0].point, u[0]);
  EXPECT_EQ(q.triangles[0][2].point, u[2]);
  EXPECT_EQ(q.triangles[1][1].point, u[2]);
  EXPECT_EQ(q.triangles[1][2].point, u[3]);
}

TEST_F(ShapePrimitives, StripsTurnEveryOtherTriangle) {
  auto root = make(new SoSeparator);
  root->addChild(coordinates({SbVec3f(0, 0, 0), SbVec3f(1, 0, 0), SbVec3f(0, 1, 0), SbVec3f(1, 1, 0),
                              SbVec3f(0, 2, 0), SbVec3f(5, 5, 5), SbVec3f(6, 5, 5), SbVec3f(5, 6, 5)}));
  auto* strips = new SoTriangleStripSet;
  strips->numVertices.setValues(0, 2, std::vector<int32_t>{5, 3}.data());
  root->addChild(strips);
  SoCallbackAction action;
  Primitives p;
  p.attach(action);
  action.apply(root.get());
  ASSERT_EQ(p.triangles.size(), 4u);
  for (const auto& t : p.triangles) {
    SbVec3f n = faceNormal(t);
    n.normalize();
    expectNear(n, SbVec3f(0, 0, 1));
  }
  EXPECT_EQ(p.triangles[1][0].point, SbVec3f(0, 1, 0));  // (v2, v1, v3)
  EXPECT_EQ(p.triangles[1][1].point, SbVec3f(1, 0, 0));
  EXPECT_EQ(p.triangles[3][0].pointDetail()->getCoordinateIndex(), 5);
}

TEST_F(ShapePrimitives, IndexedFaceSetsBindMaterialsNormalsAndTextures) {
  auto root = make(new SoSeparator);
  root->addChild(coordinates({SbVec3f(0, 0, 0), SbVec3f(2, 0, 0), SbVec3f(2, 1, 0), SbVec3f(0, 1, 0),
                              SbVec3f(3, 0.5f, 0)}));
  auto* normals = new SoNormal;
  normals->vector.setValues(0, 3, std::vector<SbVec3f>{SbVec3f(0, 0, 1), SbVec3f(1, 0, 0), SbVec3f(0, 1, 0)}.data());
  root->addChild(normals);
  auto* normalBinding = new SoNormalBinding;
  normalBinding->value = SoNormalBinding::PER_VERTEX_INDEXED;
  root->addChild(normalBinding);
  auto* binding = new SoMaterialBinding;
  binding->value = SoMaterialBinding::PER_FACE_INDEXED;
  root->addChild(binding);
  auto* tex = new SoTextureCoordinate2;
  std::vector<SbVec2f> uv;
  for (int i = 0; i < 5; ++i) uv.emplace_back(i * 0.1f, i * 0.2f);
  tex->point.setValues(0, 5, uv.data());
  root->addChild(tex);
  auto* faces = new SoIndexedFaceSet;
  faces->coordIndex.setValues(0, 9, std::vector<int32_t>{0, 1, 2, 3, -1, 1, 4, 2, -1}.data());
  faces->materialIndex.setValues(0, 2, std::vector<int32_t>{5, 7}.data());
  faces->normalIndex.setValues(0, 9, std::vector<int32_t>{0, 0, 0, 0, -1, 1, 2, 1, -1}.data());
  root->addChild(faces);
  const Primitives p = Primitives::of(root.get());
  ASSERT_EQ(p.triangles.size(), 3u);  // the quad makes two
  for (size_t i = 0; i < 3; ++i) {
    const int face = i < 2 ? 0 : 1;
    for (const Vertex& v : p.triangles[i]) {
      const SoPointDetail* d = v.pointDetail();
      ASSERT_NE(d, nullptr);
      const int c = d->getCoordinateIndex();
      EXPECT_EQ(v.material, face == 0 ? 5 : 7);
      EXPECT_EQ(d->getMaterialIndex(), v.material);
      EXPECT_EQ(v.tex, SbVec4f(c * 0.1f, c * 0.2f, 0, 1));  // by coordIndex
      EXPECT_EQ(d->getTextureCoordIndex(), c);
      const SbVec3f expected = face == 0 ? SbVec3f(0, 0, 1) : (c == 4 ? SbVec3f(0, 1, 0) : SbVec3f(1, 0, 0));
      EXPECT_EQ(v.normal, expected);
    }
  }
  // Without texture coordinates: s along the longest side, t the other way,
  // both in units of the longest side.
  root->removeChild(tex);
  const Primitives q = Primitives::of(root.get());
  for (const auto& t : q.triangles)
    for (const Vertex& v : t) {
      EXPECT_NEAR(v.tex[0], v.point[0] / 3.0f, 1e-6f);
      EXPECT_NEAR(v.tex[1], v.point[1] / 3.0f, 1e-6f);
    }
}

TEST_F(ShapePrimitives, GeneratedNormalsFollowTheVertexOrdering) {
  auto root = make(new SoSeparator);
  auto* hints = new SoShapeHints;
  root->addChild(hints);
  root->addChild(coordinates({SbVec3f(0, 0, 0), SbVec3f(1, 0, 0), SbVec3f(0, 1, 0)}));
  auto* faces = new SoIndexedFaceSet;
  faces->coordIndex.setValues(0, 3, std::vector<int32_t>{0, 1, 2}.data());
  root->addChild(faces);
  expectNear(Primitives::of(root.get()).triangles[0][0].normal, SbVec3f(0, 0, 1));
  hints->vertexOrdering = SoShapeHints::CLOCKWISE;
  expectNear(Primitives::of(root.get()).triangles[0][0].normal, SbVec3f(0, 0, -1));
}

TEST_F(ShapePrimitives, LinesAndPoints) {
  auto root = make(new SoSeparator);
  root->addChild(coordinates({SbVec3f(0, 0, 0), SbVec3f(1, 0, 0), SbVec3f(1, 1, 0), SbVec3f(2, 2, 2),
                              SbVec3f(3, 3, 3)}));
  auto* lines = new SoLineSet;
  lines->numVertices.setValues(0, 2, std::vector<int32_t>{3, 2}.data());
  root->addChild(lines);
  const Primitives p = Primitives::of(root.get());
  ASSERT_EQ(p.segments.size(), 3u);
  EXPECT_EQ(p.segments[1][0].point, SbVec3f(1, 0, 0));
  EXPECT_EQ(p.segments[1][1].point, SbVec3f(1, 1, 0));
  EXPECT_EQ(p.segments[2][0].pointDetail()->getCoordinateIndex(), 3);

  auto* indexed = new SoIndexedLineSet;
  indexed->coordIndex.setValues(0, 5, std::vector<int32_t>{4, 0, -1, 2, 3}.data());
  root->replaceChild(lines, indexed);
  const Primitives q = Primitives::of(root.get());
  ASSERT_EQ(q.segments.size(), 2u);
  EXPECT_EQ(q.segments[0][0].point, SbVec3f(3, 3, 3));
  EXPECT_EQ(q.segments[1][1].point, SbVec3f(2, 2, 2));

  auto* points = new SoPointSet;
  points->startIndex = 1;
  points->numPoints = 3;
  root->replaceChild(indexed, points);
  const Primitives r = Primitives::of(root.get());
  ASSERT_EQ(r.points.size(), 3u);
  EXPECT_EQ(r.points[2].point, SbVec3f(2, 2, 2));
  EXPECT_EQ(r.points[0].pointDetail()->getCoordinateIndex(), 1);
}

TEST_F(ShapePrimitives, ThePrimitiveCountMatchesWhatIsGenerated) {
  auto root = make(new SoSeparator);
  root->addChild(new SoCube);
  root->addChild(new SoSphere);
  root->addChild(coordinates({SbVec3f(0, 0, 0), SbVec3f(1, 0, 0), SbVec3f(1, 1, 0)}));
  auto* lines = new SoLineSet;
  root->addChild(lines);
  auto* points = new SoPointSet;
  root->addChild(points);
  SoGetPrimitiveCountAction count;
  count.apply(root.get());
  EXPECT_EQ(count.getTriangleCount(), 12 + 32 * 30);
  EXPECT_EQ(count.getLineCount(), 2);
  EXPECT_EQ(count.getPointCount(), 3);
  EXPECT_TRUE(count.containsNonTriangleShapes());
  EXPECT_FALSE(count.containsNoPrimitives());

  auto hidden = make(new SoSeparator);
  auto* style = new SoDrawStyle;
  style->style = SoDrawStyle::INVISIBLE;
  hidden->addChild(style);
  hidden->addChild(new SoCube);
  count.apply(hidden.get());
  EXPECT_TRUE(count.containsNoPrimitives());
  EXPECT_FALSE(count.containsNonTriangleShapes());
}

}  // namespace
