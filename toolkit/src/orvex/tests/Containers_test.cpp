// Field containers, field data and change notification through the graph.

#include <Orvex/SoDB.h>
#include <Orvex/SoFieldList.h>
#include <Orvex/SoPath.h>
#include <Orvex/errors/SoReadError.h>
#include <Orvex/engines/SoEngine.h>
#include <Orvex/fields/SoFieldData.h>
#include <Orvex/fields/SoMFEngine.h>
#include <Orvex/fields/SoSFEngine.h>
#include <Orvex/fields/SoMFFloat.h>
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/fields/SoSFNode.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoDrawStyle.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoSubNode.h>

#include <gtest/gtest.h>

#include "ErrorCapture.h"
#include "TestSupport.h"

using orvextest::Listener;
using orvextest::make;

namespace {

class ContainersTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};

// A node class whose fields are added per instance, the way an extension
// adds fields to its own field data (recorded by address). Written out by
// hand: the class macros give every class one shared field data.
class DynamicNode : public SoNode {
 public:
  static SoType getClassTypeId() { return s_type; }
  SoType getTypeId() const override { return s_type; }
  static void initClass() {
    if (!s_type.isBad()) return;
    s_type = SoType::createType(SoNode::getClassTypeId(), "DynamicNode",
                                [] { return static_cast<void*>(static_cast<SoBase*>(new DynamicNode)); },
                                static_cast<short>(SoNode::getNextActionMethodIndex()));
    SoNode::incNextActionMethodIndex();
  }
  const SoFieldData* getFieldData() const override { return &m_data; }
  SoFieldData& data() { return m_data; }

 protected:
  ~DynamicNode() override = default;

 private:
  static SoType s_type;
  SoFieldData m_data;
};
SoType DynamicNode::s_type;

// A minimal engine with one input, as an engine field refers to.
class TestEngine : public SoEngine {
 public:
  SoSFFloat input;
  static SoType getClassTypeId() { return s_type; }
  SoType getTypeId() const override { return s_type; }
  static void initClass() {
    if (s_type.isBad())
      s_type = SoType::createType(SoEngine::getClassTypeId(), "TestEngine",
                                  [] { return static_cast<void*>(static_cast<SoBase*>(new TestEngine)); });
  }
  TestEngine() {
    static SoFieldData* data = nullptr;
    if (!data) {
      data = new SoFieldData;
      data->addField(this, "input", &input);
    }
    s_data = data;
    input.setValue(0.0f);
    input.setDefault(true);
    input.setContainer(this);
  }
  const SoFieldData* getFieldData() const override { return s_data; }

 protected:
  ~TestEngine() override = default;

 private:
  static SoType s_type;
  static const SoFieldData* s_data;
};
SoType TestEngine::s_type;
const SoFieldData* TestEngine::s_data = nullptr;

}  // namespace

TEST_F(ContainersTest, FieldLookupByNameAndIndex) {
  auto cube = make(new SoCube);
  const SoFieldData* fd = cube->getFieldData();
  ASSERT_NE(fd, nullptr);
  EXPECT_EQ(fd->getNumFields(), 3);
  EXPECT_EQ(fd->getFieldName(0), SbName("width"));
  EXPECT_EQ(fd->getField(cube.get(), 1), &cube->height);
  EXPECT_EQ(fd->getIndex(cube.get(), &cube->depth), 2);
  EXPECT_EQ(cube->getField("depth"), &cube->depth);
  EXPECT_EQ(cube->getField("nothing"), nullptr);
  SbName name;
  EXPECT_TRUE(cube->getFieldName(&cube->height, name));
  EXPECT_EQ(name, SbName("height"));
  SoSFFloat stranger;
  EXPECT_FALSE(cube->getFieldName(&stranger, name));
  SoFieldList list;
  EXPECT_EQ(cube->getFields(list), 3);
  EXPECT_EQ(list[0], &cube->width);
  // Each instance has its own fields at the same offsets.
  auto other = make(new SoCube);
  EXPECT_EQ(other->getField("width"), &other->width);
  EXPECT_EQ(other->width.getContainer(), other.get());
}

