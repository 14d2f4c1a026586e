// The traversal framework: applying actions to nodes, paths and path lists,
// path codes, the state and its elements, searching and writing.

#include <Orvex/SoDB.h>
#include <Orvex/SoPath.h>
#include <Orvex/SoPathList.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/actions/SoWriteAction.h>
#include <Orvex/elements/SoSwitchElement.h>
#include <Orvex/misc/SoState.h>
#include <Orvex/nodes/SoCallback.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoSwitch.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "TestSupport.h"

using orvextest::make;
using orvextest::Ref;

namespace {

class ActionsTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};

// Records, for each callback node it passes, the node's label, the path code
// and the length of the current path.
struct Visit {
  std::string label;
  SoAction::PathCode code;
  int depth;
};
struct Recorder {
  std::vector<Visit> visits;
};
struct Probe {
  Recorder* recorder;
  std::string label;
};
void probeCB(void* data, SoAction* action) {
  auto* probe = static_cast<Probe*>(data);
  probe->recorder->visits.push_back(
      {probe->label, action->getCurPathCode(), action->getCurPath()->getLength()});
}

SoCallback* probeNode(Probe* probe) {
  auto* cb = new SoCallback;
  cb->setCallback(&probeCB, probe);
  return cb;
}

}  // namespace

TEST_F(ActionsTest, TypesOfActionsAndElements) {
  EXPECT_EQ(SoAction::getClassTypeId().getName(), SbName("SoAction"));
  EXPECT_EQ(SoSearchAction::getClassTypeId().getName(), SbName("SoSearchAction"));
  EXPECT_EQ(SoWriteAction::getClassTypeId().getParent(), SoAction::getClassTypeId());
  EXPECT_EQ(SoSwitchElement::getClassTypeId().getName(), SbName("SoSwitchElement"));
  EXPECT_GE(SoSwitchElement::getClassStackIndex(), 0);
  EXPECT_EQ(SoElement::getIdFromStackIndex(SoSwitchElement::getClassStackIndex()), SoSwitchElement::getClassTypeId());
  SoSearchAction action;
  EXPECT_EQ(action.getTypeId(), SoSearchAction::getClassTypeId());
  EXPECT_FALSE(action.isBeingApplied());
}

TEST_F(ActionsTest, SearchByTypeNameAndNode) {
  auto root = make(new SoSeparator);
  auto* a = new SoCube;
  auto* group = new SoGroup;
  auto* b = new SoCube;
  auto* sphere = new SoSphere;
  root->addChild(a);
  root->addChild(group);
  group->addChild(b);
  group->addChild(sphere);
  b->setName("second");

  SoSearchAction search;
  search.setType(SoCube::getClassTypeId());
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), a);
  EXPECT_EQ(search.getPath()->getHead(), root.get());

  search.setInterest(SoSearchAction::LAST);
  search.apply(root.get());
  EXPECT_EQ(search.getPath()->getTail(), b);
  EXPECT_EQ(search.getPath()->getLength(), 3);

  search.setInterest(SoSearchAction::ALL);
  search.apply(root.get());
  ASSERT_EQ(search.getPaths().getLength(), 2);
  EXPECT_EQ(search.getPaths()[1]->getTail(), b);

  search.reset();
  search.setName("second");
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), b);

  search.reset();
  search.setNode(sphere);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getIndex(2), 1);

  // Derived types count unless excluded.
  search.reset();
  search.setType(SoGroup::getClassTypeId());
  search.setInterest(SoSearchAction::ALL);
  search.apply(root.get());
  EXPECT_EQ(search.getPaths().getLength(), 2);  // the separator and the group
  search.reset();
  search.setType(SoGroup::getClassTypeId(), false);
  search.setInterest(SoSearchAction::ALL);
  search.apply(root.get());
  EXPECT_EQ(search.getPaths().getLength(), 1);

  // Criteria combine.
  search.reset();
  search.setType(SoSphere::getClassTypeId());
  search.setName("second");
  search.apply(root.get());
  EXPECT_EQ(search.getPath(), nullptr);
  search.reset();
  search.apply(root.get());  // nothing to look for finds nothing
  EXPECT_EQ(search.getPath(), nullptr);
}

