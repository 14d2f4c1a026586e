#include <Orvex/SoPath.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/sensors/SoPathSensor.h>

#include <vector>

#include "SensorTestSupport.h"

namespace {

using Tags = std::vector<intptr_t>;

// root -> { left (translation), group -> { cube, inner -> { leaf } }, right (translation) }
// and the path root -> group -> inner.
class PathSensor : public SensorFixture {
 protected:
  void SetUp() override {
    SensorFixture::SetUp();
    root = new SoSeparator;
    root->ref();
    left = new SoTranslation;
    group = new SoGroup;
    cube = new SoCube;
    inner = new SoGroup;
    leaf = new SoTranslation;
    right = new SoTranslation;
    root->addChild(left);
    root->addChild(group);
    root->addChild(right);
    group->addChild(cube);
    group->addChild(inner);
    inner->addChild(leaf);
    path = new SoPath(root);
    path->ref();
    path->append(group);
    path->append(inner);
    drainQueues();
  }
  void TearDown() override {
    if (path) path->unref();
    if (root) root->unref();
    SensorFixture::TearDown();
  }

  SoSeparator* root = nullptr;
  SoTranslation* left = nullptr;
  SoGroup* group = nullptr;
  SoCube* cube = nullptr;
  SoGroup* inner = nullptr;
  SoTranslation* leaf = nullptr;
  SoTranslation* right = nullptr;
  SoPath* path = nullptr;
};

TEST_F(PathSensor, FiresForChangesOnAndBelowThePath) {
  SoPathSensor sensor(&FiringLog::record, tag(1));
  EXPECT_EQ(sensor.getAttachedPath(), nullptr);
  sensor.attach(path);
  EXPECT_EQ(sensor.getAttachedPath(), path);

  leaf->translation.setValue(1, 0, 0);  // under the tail
  EXPECT_TRUE(sensor.isScheduled());
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, Tags{1});

  group->touch();  // a node on the path
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, (Tags{1, 1}));

  left->translation.setValue(0, 1, 0);  // left of the path: changes its state
  manager->processDelayQueue(false);
  EXPECT_EQ(g_firings.tags, (Tags{1, 1, 1}));
}

TEST_F(PathSensor, ChangesThatCannotAffectThePathAreIgnored) {
  SoPathSensor sensor(&FiringLog::record, tag(1));
  sensor.attach(path);
  right->translation.setValue(0, 0, 1);  // right of the path
  EXPECT_FALSE(sensor.isScheduled());
}

struct PathSeen {
  std::vector<std::vector<SoNode*>> paths;
  std::vector<SoNode*> nodes;
  static void run(void* data, SoSensor* s) {
    auto* seen = static_cast<PathSeen*>(data);
    auto* ds = static_cast<SoDataSensor*>(s);
    std::vector<SoNode*> nodes;
    if (SoPath* p = ds->getTriggerPath())
      for (int i = 0; i < p->getLength(); ++i) nodes.push_back(p->getNode(i));
    seen->paths.push_back(nodes);
    seen->nodes.push_back(ds->getTriggerNode());
  }
};

TEST_F(PathSensor, TriggerPathRunsFromTheHeadToTheChangedNode) {
  PathSeen seen;
  SoPathSensor sensor(&PathSeen::run, &seen);
  sensor.setPriority(0);
  sensor.setTriggerPathFlag(true);
  sensor.attach(path);
  leaf->translation.setValue(2, 0, 0);
  left->translation.setValue(3, 0, 0);
  ASSERT_EQ(seen.paths.size(), 2u);
  EXPECT_EQ(seen.paths[0], (std::vector<SoNode*>{root, group, inner, leaf}));
  EXPECT_EQ(seen.nodes[0], leaf);
  EXPECT_EQ(seen.paths[1], (std::vector<SoNode*>{root, left}));
  EXPECT_EQ(seen.nodes[1], left);
}

TEST_F(PathSensor, DetachedSensorIsNotTold) {
  SoPathSensor sensor(&FiringLog::record, tag(1));
  sensor.attach(path);
  leaf->translation.setValue(1, 0, 0);
  sensor.detach();
  EXPECT_FALSE(sensor.isScheduled());
  EXPECT_EQ(sensor.getAttachedPath(), nullptr);
  leaf->translation.setValue(2, 0, 0);
  manager->processDelayQueue(true);
  EXPECT_TRUE(g_firings.tags.empty());
}

TEST_F(PathSensor, DestroyedPathCallsTheDeleteCallback) {
  SoPathSensor sensor(&FiringLog::record, tag(1));
  SoSensor* told = nullptr;
  sensor.setDeleteCallback([](void* data, SoSensor* s) { *static_cast<SoSensor**>(data) = s; }, &told);
  sensor.attach(path);
  leaf->translation.setValue(1, 0, 0);
  path->unref();
  path = nullptr;
  EXPECT_EQ(told, &sensor);
  EXPECT_EQ(sensor.getAttachedPath(), nullptr);
  EXPECT_FALSE(sensor.isScheduled());
}

}  // namespace