TEST_F(ContainersTest, FieldsAddedWithoutAContainerAreRecordedByAddress) {
  DynamicNode::initClass();
  auto node = make(new DynamicNode);
  SoSFFloat speed;
  SoMFFloat weights;
  // As an extension adds a field it allocated apart from the node.
  speed.setValue(3.0f);
  speed.setContainer(node.get());
  speed.setFieldType(SoField::EXPOSED_FIELD);
  node->data().addField(nullptr, "speed", &speed);
  weights.setContainer(node.get());
  node->data().addField(nullptr, "weights", &weights);
  EXPECT_EQ(node->getField("speed"), &speed);
  EXPECT_EQ(node->getFieldData()->getField(nullptr, 1), &weights);
  EXPECT_EQ(node->getEventIn("speed"), &speed);
  EXPECT_EQ(node->getEventIn("set_speed"), &speed);
  EXPECT_EQ(node->getEventOut("speed_changed"), &speed);
  EXPECT_EQ(node->getEventIn("weights"), nullptr);  // a normal field is no event
  // Enumerations recorded on the field data reach the fields.
  node->data().addEnumValue("Speed", "SLOW", 1);
  node->data().addEnumValue("Speed", "FAST", 5);
  int num = 0;
  const int* vals = nullptr;
  const SbName* names = nullptr;
  node->getFieldData()->getEnumData("Speed", num, vals, names);
  ASSERT_EQ(num, 2);
  EXPECT_EQ(vals[1], 5);
  EXPECT_EQ(names[1], SbName("FAST"));
  SoSFEnum mode;
  mode.setEnums(num, vals, names);
  EXPECT_TRUE(mode.set("FAST"));
  EXPECT_EQ(mode.getValue(), 5);
  node->getFieldData()->getEnumData("Nope", num, vals, names);
  EXPECT_EQ(num, 0);
  speed.setContainer(nullptr);
  weights.setContainer(nullptr);
}

TEST_F(ContainersTest, DefaultsCopiesAndEquality) {
  auto a = make(new SoMaterial);
  auto b = make(new SoMaterial);
  EXPECT_TRUE(a->hasDefaultValues());
  EXPECT_TRUE(a->fieldsAreEqual(b.get()));
  a->shininess = 0.9f;
  a->diffuseColor.setValue(1, 0, 0);
  EXPECT_FALSE(a->hasDefaultValues());
  EXPECT_FALSE(a->fieldsAreEqual(b.get()));
  b->copyFieldValues(a.get());
  EXPECT_TRUE(a->fieldsAreEqual(b.get()));
  EXPECT_FALSE(b->shininess.isDefault());
  a->setToDefaults();
  EXPECT_TRUE(a->hasDefaultValues());
  EXPECT_TRUE(a->shininess.isDefault());
  EXPECT_EQ(a->diffuseColor[0], SbColor(0.8f, 0.8f, 0.8f));
  auto cube = make(new SoCube);
  EXPECT_FALSE(a->fieldsAreEqual(cube.get()));
}

TEST_F(ContainersTest, FieldValuesAsText) {
  auto style = make(new SoDrawStyle);
  EXPECT_TRUE(style->set("style LINES lineWidth 2"));
  EXPECT_EQ(style->style.getValue(), SoDrawStyle::LINES);
  EXPECT_EQ(style->lineWidth.getValue(), 2.0f);
  SbString text;
  style->get(text);
  EXPECT_NE(text.find("style LINES"), -1);
  EXPECT_NE(text.find("lineWidth 2"), -1);
  EXPECT_EQ(text.find("pointSize"), -1);
  ErrorCapture<SoReadError> errors;
  EXPECT_FALSE(style->set("thickness 3"));
  EXPECT_EQ(errors.count(), 1u);
}

TEST_F(ContainersTest, ChangesReachTheRootAndItsObservers) {
  auto root = make(new SoSeparator);
  auto* group = new SoGroup;
  auto* cube = new SoCube;
  root->addChild(group);
  group->addChild(cube);
  Listener atRoot, atCube;
  root->addAuditor(&atRoot);
  cube->addAuditor(&atCube);
  const uint64_t idBefore = root->getNodeId();

  cube->width = 4.0f;
  ASSERT_EQ(atRoot.count(), 1u);
  EXPECT_EQ(atRoot.origins[0], cube);
  EXPECT_EQ(atRoot.fields[0], &cube->width);
  EXPECT_EQ(atRoot.operations[0], SoNotRec::FIELD_UPDATE);
  EXPECT_EQ(atRoot.recordCounts[0], 3);  // cube, group, root
  EXPECT_EQ(atCube.count(), 1u);
  EXPECT_NE(root->getNodeId(), idBefore);

  // Group changes tell what happened.
  auto* sphere = new SoSphere;
  group->insertChild(sphere, 0);
  EXPECT_EQ(atRoot.operations.back(), SoNotRec::GROUP_INSERTCHILD);
  group->removeChild(sphere);
  EXPECT_EQ(atRoot.operations.back(), SoNotRec::GROUP_REMOVECHILD);
  group->addChild(new SoSphere);
  EXPECT_EQ(atRoot.operations.back(), SoNotRec::GROUP_ADDCHILD);
  group->replaceChild(1, new SoCube);
  EXPECT_EQ(atRoot.operations.back(), SoNotRec::GROUP_REPLACECHILD);
  group->removeAllChildren();
  EXPECT_EQ(atRoot.operations.back(), SoNotRec::GROUP_REMOVEALLCHILDREN);
  EXPECT_EQ(atCube.dying, 1);  // the cube went with its last parent

  root->removeAuditor(&atRoot);
}