TEST_F(ActionsTest, SearchResultsKeepTheirNodesButTheActionDoesNotKeepTheGraph) {
  auto* root = new SoSeparator;
  root->ref();
  root->addChild(new SoCube);
  SoSearchAction search;
  search.setType(SoCube::getClassTypeId());
  search.apply(root);
  Ref<SoPath> found(search.getPath());
  EXPECT_EQ(root->getRefCount(), 2);  // the caller and the path found
  search.reset();
  EXPECT_EQ(found->getRefCount(), 1);  // the action let its result go
  EXPECT_EQ(root->getRefCount(), 2);
  found = Ref<SoPath>();
  EXPECT_EQ(root->getRefCount(), 1);
  root->unref();
}

TEST_F(ActionsTest, SwitchesChooseWhatIsTraversedAndSearched) {
  auto root = make(new SoSeparator);
  auto* sw = new SoSwitch;
  auto* inherit = new SoSwitch;
  Recorder rec;
  Probe p0{&rec, "a0"}, p1{&rec, "a1"}, q0{&rec, "b0"}, q1{&rec, "b1"};
  sw->addChild(probeNode(&p0));
  sw->addChild(probeNode(&p1));
  inherit->addChild(probeNode(&q0));
  inherit->addChild(probeNode(&q1));
  inherit->whichChild = SO_SWITCH_INHERIT;
  root->addChild(sw);
  root->addChild(inherit);
  sw->whichChild = 1;
  SoSearchAction action;
  action.setType(SoCone::getClassTypeId());
  action.apply(root.get());
  ASSERT_EQ(rec.visits.size(), 2u);
  EXPECT_EQ(rec.visits[0].label, "a1");
  EXPECT_EQ(rec.visits[1].label, "b1");  // inherited the choice
  rec.visits.clear();
  sw->whichChild = SO_SWITCH_ALL;
  action.apply(root.get());
  EXPECT_EQ(rec.visits.size(), 4u);
  rec.visits.clear();
  sw->whichChild = SO_SWITCH_NONE;
  action.apply(root.get());
  EXPECT_EQ(rec.visits.size(), 0u);
  // Searching all looks into every child.
  auto* hidden = new SoCone;
  sw->addChild(hidden);
  action.apply(root.get());
  EXPECT_EQ(action.getPath(), nullptr);
  action.setSearchingAll(true);
  action.apply(root.get());
  ASSERT_NE(action.getPath(), nullptr);
  EXPECT_EQ(action.getPath()->getTail(), hidden);
}

TEST_F(ActionsTest, SeparatorsKeepStateChangesInside) {
  auto root = make(new SoSeparator);
  auto* sep = new SoSeparator;
  auto* sw = new SoSwitch;
  sw->whichChild = 0;
  sep->addChild(sw);
  root->addChild(sep);
  auto* after = new SoSwitch;
  after->whichChild = SO_SWITCH_INHERIT;
  Recorder rec;
  Probe p{&rec, "after"};
  after->addChild(probeNode(&p));
  root->addChild(after);
  SoSearchAction action;
  action.setType(SoCone::getClassTypeId());
  action.apply(root.get());
  // The switch inside the separator set 0, but the separator restored -1.
  EXPECT_TRUE(rec.visits.empty());
  root->insertChild(sw, 0);  // before the separator lets go of it
  root->removeChild(sep);
  action.apply(root.get());
  EXPECT_EQ(rec.visits.size(), 1u);
}

TEST_F(ActionsTest, StatePushAndPop) {
  SoSearchAction action;
  SoTypeList enabled;
  for (int i = 0; i < SoSwitchElement::getClassStackIndex(); ++i) enabled.append(SoType::badType());
  enabled.append(SoSwitchElement::getClassTypeId());
  SoState state(&action, enabled);
  EXPECT_EQ(SoSwitchElement::get(&state), -1);
  SoSwitchElement::set(&state, 3);
  EXPECT_EQ(SoSwitchElement::get(&state), 3);
  const SoElement* bottom = state.getConstElement(SoSwitchElement::getClassStackIndex());
  state.push();
  EXPECT_EQ(state.getDepth(), 1);
  EXPECT_EQ(SoSwitchElement::get(&state), 3);  // inherited
  SoSwitchElement::set(&state, 5);
  const SoElement* top = state.getConstElement(SoSwitchElement::getClassStackIndex());
  EXPECT_NE(top, bottom);
  EXPECT_EQ(top->getNextInStack(), bottom);
  EXPECT_EQ(top->getDepth(), 1);
  EXPECT_FALSE(top->matches(bottom));
  std::unique_ptr<SoElement> info(top->copyMatchInfo());
  EXPECT_TRUE(info->matches(top));
  state.pop();
  EXPECT_EQ(SoSwitchElement::get(&state), 3);
  EXPECT_EQ(bottom->getNextFree(), top);  // kept for the next push
  state.push();
  SoSwitchElement::set(&state, 6);
  EXPECT_EQ(state.getConstElement(SoSwitchElement::getClassStackIndex()), top);  // reused
  state.pop();
  EXPECT_FALSE(state.isElementEnabled(0) && SoSwitchElement::getClassStackIndex() != 0);
  EXPECT_EQ(state.getElement(-1), nullptr);
}

