// Bounding boxes and centers against boxes computed from the geometry.

#include <Orvex/SoPath.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoCylinder.h>
#include <Orvex/nodes/SoFaceSet.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoIndexedLineSet.h>
#include <Orvex/nodes/SoLineSet.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>
#include <Orvex/nodes/SoPointSet.h>
#include <Orvex/nodes/SoResetTransform.h>
#include <Orvex/nodes/SoRotation.h>
#include <Orvex/nodes/SoScale.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoSwitch.h>
#include <Orvex/nodes/SoTransform.h>
#include <Orvex/nodes/SoTransformSeparator.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/nodes/SoTriangleStripSet.h>

#include "ActionTestSupport.h"

using namespace actiontest;

namespace {

class BoundingBox : public ActionTest {
 protected:
  SoGetBoundingBoxAction action{SbViewportRegion(200, 100)};
};

TEST_F(BoundingBox, ATransformedCubeBoundsItsTransformedCorners) {
  auto root = make(new SoSeparator);
  auto* move = new SoTranslation;
  move->translation.setValue(1, 2, 3);
  auto* rot = new SoRotation;
  const SbVec3f axis = [] {
    SbVec3f a(1, 2, 2);
    a.normalize();
    return a;
  }();
  rot->rotation.setValue(SbRotation(axis, 0.6f));
  auto* scale = new SoScale;
  scale->scaleFactor.setValue(2, 1, 0.5f);
  auto* cube = new SoCube;
  cube->width = 2;
  cube->height = 4;
  cube->depth = 6;
  for (SoNode* n : {static_cast<SoNode*>(move), static_cast<SoNode*>(rot), static_cast<SoNode*>(scale),
                    static_cast<SoNode*>(cube)})
    root->addChild(n);
  action.apply(root.get());
  const auto world = [&](SbVec3f p) {
    p = SbVec3f(p[0] * 2, p[1], p[2] * 0.5f);
    return turn(p, axis, 0.6f) + SbVec3f(1, 2, 3);
  };
  expectBoxNear(action.getBoundingBox(), boxAround(mapped(corners(SbVec3f(-1, -2, -3), SbVec3f(1, 2, 3)), world)));
  expectNear(action.getCenter(), SbVec3f(1, 2, 3));
  // The transformed box keeps the cube's own shape.
  EXPECT_NEAR(action.getXfBoundingBox().getVolume(), 2 * 4 * 6 * 2 * 1 * 0.5f, 1e-3f);
}

TEST_F(BoundingBox, PrimitiveShapesAndTheirParts) {
  auto sphere = make(new SoSphere);
  sphere->radius = 2.5f;
  action.apply(sphere.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(-2.5f, -2.5f, -2.5f, 2.5f, 2.5f, 2.5f));

  auto cone = make(new SoCone);
  cone->bottomRadius = 2;
  cone->height = 3;
  action.apply(cone.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(-2, -1.5f, -2, 2, 1.5f, 2));
  cone->removePart(SoCone::SIDES);
  action.apply(cone.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(-2, -1.5f, -2, 2, -1.5f, 2));  // the bottom disk alone

  auto cylinder = make(new SoCylinder);
  cylinder->radius = 0.5f;
  cylinder->height = 4;
  cylinder->parts = SoCylinder::TOP;
  action.apply(cylinder.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(-0.5f, 2, -0.5f, 0.5f, 2, 0.5f));
  cylinder->parts = SoCylinder::ALL;
  action.apply(cylinder.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(-0.5f, -2, -0.5f, 0.5f, 2, 0.5f));
}

// Coordinates spread so that every shape uses only some of them.
SoCoordinate3* spreadCoordinates() {
  auto* coords = new SoCoordinate3;
  std::vector<SbVec3f> points;
  for (int i = 0; i < 10; ++i) points.emplace_back(float(i), float(i * i) / 10.0f, float(-i));
  coords->point.setValues(0, 10, points.data());
  return coords;
}

TEST_F(BoundingBox, VertexShapesBoundTheCoordinatesTheyUse) {
  auto root = make(new SoSeparator);
  root->addChild(spreadCoordinates());
  auto* faces = new SoIndexedFaceSet;
  const int32_t index[] = {2, 3, 4, -1, 4, 3, 6, -1};
  faces->coordIndex.setValues(0, 8, index);
  root->addChild(faces);
  action.apply(root.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(2, 0.4f, -6, 6, 3.6f, -2));
  expectNear(action.getCenter(), SbVec3f(4, 2.0f, -4));

  root->replaceChild(1, [] {
    auto* set = new SoFaceSet;
    set->startIndex = 5;
    set->numVertices.setValues(0, 1, std::vector<int32_t>{3}.data());
    return set;
  }());
  action.apply(root.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(5, 2.5f, -7, 7, 4.9f, -5));

  root->replaceChild(1, [] {
    auto* set = new SoPointSet;
    set->startIndex = 8;
    return set;
  }());
  action.apply(root.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(8, 6.4f, -9, 9, 8.1f, -8));

  root->replaceChild(1, [] {
    auto* set = new SoIndexedLineSet;
    set->coordIndex.setValues(0, 3, std::vector<int32_t>{0, 9, -1}.data());
    return set;
  }());
  action.apply(root.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(0, 0, -9, 9, 8.1f, 0));
}

TEST_F(BoundingBox, AGroupsCenterIsTheAverageOfItsChildren) {
  auto root = make(new SoSeparator);
  for (float x : {-4.0f, 2.0f, 8.0f}) {
    auto* sep = new SoSeparator;
    auto* move = new SoTranslation;
    move->translation.setValue(x, x / 2, 0);
    sep->addChild(move);
    sep->addChild(new SoSphere);
    root->addChild(sep);
  }
  for (int pass = 0; pass < 2; ++pass) {  // the second from the separators' caches
    action.apply(root.get());
    expectNear(action.getCenter(), SbVec3f(2, 1, 0));
    expectBoxNear(action.getBoundingBox(), SbBox3f(-5, -3, -1, 9, 5, 1));
  }
}

TEST_F(BoundingBox, ASwitchCountsOnlyWhatItShows) {
  auto sw = make(new SoSwitch);
  auto* small = new SoCube;
  auto* big = new SoSphere;
  big->radius = 10;
  sw->addChild(small);
  sw->addChild(big);
  sw->whichChild = 0;
  action.apply(sw.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(-1, -1, -1, 1, 1, 1));
  sw->whichChild = SO_SWITCH_NONE;
  action.apply(sw.get());
  EXPECT_TRUE(action.getBoundingBox().isEmpty());
}

TEST_F(BoundingBox, InCameraSpaceBoxesAreMeasuredFromTheCamera) {
  auto root = make(new SoSeparator);
  auto* camera = new SoPerspectiveCamera;
  camera->position.setValue(0, 0, 5);
  root->addChild(camera);
  root->addChild(new SoCube);
  action.setInCameraSpace(true);
  action.apply(root.get());
  expectBoxNear(action.getBoundingBox(), SbBox3f(-1, -1, -6, 1, 1, -4));
  action.setInCameraSpace(false);
  action.apply(root.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(-1, -1, -1, 1, 1, 1));
}

TEST_F(BoundingBox, AResetPathStartsAfreshAtItsTail) {
  auto root = make(new SoSeparator);
  auto* move = new SoTranslation;
  move->translation.setValue(10, 0, 0);
  auto* left = new SoSeparator;
  auto* far = new SoTranslation;
  far->translation.setValue(-20, 0, 0);
  left->addChild(far);
  left->addChild(new SoCube);
  auto* tail = new SoCube;
  root->addChild(move);
  root->addChild(left);
  root->addChild(tail);
  auto path = make(new SoPath(root.get()));
  path->append(2);

  action.setResetPath(path.get(), true, SoGetBoundingBoxAction::TRANSFORM);
  action.apply(root.get());  // the tail cube loses its translation; the other keeps its own
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(-11, -1, -1, 1, 1, 1));
  action.setResetPath(path.get(), true, SoGetBoundingBoxAction::BBOX);
  action.apply(root.get());  // only what comes from the tail on
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(9, -1, -1, 11, 1, 1));
  action.setResetPath(path.get(), false, SoGetBoundingBoxAction::BBOX);
  action.apply(root.get());  // after the tail: nothing is left
  EXPECT_TRUE(action.getBoundingBox().isEmpty());
  EXPECT_TRUE(action.isResetPath());
  EXPECT_FALSE(action.isResetBefore());
  EXPECT_EQ(action.getWhatReset(), SoGetBoundingBoxAction::BBOX);
}

