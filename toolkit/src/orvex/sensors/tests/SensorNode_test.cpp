#include <Orvex/SoPath.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/sensors/SoNodeSensor.h>

#include <memory>
#include <vector>

#include "SensorTestSupport.h"

namespace {

using Tags = std::vector<intptr_t>;

// root (separator) -> group -> { translation, coords }, and a cube beside
// the group under root.
class NodeSensor : public SensorFixture {
 protected:
  void SetUp() override {
    SensorFixture::SetUp();
    root = new SoSeparator;
    root->ref();
    group = new SoGroup;
    translation = new SoTranslation;
    coords = new SoCoordinate3;
    cube = new SoCube;
    root->addChild(group);
    root->addChild(cube);
    group->addChild(translation);
    group->addChild(coords);
    drainQueues();
  }
  void TearDown() override {
    if (root) root->unref();
    SensorFixture::TearDown();
  }

  SoSeparator* root = nullptr;
  SoGroup* group = nullptr;
  SoTranslation* translation = nullptr;
  SoCoordinate3* coords = nullptr;
  SoCube* cube = nullptr;
};

// What an immediate sensor saw while firing.
struct Trigger {
  SoNode* node = nullptr;
  SoField* field = nullptr;
  SoDataSensor::ChangeTypes type = SoDataSensor::UNSPECIFIED;
  SoNode* child = nullptr;
  int childIndex = -2;
  int mfStart = -2;
  int mfNum = -2;
  bool fastEdit = false;
  std::vector<SoNode*> path;  // the trigger path's nodes
  std::vector<int> pathIndices;
};

struct TriggerLog {
  std::vector<Trigger> seen;
  static void run(void* data, SoSensor* s) {
    auto* ds = static_cast<SoDataSensor*>(s);
    Trigger t;
    t.node = ds->getTriggerNode();
    t.field = ds->getTriggerField();
    t.type = ds->getTriggerType();
    t.child = ds->getTriggerChild();
    t.childIndex = ds->getTriggerChildIndex();
    t.mfStart = ds->getTriggerMFieldStartIndex();
    t.mfNum = ds->getTriggerMFieldNumValues();
    t.fastEdit = ds->getTriggerFastEditInfo();
    if (SoPath* p = ds->getTriggerPath()) {
      for (int i = 0; i < p->getLength(); ++i) {
        t.path.push_back(p->getNode(i));
        t.pathIndices.push_back(p->getIndex(i));
      }
    }
    static_cast<TriggerLog*>(data)->seen.push_back(t);
  }
};

TEST_F(NodeSensor, FiresOnceForAllChangesBelowTheNode) {
  SoNodeSensor sensor(&FiringLog::record, tag(1));
  sensor.attach(root);
  EXPECT_EQ(sensor.getAttachedNode(), root);
  translation->translation.setValue(1, 2, 3);
  coords->point.set1Value(0, SbVec3f(1, 1, 1));
  group->addChild(new SoCube);
  cube->touch();
  EXPECT_TRUE(sensor.isScheduled());
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, Tags{1});
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, Tags{1});
}

TEST_F(NodeSensor, ChangesOutsideTheNodeAreNotReported) {
  SoNodeSensor sensor(&FiringLog::record, tag(1));
  sensor.attach(group);
  cube->touch();  // a sibling of the group
  root->addChild(new SoGroup);  // the group's parent
  EXPECT_FALSE(sensor.isScheduled());
  translation->translation.setValue(0, 0, 1);
  EXPECT_TRUE(sensor.isScheduled());
}

TEST_F(NodeSensor, ImmediateSensorReportsAFieldChangeBelow) {
  TriggerLog log;
  SoNodeSensor sensor(&TriggerLog::run, &log);
  sensor.setPriority(0);
  sensor.setTriggerPathFlag(true);
  sensor.setTriggerFastEditInfoFlag(true);
  sensor.attach(root);
  translation->translation.setValue(4, 5, 6);
  ASSERT_EQ(log.seen.size(), 1u);
  const Trigger& t = log.seen[0];
  EXPECT_EQ(t.node, translation);
  EXPECT_EQ(t.field, &translation->translation);
  EXPECT_EQ(t.type, SoDataSensor::UNSPECIFIED);
  EXPECT_EQ(t.child, nullptr);
  EXPECT_EQ(t.childIndex, -1);
  EXPECT_TRUE(t.fastEdit);
  EXPECT_EQ(t.path, (std::vector<SoNode*>{root, group, translation}));
  EXPECT_EQ(t.pathIndices, (std::vector<int>{-1, 0, 0}));
}

