// Picks against intersections computed from the geometry by hand.

#include <Orvex/SoPath.h>
#include <Orvex/SoPickedPoint.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/details/SoConeDetail.h>
#include <Orvex/details/SoCubeDetail.h>
#include <Orvex/details/SoCylinderDetail.h>
#include <Orvex/details/SoFaceDetail.h>
#include <Orvex/details/SoLineDetail.h>
#include <Orvex/details/SoPointDetail.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoCylinder.h>
#include <Orvex/nodes/SoDrawStyle.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoIndexedLineSet.h>
#include <Orvex/nodes/SoMaterialBinding.h>
#include <Orvex/nodes/SoNormal.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>
#include <Orvex/nodes/SoPickStyle.h>
#include <Orvex/nodes/SoPointSet.h>
#include <Orvex/nodes/SoRotationXYZ.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoTranslation.h>

#include "ActionTestSupport.h"

using namespace actiontest;

namespace {

class RayPick : public ActionTest {
 protected:
  SoRayPickAction action{SbViewportRegion(100, 100)};
  void down(float x, float y) { action.setRay(SbVec3f(x, y, 10), SbVec3f(0, 0, -1)); }
};

template <class D>
const D* detailOf(const SoPickedPoint* pp) {
  const SoDetail* d = pp->getDetail();
  return d && d->isOfType(D::getClassTypeId()) ? static_cast<const D*>(d) : nullptr;
}

TEST_F(RayPick, AWorldRayHitsTheCubeAndPickAllFindsBothSides) {
  auto root = make(new SoSeparator);
  auto* cube = new SoCube;
  root->addChild(cube);
  down(0.3f, 0.2f);
  action.apply(root.get());
  ASSERT_EQ(action.getPickedPointList().getLength(), 1);
  const SoPickedPoint* pp = action.getPickedPoint();
  expectNear(pp->getPoint(), SbVec3f(0.3f, 0.2f, 1));
  expectNear(pp->getNormal(), SbVec3f(0, 0, 1));
  EXPECT_NEAR(pp->getTextureCoords()[0], 0.65f, 1e-6f);
  EXPECT_NEAR(pp->getTextureCoords()[1], 0.6f, 1e-6f);
  ASSERT_NE(detailOf<SoCubeDetail>(pp), nullptr);
  EXPECT_EQ(detailOf<SoCubeDetail>(pp)->getPart(), 0);
  EXPECT_EQ(pp->getPath()->getTail(), cube);
  EXPECT_EQ(pp->getPath()->getHead(), root.get());
  EXPECT_TRUE(pp->isOnGeometry());

  action.setPickAll(true);
  action.apply(root.get());
  ASSERT_EQ(action.getPickedPointList().getLength(), 2);
  expectNear(action.getPickedPoint(1)->getPoint(), SbVec3f(0.3f, 0.2f, -1));
  expectNear(action.getPickedPoint(1)->getNormal(), SbVec3f(0, 0, -1));
  EXPECT_EQ(detailOf<SoCubeDetail>(action.getPickedPoint(1))->getPart(), 1);
  EXPECT_NEAR(action.getPickedPoint(1)->getTextureCoords()[0], 0.35f, 1e-6f);

  down(3, 3);
  action.apply(root.get());
  EXPECT_EQ(action.getPickedPointList().getLength(), 0);
  EXPECT_EQ(action.getPickedPoint(), nullptr);
}

TEST_F(RayPick, ObjectSpaceValuesGoThroughTheTransformations) {
  auto root = make(new SoSeparator);
  auto* move = new SoTranslation;
  move->translation.setValue(5, 0, 0);
  auto* turnY = new SoRotationXYZ;
  turnY->axis = SoRotationXYZ::Y;
  turnY->angle = kPi / 2;
  auto* cube = new SoCube;
  auto* outer = new SoSeparator;
  auto* inner = new SoSeparator;
  root->addChild(outer);
  outer->addChild(move);
  outer->addChild(inner);
  inner->addChild(turnY);
  inner->addChild(cube);
  down(5.2f, 0.1f);
  action.apply(root.get());
  const SoPickedPoint* pp = action.getPickedPoint();
  ASSERT_NE(pp, nullptr);
  expectNear(pp->getPoint(), SbVec3f(5.2f, 0.1f, 1));
  expectNear(pp->getNormal(), SbVec3f(0, 0, 1));
  const SbVec3f local = turn(SbVec3f(0.2f, 0.1f, 1), SbVec3f(0, 1, 0), -kPi / 2);
  expectNear(pp->getObjectPoint(), local);
  expectNear(pp->getObjectNormal(), turn(SbVec3f(0, 0, 1), SbVec3f(0, 1, 0), -kPi / 2));
  // The world +z face is the cube's left side (-x).
  EXPECT_EQ(detailOf<SoCubeDetail>(pp)->getPart(), 2);
  EXPECT_NEAR(pp->getTextureCoords()[0], (local[2] + 1) / 2, 1e-5f);
  // In the space of a node of the path, only what comes before it applies.
  ASSERT_EQ(pp->getPath()->getLength(), 4);
  expectNear(pp->getObjectPoint(inner), SbVec3f(0.2f, 0.1f, 1));
  expectNear(pp->getObjectPoint(root.get()), pp->getPoint());
  EXPECT_EQ(pp->getDetail(inner), nullptr);
  EXPECT_EQ(pp->getDetail(move), nullptr);  // not on the path
  SbVec3f back;
  pp->getObjectToWorld().multVecMatrix(pp->getObjectPoint(), back);
  expectNear(back, pp->getPoint());
}

TEST_F(RayPick, SpheresConesAndCylindersArePickedExactly) {
  auto sphere = make(new SoSphere);
  down(0.6f, 0);
  action.setPickAll(true);
  action.apply(sphere.get());
  ASSERT_EQ(action.getPickedPointList().getLength(), 2);
  const SoPickedPoint* pp = action.getPickedPoint(0);
  expectNear(pp->getPoint(), SbVec3f(0.6f, 0, 0.8f));
  expectNear(pp->getNormal(), SbVec3f(0.6f, 0, 0.8f));
  float s = std::atan2(-0.6f, -0.8f) / (2 * kPi);
  if (s < 0) s += 1;
  EXPECT_NEAR(pp->getTextureCoords()[0], s, 1e-5f);
  EXPECT_NEAR(pp->getTextureCoords()[1], 0.5f, 1e-5f);
  expectNear(action.getPickedPoint(1)->getPoint(), SbVec3f(0.6f, 0, -0.8f));
  action.setPickAll(false);

  auto cone = make(new SoSeparator);
  auto* binding = new SoMaterialBinding;
  binding->value = SoMaterialBinding::PER_PART;
  cone->addChild(binding);
  cone->addChild(new SoCone);
  down(0, -0.5f);
  action.apply(cone.get());
  pp = action.getPickedPoint();
  ASSERT_NE(pp, nullptr);
  expectNear(pp->getPoint(), SbVec3f(0, -0.5f, 0.75f));
  expectNear(pp->getNormal(), SbVec3f(0, 1, 2) / std::sqrt(5.0f));
  EXPECT_EQ(detailOf<SoConeDetail>(pp)->getPart(), SoCone::SIDES);
  EXPECT_EQ(pp->getMaterialIndex(), 0);
  action.setRay(SbVec3f(0.2f, -10, 0.1f), SbVec3f(0, 1, 0));
  action.apply(cone.get());
  pp = action.getPickedPoint();
  ASSERT_NE(pp, nullptr);
  expectNear(pp->getPoint(), SbVec3f(0.2f, -1, 0.1f));
  expectNear(pp->getNormal(), SbVec3f(0, -1, 0));
  EXPECT_NEAR(pp->getTextureCoords()[0], 0.6f, 1e-6f);
  EXPECT_NEAR(pp->getTextureCoords()[1], 0.55f, 1e-6f);
  EXPECT_EQ(detailOf<SoConeDetail>(pp)->getPart(), SoCone::BOTTOM);
  EXPECT_EQ(pp->getMaterialIndex(), 1);

  auto cylinder = make(new SoCylinder);
  action.setRay(SbVec3f(0.3f, 10, -0.4f), SbVec3f(0, -1, 0));
  action.apply(cylinder.get());
  pp = action.getPickedPoint();
  ASSERT_NE(pp, nullptr);
  expectNear(pp->getPoint(), SbVec3f(0.3f, 1, -0.4f));
  EXPECT_NEAR(pp->getTextureCoords()[0], 0.65f, 1e-6f);
  EXPECT_NEAR(pp->getTextureCoords()[1], 0.7f, 1e-6f);
  EXPECT_EQ(detailOf<SoCylinderDetail>(pp)->getPart(), SoCylinder::TOP);
  cylinder->removePart(SoCylinder::TOP);
  action.apply(cylinder.get());
  expectNear(action.getPickedPoint()->getPoint(), SbVec3f(0.3f, -1, -0.4f));  // through to the bottom
  down(0.6f, 0.3f);
  action.apply(cylinder.get());
  expectNear(action.getPickedPoint()->getPoint(), SbVec3f(0.6f, 0.3f, 0.8f));
  expectNear(action.getPickedPoint()->getNormal(), SbVec3f(0.6f, 0, 0.8f));
}

TEST_F(RayPick, ACameraGivesTheRayThroughAViewportPoint) {
  auto root = make(new SoSeparator);
  auto* camera = new SoPerspectiveCamera;
  camera->position.setValue(0, 0, 5);
  camera->heightAngle = kPi / 4;
  root->addChild(camera);
  auto* cube = new SoCube;
  cube->width = 10;
  root->addChild(cube);
  action.setPoint(SbVec2s(50, 50));
  action.apply(root.get());
  ASSERT_NE(action.getPickedPoint(), nullptr);
  expectNear(action.getPickedPoint()->getPoint(), SbVec3f(0, 0, 1));
  action.setPoint(SbVec2s(75, 50));
  action.apply(root.get());
  ASSERT_NE(action.getPickedPoint(), nullptr);
  // Half way to the right edge: x = distance * tan(half angle) / 2.
  expectNear(action.getPickedPoint()->getPoint(), SbVec3f(4 * std::tan(kPi / 8) / 2, 0, 1));
  // A wide viewport widens the view (the camera adjusts to it).
  SoRayPickAction wide(SbViewportRegion(200, 100));
  wide.setNormalizedPoint(SbVec2f(0.75f, 0.5f));
  wide.apply(root.get());
  ASSERT_NE(wide.getPickedPoint(), nullptr);
  expectNear(wide.getPickedPoint()->getPoint(), SbVec3f(4 * std::tan(kPi / 8), 0, 1));

  auto ortho = make(new SoSeparator);
  auto* oc = new SoOrthographicCamera;
  oc->position.setValue(0, 0, 5);
  oc->height = 4;
  ortho->addChild(oc);
  ortho->addChild(cube);
  action.setPoint(SbVec2s(75, 40));
  action.apply(ortho.get());
  ASSERT_NE(action.getPickedPoint(), nullptr);
  expectNear(action.getPickedPoint()->getPoint(), SbVec3f(1, -0.4f, 1));
}

TEST_F(RayPick, NearAndFarLimitsAndPickStyles) {
  auto root = make(new SoSeparator);
  auto* style = new SoPickStyle;
  root->addChild(style);
  auto* sphere = new SoSphere;
  root->addChild(sphere);
  action.setRay(SbVec3f(0, 0, 10), SbVec3f(0, 0, -1), 9.5f, -1);
  action.apply(root.get());
  ASSERT_NE(action.getPickedPoint(), nullptr);
  expectNear(action.getPickedPoint()->getPoint(), SbVec3f(0, 0, -1));  // the near side is too near
  action.setRay(SbVec3f(0, 0, 10), SbVec3f(0, 0, -1), 0, 8);
  action.apply(root.get());
  EXPECT_EQ(action.getPickedPoint(), nullptr);

  down(0.9f, 0.9f);  // misses the sphere, not its box
  action.apply(root.get());
  EXPECT_EQ(action.getPickedPoint(), nullptr);
  style->style = SoPickStyle::BOUNDING_BOX;
  action.apply(root.get());
  ASSERT_NE(action.getPickedPoint(), nullptr);
  expectNear(action.getPickedPoint()->getPoint(), SbVec3f(0.9f, 0.9f, 1));
  EXPECT_FALSE(action.getPickedPoint()->isOnGeometry());
  style->style = SoPickStyle::UNPICKABLE;
  down(0, 0);
  action.apply(root.get());
  EXPECT_EQ(action.getPickedPoint(), nullptr);
  style->style = SoPickStyle::SHAPE;
  auto* draw = new SoDrawStyle;
  draw->style = SoDrawStyle::INVISIBLE;
  root->insertChild(draw, 0);
  action.apply(root.get());
  EXPECT_EQ(action.getPickedPoint(), nullptr);
}

TEST_F(RayPick, LinesAndPointsWithinThePickRadius) {
  auto root = make(new SoSeparator);
  auto* camera = new SoPerspectiveCamera;
  camera->position.setValue(0, 0, 5);
  camera->heightAngle = kPi / 4;
  root->addChild(camera);
  auto* coords = new SoCoordinate3;
  coords->point.setValues(0, 3, std::vector<SbVec3f>{SbVec3f(-1, 0.05f, 0), SbVec3f(1, 0.05f, 0),
                                                     SbVec3f(0.1f, 0, 0)}.data());
  root->addChild(coords);
  auto* lines = new SoIndexedLineSet;
  lines->coordIndex.setValues(0, 2, std::vector<int32_t>{0, 1}.data());
  root->addChild(lines);
  // One pixel is 2 * 5 * tan(pi / 8) / 100 = 0.041 units at the line.
  action.setPoint(SbVec2s(50, 50));
  action.setRadius(5);
  action.apply(root.get());
  ASSERT_NE(action.getPickedPoint(), nullptr);
  expectNear(action.getPickedPoint()->getPoint(), SbVec3f(0, 0.05f, 0), 1e-4f);
  const auto* line = detailOf<SoLineDetail>(action.getPickedPoint());
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->getPoint0()->getCoordinateIndex(), 0);
  EXPECT_EQ(line->getPoint1()->getCoordinateIndex(), 1);
  action.setRadius(1);
  action.apply(root.get());
  EXPECT_EQ(action.getPickedPoint(), nullptr);