TEST_F(BoundingBox, ResetTransformNodes) {
  auto root = make(new SoSeparator);
  auto* move = new SoTranslation;
  move->translation.setValue(5, 5, 5);
  auto* first = new SoCube;
  auto* reset = new SoResetTransform;
  root->addChild(move);
  root->addChild(first);
  root->addChild(reset);
  root->addChild(new SoSphere);
  action.apply(root.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(-1, -1, -1, 6, 6, 6));
  reset->whatToReset = SoResetTransform::BBOX;
  action.apply(root.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(4, 4, 4, 6, 6, 6));
}

TEST_F(BoundingBox, ATransformSeparatorKeepsItsTransformations) {
  auto root = make(new SoSeparator);
  auto* ts = new SoTransformSeparator;
  auto* inner = new SoTranslation;
  inner->translation.setValue(0, 10, 0);
  ts->addChild(inner);
  ts->addChild(new SoCube);
  root->addChild(ts);
  root->addChild(new SoCube);
  action.apply(root.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(-1, -1, -1, 1, 11, 1));
}

TEST_F(BoundingBox, APathCountsItsTailAndWhatAffectsIt) {
  auto root = make(new SoSeparator);
  auto* move = new SoTranslation;
  move->translation.setValue(1, 0, 0);
  auto* off = new SoCube;
  off->width = 100;
  auto* sep = new SoSeparator;
  auto* tail = new SoSphere;
  sep->addChild(tail);
  root->addChild(move);
  root->addChild(off);
  root->addChild(sep);
  auto path = make(new SoPath(root.get()));
  path->append(2);
  path->append(0);
  action.apply(path.get());
  EXPECT_EQ(action.getBoundingBox(), SbBox3f(0, -1, -1, 2, 1, 1));
}

}  // namespace
