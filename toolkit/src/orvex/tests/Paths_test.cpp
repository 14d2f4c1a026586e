// Paths: building, comparing, naming, and following changes of the graph.

#include <Orvex/SoDB.h>
#include <Orvex/SoPath.h>
#include <Orvex/SoPathList.h>
#include <Orvex/errors/SoDebugError.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSphere.h>

#include <gtest/gtest.h>

#include "ErrorCapture.h"
#include "TestSupport.h"

using orvextest::Listener;
using orvextest::make;
using orvextest::Ref;

namespace {

class PathsTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
  void SetUp() override {
    // root -> [ material, group -> [ cube, sphere ], cone ]
    root = make(new SoSeparator);
    material = new SoMaterial;
    group = new SoGroup;
    cube = new SoCube;
    sphere = new SoSphere;
    cone = new SoCone;
    root->addChild(material);
    root->addChild(group);
    group->addChild(cube);
    group->addChild(sphere);
    root->addChild(cone);
  }
  Ref<SoSeparator> root;
  SoMaterial* material = nullptr;
  SoGroup* group = nullptr;
  SoCube* cube = nullptr;
  SoSphere* sphere = nullptr;
  SoCone* cone = nullptr;

  Ref<SoPath> pathToSphere() {
    auto path = make(new SoPath(root.get()));
    path->append(1);
    path->append(sphere);
    return path;
  }
};

}  // namespace

TEST_F(PathsTest, AppendHeadTailAndIndices) {
  auto path = pathToSphere();
  EXPECT_EQ(path->getLength(), 3);
  EXPECT_EQ(path->getHead(), root.get());
  EXPECT_EQ(path->getTail(), sphere);
  EXPECT_EQ(path->getNode(1), group);
  EXPECT_EQ(path->getNodeFromTail(1), group);
  EXPECT_EQ(path->getIndex(0), -1);
  EXPECT_EQ(path->getIndex(1), 1);
  EXPECT_EQ(path->getIndexFromTail(0), 1);
  EXPECT_EQ(sphere->getRefCount(), 2);  // the group's and the path's
  path->pop();
  EXPECT_EQ(path->getTail(), group);
  path->push(0);
  EXPECT_EQ(path->getTail(), cube);
  path->truncate(1);
  EXPECT_EQ(path->getLength(), 1);
  EXPECT_EQ(sphere->getRefCount(), 1);
  ErrorCapture<SoDebugError> errors;
  path->append(7);
  path->append(sphere);  // not a child of the tail
  EXPECT_EQ(errors.count(), 2u);
  EXPECT_EQ(path->getLength(), 1);
  path->setHead(group);
  EXPECT_EQ(path->getLength(), 1);
  EXPECT_EQ(path->getHead(), group);
}

TEST_F(PathsTest, AppendingAPath) {
  auto upper = make(new SoPath(root.get()));
  upper->append(1);
  auto lower = make(new SoPath(group));
  lower->append(1);
  upper->append(lower.get());
  EXPECT_EQ(upper->getLength(), 3);
  EXPECT_EQ(upper->getTail(), sphere);
  ErrorCapture<SoDebugError> errors;
  upper->append(lower.get());  // its head is not the tail
  EXPECT_EQ(errors.count(), 1u);
}

TEST_F(PathsTest, ContainmentForksAndEquality) {
  auto a = pathToSphere();
  auto b = pathToSphere();
  EXPECT_TRUE(*a == *b);
  EXPECT_TRUE(a->containsNode(group));
  EXPECT_FALSE(a->containsNode(cone));
  EXPECT_TRUE(a->containsNode(SoSphere::getClassTypeId()));
  EXPECT_FALSE(a->containsNode(SoCone::getClassTypeId()));
  EXPECT_EQ(a->findNode(sphere), 2);
  auto tail = make(new SoPath(group));
  tail->append(1);
  EXPECT_TRUE(a->containsPath(tail.get()));
  tail->pop();
  tail->append(0);
  EXPECT_FALSE(a->containsPath(tail.get()));
  b->pop();
  b->append(0);
  EXPECT_TRUE(*a != *b);
  EXPECT_EQ(a->findFork(b.get()), 1);
  auto other = make(new SoPath(group));
  EXPECT_EQ(a->findFork(other.get()), -1);
  auto copy = make(a->copy(1));
  EXPECT_EQ(copy->getHead(), group);
  EXPECT_EQ(copy->getLength(), 2);
  EXPECT_EQ(copy->getIndex(1), 1);
  auto whole = make(a->copy());
  EXPECT_TRUE(*whole == *a);
}