TEST_F(ActionsTest, ApplyingToPathsGivesPathCodes) {
  // root -> [ left, group -> [ inner, target ], right ]
  auto root = make(new SoSeparator);
  Recorder rec;
  Probe left{&rec, "left"}, inner{&rec, "inner"}, target{&rec, "target"}, right{&rec, "right"};
  auto* group = new SoGroup;
  root->addChild(probeNode(&left));
  root->addChild(group);
  group->addChild(probeNode(&inner));
  auto* targetNode = probeNode(&target);
  group->addChild(targetNode);
  root->addChild(probeNode(&right));
  auto path = make(new SoPath(root.get()));
  path->append(1);
  path->append(1);
  SoSearchAction action;
  action.setType(SoCone::getClassTypeId());
  action.apply(path.get());
  EXPECT_EQ(action.getWhatAppliedTo(), SoAction::PATH);
  ASSERT_EQ(rec.visits.size(), 3u);  // nothing right of the path
  EXPECT_EQ(rec.visits[0].label, "left");
  EXPECT_EQ(rec.visits[0].code, SoAction::OFF_PATH);
  EXPECT_EQ(rec.visits[1].label, "inner");
  EXPECT_EQ(rec.visits[1].code, SoAction::OFF_PATH);
  EXPECT_EQ(rec.visits[2].label, "target");
  EXPECT_EQ(rec.visits[2].code, SoAction::BELOW_PATH);
  EXPECT_EQ(rec.visits[2].depth, 3);

  rec.visits.clear();
  action.apply(root.get());
  EXPECT_EQ(action.getWhatAppliedTo(), SoAction::NODE);
  EXPECT_EQ(action.getNodeAppliedTo(), root.get());
  ASSERT_EQ(rec.visits.size(), 4u);
  EXPECT_EQ(rec.visits[3].code, SoAction::NO_PATH);

  // A list of paths is traversed path by path.
  rec.visits.clear();
  auto second = make(new SoPath(root.get()));
  second->append(2);
  SoPathList list;
  list.append(path.get());
  list.append(second.get());
  action.apply(list);
  EXPECT_EQ(action.getWhatAppliedTo(), SoAction::PATH_LIST);
  int targets = 0, rights = 0;
  for (const Visit& v : rec.visits) {
    if (v.label == "target" && v.code == SoAction::BELOW_PATH) ++targets;
    if (v.label == "right" && v.code == SoAction::BELOW_PATH) ++rights;
  }
  // Each path's tail once; off the second path the group is traversed too,
  // for its effect on the state, but not as part of a path.
  EXPECT_EQ(targets, 1);
  EXPECT_EQ(rights, 1);
}

namespace {
void stopHere(void*, SoAction* action) { action->stopActionInBranch(); }
void terminate(void*, SoAction* action) { action->setTerminated(true); }
}  // namespace

TEST_F(ActionsTest, StoppingTheBranchAndTheWholeTraversal) {
  auto root = make(new SoSeparator);
  auto* branch = new SoGroup;
  Recorder rec;
  Probe skipped{&rec, "skipped"}, after{&rec, "after"};
  auto* stop = new SoCallback;
  stop->setCallback(&stopHere, nullptr);
  branch->addChild(stop);
  branch->addChild(probeNode(&skipped));
  root->addChild(branch);
  root->addChild(probeNode(&after));
  SoSearchAction action;
  action.setType(SoCone::getClassTypeId());
  action.apply(root.get());
  ASSERT_EQ(rec.visits.size(), 1u);
  EXPECT_EQ(rec.visits[0].label, "after");  // only the branch stopped
  EXPECT_FALSE(action.hasTerminated());
  rec.visits.clear();
  stop->setCallback(&terminate, nullptr);
  action.apply(root.get());
  EXPECT_TRUE(rec.visits.empty());
  EXPECT_TRUE(action.hasTerminated());
}

namespace {
// Applies the action again, elsewhere, from inside its own traversal.
struct Nested {
  SoNode* other;
  int seen = 0;
};
void applyNested(void* data, SoAction* action) {
  auto* nested = static_cast<Nested*>(data);
  if (nested->seen++ == 0) action->apply(nested->other);
}
}  // namespace