TEST_F(ContainersTest, DisabledNotificationStopsThere) {
  auto root = make(new SoSeparator);
  auto* cube = new SoCube;
  root->addChild(cube);
  Listener listener;
  root->addAuditor(&listener);

  cube->width.enableNotify(false);
  cube->width = 2.0f;
  EXPECT_EQ(listener.count(), 0u);
  EXPECT_EQ(cube->width.getValue(), 2.0f);  // the value changed silently
  cube->width.enableNotify(true);

  EXPECT_TRUE(cube->enableNotify(false));
  EXPECT_FALSE(cube->isNotifyEnabled());
  cube->height = 3.0f;
  cube->touch();
  EXPECT_EQ(listener.count(), 0u);
  cube->enableNotify(true);
  cube->height = 4.0f;
  EXPECT_EQ(listener.count(), 1u);

  root->enableNotify(false);
  cube->depth = 5.0f;
  EXPECT_EQ(listener.count(), 1u);  // the root itself does not pass it on
  root->enableNotify(true);
  root->removeAuditor(&listener);
}

TEST_F(ContainersTest, SharedNodesNotifyEveryParent) {
  auto a = make(new SoGroup);
  auto b = make(new SoGroup);
  auto* shared = new SoCube;
  a->addChild(shared);
  b->addChild(shared);
  Listener la, lb;
  a->addAuditor(&la);
  b->addAuditor(&lb);
  shared->touch();
  EXPECT_EQ(la.count(), 1u);
  EXPECT_EQ(lb.count(), 1u);
  a->removeAuditor(&la);
  b->removeAuditor(&lb);
}

namespace {
// An observer that, when told, removes another observer of the same node.
struct Remover : SoAuditor {
  SoBase* watched = nullptr;
  SoAuditor* victim = nullptr;
  int told = 0;
  void notify(SoNotList*) override {
    ++told;
    if (victim) watched->removeAuditor(victim);
    victim = nullptr;
  }
  void dyingReference(SoBase*) override {}
};
}  // namespace

TEST_F(ContainersTest, ObserversRemovedWhileANotificationRunsAreToldAtMostOnce) {
  auto node = make(new SoCube);
  Listener l[5];
  Remover remover;
  remover.watched = node.get();
  // Observers 0, remover, 1, 2, 3, 4. The remover takes out a later one
  // (not told) and, on the second change, an earlier one (the later ones
  // move up and must still be told once each).
  node->addAuditor(&l[0]);
  node->addAuditor(&remover);
  for (int i = 1; i < 5; ++i) node->addAuditor(&l[i]);
  remover.victim = &l[3];
  node->touch();
  EXPECT_EQ(remover.told, 1);
  EXPECT_EQ(l[0].count(), 1u);
  EXPECT_EQ(l[1].count(), 1u);
  EXPECT_EQ(l[2].count(), 1u);
  EXPECT_EQ(l[3].count(), 0u);
  EXPECT_EQ(l[4].count(), 1u);
  remover.victim = &l[0];
  node->touch();
  EXPECT_EQ(remover.told, 2);
  EXPECT_EQ(l[0].count(), 2u);
  EXPECT_EQ(l[1].count(), 2u);
  EXPECT_EQ(l[2].count(), 2u);
  EXPECT_EQ(l[3].count(), 0u);
  EXPECT_EQ(l[4].count(), 2u);
  node->touch();  // the one removed is no longer told
  EXPECT_EQ(l[0].count(), 2u);
  EXPECT_EQ(l[4].count(), 3u);
  node->removeAuditor(&remover);
  for (int i : {1, 2, 4}) node->removeAuditor(&l[i]);
}