TEST_F(NodeSensor, ImmediateSensorReportsTheChangedValues) {
  TriggerLog log;
  SoNodeSensor sensor(&TriggerLog::run, &log);
  sensor.setPriority(0);
  sensor.attach(group);
  coords->point.set1Value(3, SbVec3f(1, 2, 3));
  const SbVec3f two[2] = {SbVec3f(0, 0, 0), SbVec3f(1, 1, 1)};
  coords->point.setValues(1, 2, two);
  ASSERT_EQ(log.seen.size(), 2u);
  EXPECT_EQ(log.seen[0].type, SoDataSensor::FIELDMULTIVALUE);
  EXPECT_EQ(log.seen[0].field, &coords->point);
  EXPECT_EQ(log.seen[0].node, coords);
  EXPECT_EQ(log.seen[0].mfStart, 3);
  EXPECT_EQ(log.seen[0].mfNum, 1);
  EXPECT_EQ(log.seen[1].mfStart, 1);
  EXPECT_EQ(log.seen[1].mfNum, 2);
  EXPECT_TRUE(log.seen[1].path.empty());  // the path flag is off
}

TEST_F(NodeSensor, ImmediateSensorReportsGroupChanges) {
  TriggerLog log;
  SoNodeSensor sensor(&TriggerLog::run, &log);
  sensor.setPriority(0);
  sensor.setTriggerPathFlag(true);
  sensor.setTriggerFastEditInfoFlag(true);
  sensor.attach(root);

  SoCube* added = new SoCube;
  group->addChild(added);  // index 2
  SoCube* inserted = new SoCube;
  group->insertChild(inserted, 1);
  SoCube* replacement = new SoCube;
  group->replaceChild(0, replacement);  // the translation goes
  group->removeChild(1);                // `inserted` goes
  group->removeAllChildren();
  ASSERT_EQ(log.seen.size(), 5u);

  const Trigger& add = log.seen[0];
  EXPECT_EQ(add.type, SoDataSensor::GROUPADDCHILD);
  EXPECT_EQ(add.node, group);
  EXPECT_EQ(add.field, nullptr);
  EXPECT_EQ(add.child, added);
  EXPECT_EQ(add.childIndex, 2);
  EXPECT_FALSE(add.fastEdit);  // the graph's structure changed
  EXPECT_EQ(add.path, (std::vector<SoNode*>{root, group}));

  EXPECT_EQ(log.seen[1].type, SoDataSensor::GROUPINSERTCHILD);
  EXPECT_EQ(log.seen[1].child, inserted);
  EXPECT_EQ(log.seen[1].childIndex, 1);
  EXPECT_EQ(log.seen[2].type, SoDataSensor::GROUPREPLACECHILD);
  EXPECT_EQ(log.seen[2].child, replacement);
  EXPECT_EQ(log.seen[2].childIndex, 0);
  EXPECT_EQ(log.seen[3].type, SoDataSensor::GROUPREMOVECHILD);
  EXPECT_EQ(log.seen[3].childIndex, 1);
  EXPECT_EQ(log.seen[4].type, SoDataSensor::GROUPREMOVEALLCHILDREN);
  EXPECT_EQ(log.seen[4].child, nullptr);
  EXPECT_EQ(log.seen[4].node, group);
}

TEST_F(NodeSensor, TouchingTheNodeReportsTheNodeOnly) {
  TriggerLog log;
  SoNodeSensor sensor(&TriggerLog::run, &log);
  sensor.setPriority(0);
  sensor.setTriggerPathFlag(true);
  sensor.attach(cube);
  cube->touch();
  ASSERT_EQ(log.seen.size(), 1u);
  EXPECT_EQ(log.seen[0].node, cube);
  EXPECT_EQ(log.seen[0].field, nullptr);
  EXPECT_EQ(log.seen[0].type, SoDataSensor::UNSPECIFIED);
  EXPECT_EQ(log.seen[0].path, std::vector<SoNode*>{cube});
}