TEST_F(ActionsTest, NestedApplication) {
  auto root = make(new SoSeparator);
  auto other = make(new SoSeparator);
  auto* found = new SoCone;
  other->addChild(found);
  Nested nested{other.get()};
  auto* cb = new SoCallback;
  cb->setCallback(&applyNested, &nested);
  root->addChild(cb);
  root->addChild(new SoCube);
  SoSearchAction action;
  action.setType(SoCube::getClassTypeId());
  action.apply(root.get());
  ASSERT_NE(action.getPath(), nullptr);
  EXPECT_EQ(action.getPath()->getHead(), root.get());
  EXPECT_EQ(action.getPath()->getLength(), 2);
}

TEST_F(ActionsTest, WritingAPathWritesWhatLeadsToIt) {
  auto root = make(new SoSeparator);
  auto* material = new SoMaterial;
  material->shininess = 0.75f;
  auto* cube = new SoCube;
  auto* group = new SoGroup;
  auto* cone = new SoCone;
  root->addChild(material);
  root->addChild(cube);
  root->addChild(group);
  group->addChild(cone);
  root->addChild(new SoSphere);
  auto path = make(new SoPath(root.get()));
  path->append(2);
  path->append(0);
  SoOutput out;
  out.setBuffer(nullptr, 0, nullptr);
  SoWriteAction write(&out);
  write.apply(path.get());
  void* buffer;
  size_t size;
  out.getBuffer(buffer, size);
  const std::string text(static_cast<char*>(buffer), size);
  EXPECT_NE(text.find("Material"), std::string::npos) << text;
  EXPECT_NE(text.find("Cone"), std::string::npos);
  EXPECT_EQ(text.find("Cube"), std::string::npos);    // no effect on the path's state
  EXPECT_EQ(text.find("Sphere"), std::string::npos);  // after the path
  // The same in binary reads back.
  out.resetBuffer();
  out.setBinary(true);
  write.apply(path.get());
  out.getBuffer(buffer, size);
  auto back = orvextest::readFromString(std::string(static_cast<char*>(buffer), size));
  ASSERT_TRUE(back);
  EXPECT_EQ(back->getNumChildren(), 2);
}

TEST_F(ActionsTest, EnabledElementListsHandOutUnchangingSnapshots) {
  // A state being built on one thread keeps reading the list it was given
  // while another thread enables an element.
  SoEnabledElementsList list(SoSearchAction::getClassEnabledElements());
  const SoTypeList& before = list.getElements();
  const int length = before.getLength();
  const SoType added = SoSwitchElement::getClassTypeId();
  list.enable(added, length + 2);
  const SoTypeList& after = list.getElements();
  EXPECT_EQ(before.getLength(), length);
  ASSERT_EQ(after.getLength(), length + 3);
  EXPECT_EQ(after[length + 2], added);
  EXPECT_TRUE(after[length].isBad());
  for (int i = 0; i < length; ++i) EXPECT_EQ(after[i], before[i]) << "stack " << i;
}

TEST_F(ActionsTest, ActionsRunOnSeveralThreadsWhileMethodsAndElementsChange) {
  // Each thread searches its own graph; meanwhile methods and elements are
  // registered again, which makes every thread rebuild its method table and
  // its state from the shared lists.
  constexpr int kThreads = 4;
  constexpr int kRounds = 300;
  std::atomic<bool> go{false};
  std::atomic<int> wrong{0};
  std::vector<std::thread> workers;
  for (int t = 0; t < kThreads; ++t) {
    workers.emplace_back([&] {
      auto root = make(new SoSeparator);
      auto* group = new SoGroup;
      root->addChild(new SoMaterial);
      root->addChild(group);
      group->addChild(new SoCube);
      group->addChild(new SoSphere);
      while (!go.load()) std::this_thread::yield();
      for (int i = 0; i < kRounds; ++i) {
        SoSearchAction search;
        search.setType(SoSphere::getClassTypeId());
        search.apply(root.get());
        const SoPath* path = search.getPath();
        if (!path || path->getLength() != 3 || path->getIndex(1) != 1 || path->getIndex(2) != 1) ++wrong;
      }
    });
  }
  go = true;
  for (int i = 0; i < kRounds; ++i) {
    SoSearchAction::addMethod(SoNode::getClassTypeId(), &SoNode::searchS);
    SO_ENABLE(SoSearchAction, SoSwitchElement);
    std::this_thread::yield();
  }
  for (std::thread& w : workers) w.join();
  EXPECT_EQ(wrong.load(), 0);
}