TEST_F(ContainersTest, NodeFieldsPassChangesOnAndCyclesEnd) {
  DynamicNode::initClass();
  auto holder = make(new DynamicNode);
  SoSFNode ref;
  ref.setContainer(holder.get());
  holder->data().addField(nullptr, "ref", &ref);
  auto* cube = new SoCube;
  ref.setValue(cube);
  Listener listener;
  holder->addAuditor(&listener);
  cube->width = 9.0f;
  ASSERT_EQ(listener.count(), 1u);
  EXPECT_EQ(listener.origins[0], cube);
  // A cycle: the cube's group refers back to the holder through a field.
  auto group = make(new SoGroup);
  group->addChild(holder.get());
  SoSFNode back;
  back.setContainer(cube);
  back.setValue(group.get());
  cube->height = 1.0f;  // must terminate
  EXPECT_GE(listener.count(), 2u);
  back.setValue(nullptr);
  holder->removeAuditor(&listener);
  ref.setValue(nullptr);
}

TEST_F(ContainersTest, CopiesKeepSharingAndFieldValues) {
  auto root = make(new SoSeparator);
  auto* shared = new SoMaterial;
  shared->shininess = 0.5f;
  root->addChild(shared);
  auto* inner = new SoGroup;
  inner->addChild(shared);
  inner->addChild(new SoCube);
  root->addChild(inner);
  root->setName("original");
  auto copy = make(static_cast<SoSeparator*>(root->copy()));
  ASSERT_TRUE(copy);
  EXPECT_NE(copy.get(), root.get());
  ASSERT_EQ(copy->getNumChildren(), 2);
  auto* copiedShared = copy->getChild(0);
  EXPECT_NE(copiedShared, shared);
  EXPECT_EQ(static_cast<SoMaterial*>(copiedShared)->shininess[0], 0.5f);
  EXPECT_EQ(static_cast<SoGroup*>(copy->getChild(1))->getChild(0), copiedShared);
  EXPECT_EQ(copy->getRefCount(), 1);
  EXPECT_EQ(copiedShared->getRefCount(), 2);
  // Connections follow when asked for.
  auto* source = new SoCube;
  auto* target = new SoCube;
  root->addChild(source);
  root->addChild(target);
  target->width.connectFrom(&source->height);
  auto withConnections = make(static_cast<SoSeparator*>(root->copy(true)));
  auto* s2 = static_cast<SoCube*>(withConnections->getChild(2));
  auto* t2 = static_cast<SoCube*>(withConnections->getChild(3));
  SoField* master = nullptr;
  ASSERT_TRUE(t2->width.getConnectedField(master));
  EXPECT_EQ(master, &s2->height);
  auto withoutConnections = make(static_cast<SoSeparator*>(root->copy(false)));
  EXPECT_FALSE(static_cast<SoCube*>(withoutConnections->getChild(3))->width.isConnected());
}

TEST_F(ContainersTest, EngineFieldsReferAndNotify) {
  DynamicNode::initClass();
  TestEngine::initClass();
  EXPECT_EQ(SoEngine::getClassTypeId().getName(), SbName("Engine"));
  EXPECT_EQ(SoSFEngine::getClassTypeId().getName(), SbName("SFEngine"));
  auto holder = make(new DynamicNode);
  SoSFEngine engineField;
  SoMFEngine engines;
  engineField.setContainer(holder.get());
  holder->data().addField(nullptr, "engine", &engineField);
  engines.setContainer(holder.get());
  holder->data().addField(nullptr, "engines", &engines);
  auto* engine = new TestEngine;
  engineField.setValue(engine);
  engines.setValue(engine);
  EXPECT_EQ(engine->getRefCount(), 2);
  Listener listener;
  holder->addAuditor(&listener);
  engine->input = 3.0f;
  EXPECT_GE(listener.count(), 1u);
  EXPECT_EQ(listener.origins[0], engine);
  holder->removeAuditor(&listener);
  // Written as a field container and read back into an engine field.
  SbString text;
  engineField.get(text);
  EXPECT_NE(text.find("TestEngine"), -1) << text.getString();
  EXPECT_NE(text.find("input 3"), -1);
  SoSFEngine other;
  ASSERT_TRUE(other.set(text.getString()));
  ASSERT_NE(other.getValue(), nullptr);
  EXPECT_EQ(static_cast<TestEngine*>(other.getValue())->input.getValue(), 3.0f);
  ErrorCapture<SoReadError> errors;
  EXPECT_FALSE(other.set("Cube { }"));  // a node is no engine
  engineField.setValue(nullptr);
  engines.setNum(0);
  engineField.setContainer(nullptr);
  engines.setContainer(nullptr);
}