TEST_F(PathsTest, NamedPaths) {
  auto a = pathToSphere();
  auto b = make(new SoPath(root.get()));
  a->setName("route");
  b->setName("route");
  EXPECT_EQ(SoPath::getByName("route"), b.get());
  SoPathList list;
  EXPECT_EQ(SoPath::getByName("route", list), 2);
  EXPECT_EQ(list[0], a.get());
  SoPathList none;
  EXPECT_EQ(SoPath::getByName("nowhere", none), 0);
  EXPECT_EQ(none.getLength(), 0);
  EXPECT_EQ(SoPath::getByName("nowhere"), nullptr);
  // Nodes and paths of one name are told apart by type.
  cube->setName("route");
  EXPECT_EQ(SoNode::getByName("route"), cube);
  EXPECT_EQ(SoPath::getByName("route"), b.get());
}

TEST_F(PathsTest, PathsFollowChangesOfTheirGroups) {
  auto path = pathToSphere();
  root->insertChild(new SoCube, 0);  // before the path's child: the index moves
  EXPECT_EQ(path->getIndex(1), 2);
  EXPECT_EQ(path->getNode(1), group);
  root->removeChild(0);
  EXPECT_EQ(path->getIndex(1), 1);
  group->insertChild(new SoCone, 2);  // after it: nothing changes
  EXPECT_EQ(path->getIndex(2), 1);
  group->removeChild(0);  // before the tail
  EXPECT_EQ(path->getIndex(2), 0);
  EXPECT_EQ(path->getTail(), sphere);
  group->removeChild(sphere);  // the path's own child: the path ends above it
  EXPECT_EQ(path->getLength(), 2);
  EXPECT_EQ(path->getTail(), group);
}

TEST_F(PathsTest, ReplacingTheChildOnThePathEndsThePathThere) {
  auto path = pathToSphere();
  auto* replacement = new SoCube;
  group->replaceChild(sphere, replacement);
  EXPECT_EQ(path->getLength(), 3);
  EXPECT_EQ(path->getTail(), replacement);
  root->removeAllChildren();
  EXPECT_EQ(path->getLength(), 1);
}

TEST_F(PathsTest, PathsHearRelevantChanges) {
  auto path = pathToSphere();
  Listener listener;
  path->addAuditor(&listener);
  sphere->radius = 3.0f;  // the tail
  EXPECT_EQ(listener.count(), 1u);
  material->shininess = 0.5f;  // left of the path: it affects the path's state
  EXPECT_EQ(listener.count(), 2u);
  cone->height = 5.0f;  // right of the path: it does not
  EXPECT_EQ(listener.count(), 2u);
  cube->width = 3.0f;  // a shape left of the path does not change the state
  EXPECT_EQ(listener.count(), 2u);
  group->setName("g");
  root->touch();  // the head itself
  EXPECT_EQ(listener.count(), 3u);
  path->removeAuditor(&listener);
}

TEST_F(PathsTest, PathLists) {
  auto a = pathToSphere();
  auto b = make(new SoPath(root.get()));
  b->append(1);
  auto c = make(new SoPath(root.get()));
  c->append(0);
  SoPathList list;
  list.append(a.get());
  list.append(c.get());
  list.append(b.get());
  list.append(a.get());
  EXPECT_EQ(list.findPath(*b), 2);
  list.sort();
  EXPECT_EQ(list[0], c.get());
  EXPECT_EQ(list[1], b.get());
  list.uniquify();
  // b covers a (a continues b), and the repeated a goes too.
  ASSERT_EQ(list.getLength(), 2);
  EXPECT_EQ(list[1], b.get());
}

TEST_F(PathsTest, UniquifyDropsEveryPathAShorterOneCovers) {
  // group, group/cube and group/sphere: both longer paths continue the
  // first, also the one that is not next to it after sorting.
  auto toGroup = make(new SoPath(root.get()));
  toGroup->append(1);
  auto toCube = make(new SoPath(root.get()));
  toCube->append(1);
  toCube->append(0);
  auto toSphere = pathToSphere();
  auto toCone = make(new SoPath(root.get()));
  toCone->append(2);
  SoPathList list;
  list.append(toSphere.get());
  list.append(toCone.get());
  list.append(toCube.get());
  list.append(toGroup.get());
  list.sort();
  ASSERT_EQ(list.getLength(), 4);
  EXPECT_EQ(list[0], toGroup.get());
  EXPECT_EQ(list[1], toCube.get());
  EXPECT_EQ(list[2], toSphere.get());
  list.uniquify();
  ASSERT_EQ(list.getLength(), 2);
  EXPECT_EQ(list[0], toGroup.get());
  EXPECT_EQ(list[1], toCone.get());
}