TEST_F(NodeSensor, TheTriggerPathDoesNotOutliveTheFiring) {
  SoNodeSensor sensor;
  SoPath* during = nullptr;
  sensor.setFunction([](void* data, SoSensor* s) {
    *static_cast<SoPath**>(data) = static_cast<SoDataSensor*>(s)->getTriggerPath();
  }, &during);
  sensor.setPriority(0);
  sensor.setTriggerPathFlag(true);
  sensor.attach(root);
  const int refsBefore = root->getRefCount();
  translation->translation.setValue(1, 0, 0);
  EXPECT_NE(during, nullptr);
  EXPECT_EQ(sensor.getTriggerPath(), nullptr);
  EXPECT_EQ(root->getRefCount(), refsBefore);  // the path's reference is gone
}

TEST_F(NodeSensor, DisabledNotificationStopsAtTheContainer) {
  SoNodeSensor sensor(&FiringLog::record, tag(1));
  sensor.attach(root);
  translation->enableNotify(false);
  translation->translation.setValue(7, 7, 7);
  EXPECT_FALSE(sensor.isScheduled());
}

TEST_F(NodeSensor, DetachedOrDeletedSensorsAreNotTold) {
  SoNodeSensor detached(&FiringLog::record, tag(1));
  auto deleted = std::make_unique<SoNodeSensor>(&FiringLog::record, tag(2));
  SoNodeSensor kept(&FiringLog::record, tag(3));
  detached.attach(root);
  deleted->attach(root);
  kept.attach(root);
  translation->translation.setValue(1, 1, 1);
  detached.detach();
  EXPECT_EQ(detached.getAttachedNode(), nullptr);
  EXPECT_FALSE(detached.isScheduled());
  deleted.reset();
  translation->translation.setValue(2, 2, 2);
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, Tags{3});
}

TEST_F(NodeSensor, SensorsOfTheSameNodeFireInPriorityOrder) {
  SoNodeSensor a(&FiringLog::record, tag(1)), b(&FiringLog::record, tag(2)), c(&FiringLog::record, tag(3));
  a.setPriority(300);
  b.setPriority(3);
  c.setPriority(30);
  a.attach(root);
  b.attach(group);
  c.attach(translation);
  translation->translation.setValue(1, 1, 1);
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, (Tags{2, 3, 1}));
}

struct DeathLog {
  std::vector<SoSensor*> sensors;
  std::vector<SoNode*> attachedDuringCall;
  static void run(void* data, SoSensor* s) {
    auto* log = static_cast<DeathLog*>(data);
    log->sensors.push_back(s);
    log->attachedDuringCall.push_back(static_cast<SoNodeSensor*>(s)->getAttachedNode());
  }
};

TEST_F(NodeSensor, DestroyedNodeCallsTheDeleteCallbackAndDetaches) {
  SoNodeSensor sensor(&FiringLog::record, tag(1));
  DeathLog deaths;
  sensor.setDeleteCallback(&DeathLog::run, &deaths);
  sensor.attach(cube);
  cube->touch();  // pending when the node dies
  root->removeChild(cube);  // the last reference goes
  cube = nullptr;
  ASSERT_EQ(deaths.sensors.size(), 1u);
  EXPECT_EQ(deaths.sensors[0], &sensor);
  EXPECT_EQ(deaths.attachedDuringCall[0], nullptr);
  EXPECT_EQ(sensor.getAttachedNode(), nullptr);
  EXPECT_FALSE(sensor.isScheduled());
  manager->processDelayQueue(true);
  EXPECT_TRUE(g_firings.tags.empty());
}

TEST_F(NodeSensor, DeleteCallbackMayDeleteTheSensor) {
  auto* sensor = new SoNodeSensor(&FiringLog::record, tag(1));  // owned by its delete callback
  auto* other = new SoNodeSensor(&FiringLog::record, tag(2));
  int deleted = 0;
  auto deleteIt = [](void* data, SoSensor* s) {
    ++*static_cast<int*>(data);
    delete s;
  };
  sensor->setDeleteCallback(deleteIt, &deleted);
  other->setDeleteCallback(deleteIt, &deleted);
  sensor->attach(cube);
  other->attach(cube);
  root->removeChild(cube);
  cube = nullptr;
  EXPECT_EQ(deleted, 2);
}

TEST_F(NodeSensor, DeletedGraphLeavesNoSensorBehind) {
  SoNodeSensor onRoot(&FiringLog::record, tag(1)), onLeaf(&FiringLog::record, tag(2));
  onRoot.attach(root);
  onLeaf.attach(translation);
  root->unref();
  root = nullptr;
  EXPECT_EQ(onRoot.getAttachedNode(), nullptr);
  EXPECT_EQ(onLeaf.getAttachedNode(), nullptr);
}

}  // namespace