  auto* points = new SoPointSet;
  points->startIndex = 2;
  root->replaceChild(lines, points);
  action.setRadius(3);  // 0.124 units: the point is 0.1 away
  action.apply(root.get());
  ASSERT_NE(action.getPickedPoint(), nullptr);
  expectNear(action.getPickedPoint()->getPoint(), SbVec3f(0.1f, 0, 0));
  EXPECT_EQ(detailOf<SoPointDetail>(action.getPickedPoint())->getCoordinateIndex(), 2);
  action.setRadius(2);
  action.apply(root.get());
  EXPECT_EQ(action.getPickedPoint(), nullptr);
}

TEST_F(RayPick, AFaceSetHitGivesItsFaceInterpolatedAttributesAndMaterial) {
  auto root = make(new SoSeparator);
  auto* coords = new SoCoordinate3;
  const std::vector<SbVec3f> p = {SbVec3f(0, 0, 0), SbVec3f(4, 0, 0), SbVec3f(0, 4, 0), SbVec3f(4, 4, 1)};
  coords->point.setValues(0, 4, p.data());
  auto* normals = new SoNormal;
  normals->vector.setValues(0, 4, std::vector<SbVec3f>{SbVec3f(0, 0, 1), SbVec3f(1, 0, 0), SbVec3f(0, 1, 0),
                                                       SbVec3f(0, 0, 1)}.data());
  auto* binding = new SoMaterialBinding;
  binding->value = SoMaterialBinding::PER_FACE;
  auto* faces = new SoIndexedFaceSet;
  faces->coordIndex.setValues(0, 8, std::vector<int32_t>{0, 1, 2, -1, 1, 3, 2, -1}.data());
  for (SoNode* n : std::vector<SoNode*>{coords, normals, binding, faces}) root->addChild(n);
  down(1, 1);
  action.apply(root.get());
  const SoPickedPoint* pp = action.getPickedPoint();
  ASSERT_NE(pp, nullptr);
  expectNear(pp->getPoint(), SbVec3f(1, 1, 0));
  // Barycentric weights of (1, 1) in (0,0) (4,0) (0,4): 0.5, 0.25, 0.25.
  SbVec3f n = SbVec3f(0, 0, 1) * 0.5f + SbVec3f(1, 0, 0) * 0.25f + SbVec3f(0, 1, 0) * 0.25f;
  n.normalize();
  expectNear(pp->getNormal(), n);
  EXPECT_NEAR(pp->getTextureCoords()[0], 0.25f, 1e-6f);  // the default mapping over the 4 x 4 box
  EXPECT_NEAR(pp->getTextureCoords()[1], 0.25f, 1e-6f);
  const auto* face = detailOf<SoFaceDetail>(pp);
  ASSERT_NE(face, nullptr);
  EXPECT_EQ(face->getFaceIndex(), 0);
  ASSERT_EQ(face->getNumPoints(), 3);
  EXPECT_EQ(face->getPoint(1)->getCoordinateIndex(), 1);
  EXPECT_EQ(pp->getMaterialIndex(), 0);

  // The second face leans: the ray meets its plane where z = (x + y - 4) / 4.
  down(3, 3);
  action.apply(root.get());
  pp = action.getPickedPoint();
  ASSERT_NE(pp, nullptr);
  expectNear(pp->getPoint(), SbVec3f(3, 3, 0.5f));
  EXPECT_EQ(detailOf<SoFaceDetail>(pp)->getFaceIndex(), 1);
  EXPECT_EQ(pp->getMaterialIndex(), 1);
}

TEST_F(RayPick, TheClosestShapeWinsAcrossTheGraph) {
  auto root = make(new SoSeparator);
  auto* far = new SoSeparator;
  auto* t1 = new SoTranslation;
  t1->translation.setValue(0, 0, -5);
  far->addChild(t1);
  far->addChild(new SoCube);
  auto* nearSphere = new SoSphere;
  root->addChild(far);
  root->addChild(nearSphere);
  down(0, 0);
  action.apply(root.get());
  ASSERT_NE(action.getPickedPoint(), nullptr);
  EXPECT_EQ(action.getPickedPoint()->getPath()->getTail(), nearSphere);
  action.setPickAll(true);
  action.apply(root.get());
  ASSERT_EQ(action.getPickedPointList().getLength(), 4);
  float last = 1e9f;
  for (int i = 0; i < 4; ++i) {
    const float z = action.getPickedPoint(i)->getPoint()[2];
    EXPECT_LT(z, last);  // near to far
    last = z;
  }
}

}  // namespace
