// The matrix of a path against the composition of its transformations.

#include <Orvex/SoPath.h>
#include <Orvex/actions/SoGetMatrixAction.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoMatrixTransform.h>
#include <Orvex/nodes/SoResetTransform.h>
#include <Orvex/nodes/SoRotationXYZ.h>
#include <Orvex/nodes/SoScale.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSwitch.h>
#include <Orvex/nodes/SoTransform.h>
#include <Orvex/nodes/SoTransformSeparator.h>
#include <Orvex/nodes/SoTranslation.h>

#include "ActionTestSupport.h"

using namespace actiontest;

namespace {

class GetMatrix : public ActionTest {
 protected:
  SoGetMatrixAction action{SbViewportRegion(100, 100)};
  SbVec3f apply(const SbMatrix& m, const SbVec3f& p) {
    SbVec3f out;
    m.multVecMatrix(p, out);
    return out;
  }
  SoTranslation* translation(float x, float y, float z) {
    auto* t = new SoTranslation;
    t->translation.setValue(x, y, z);
    return t;
  }
};

TEST_F(GetMatrix, APathComposesItsTransformationsWithTheirInverse) {
  auto root = make(new SoSeparator);
  auto* group = new SoGroup;
  auto* rot = new SoRotationXYZ;
  rot->axis = SoRotationXYZ::Y;
  rot->angle = 0.4f;
  auto* scale = new SoScale;
  scale->scaleFactor.setValue(3, 2, 1);
  auto* cube = new SoCube;
  root->addChild(translation(1, 2, 3));
  root->addChild(group);
  group->addChild(rot);
  group->addChild(scale);
  group->addChild(cube);
  group->addChild(translation(100, 0, 0));  // after the tail: does not count
  auto path = make(new SoPath(root.get()));
  path->append(1);
  path->append(2);
  action.apply(path.get());
  const auto world = [](SbVec3f p) {
    p = SbVec3f(p[0] * 3, p[1] * 2, p[2]);
    return turn(p, SbVec3f(0, 1, 0), 0.4f) + SbVec3f(1, 2, 3);
  };
  for (const SbVec3f& p : {SbVec3f(1, 0, 0), SbVec3f(-2, 5, 1), SbVec3f(0.5f, 0.5f, -3)}) {
    expectNear(apply(action.getMatrix(), p), world(p));
    expectNear(apply(action.getInverse(), world(p)), p, 1e-4f);
  }
}

TEST_F(GetMatrix, SiblingsLeftOfThePathCountUnlessTheyKeepTheirChanges) {
  auto root = make(new SoSeparator);
  auto* sep = new SoSeparator;  // keeps its translation
  sep->addChild(translation(50, 0, 0));
  auto* ts = new SoTransformSeparator;  // also keeps it
  ts->addChild(translation(0, 50, 0));
  auto* group = new SoGroup;  // passes it on
  group->addChild(translation(0, 0, 7));
  auto* cube = new SoCube;
  root->addChild(sep);
  root->addChild(ts);
  root->addChild(group);
  root->addChild(cube);
  auto path = make(new SoPath(root.get()));
  path->append(3);
  action.apply(path.get());
  expectNear(apply(action.getMatrix(), SbVec3f(0, 0, 0)), SbVec3f(0, 0, 7));
}

TEST_F(GetMatrix, NodesUnderTheTailDoNotCount) {
  auto root = make(new SoSeparator);
  root->addChild(translation(1, 1, 1));
  auto* group = new SoGroup;
  group->addChild(translation(5, 5, 5));
  root->addChild(group);
  auto path = make(new SoPath(root.get()));
  path->append(1);
  action.apply(path.get());
  expectNear(apply(action.getMatrix(), SbVec3f(0, 0, 0)), SbVec3f(1, 1, 1));
  // Applied to a transformation node, the matrix is its own.
  auto t = make(new SoTransform);
  t->translation.setValue(2, 0, 0);
  t->scaleFactor.setValue(2, 2, 2);
  action.apply(t.get());
  expectNear(apply(action.getMatrix(), SbVec3f(1, 1, 1)), SbVec3f(4, 2, 2));
}

TEST_F(GetMatrix, ResetTransformAndMatrixTransform) {
  auto root = make(new SoSeparator);
  root->addChild(translation(9, 9, 9));
  root->addChild(new SoResetTransform);
  auto* m = new SoMatrixTransform;
  m->matrix.setValue(SbMatrix(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 4, 0, 0, 1));
  root->addChild(m);
  root->addChild(new SoCube);
  auto path = make(new SoPath(root.get()));
  path->append(3);
  action.apply(path.get());
  // (x, y, z) -> (-y, x, z) + (4, 0, 0)
  expectNear(apply(action.getMatrix(), SbVec3f(1, 2, 3)), SbVec3f(2, 1, 3));
  expectNear(apply(action.getInverse(), SbVec3f(2, 1, 3)), SbVec3f(1, 2, 3));
}

TEST_F(GetMatrix, ASwitchOnThePathFollowsThePath) {
  auto root = make(new SoSeparator);
  auto* sw = new SoSwitch;
  sw->whichChild = 0;  // shows a child off the path
  sw->addChild(translation(1, 0, 0));
  sw->addChild(translation(0, 1, 0));
  sw->addChild(new SoCube);
  root->addChild(sw);
  auto path = make(new SoPath(root.get()));
  path->append(0);
  path->append(2);
  action.apply(path.get());
  // Along the path the switch traverses children 0 to 2: both translations.
  expectNear(apply(action.getMatrix(), SbVec3f(0, 0, 0)), SbVec3f(1, 1, 0));
}

}  // namespace
