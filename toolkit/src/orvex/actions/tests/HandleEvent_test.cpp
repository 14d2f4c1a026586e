// Events through a graph: event callback nodes, handling, grabbing, picks
// on demand, and selections driven by picking.

#include <Orvex/SoPath.h>
#include <Orvex/SoPickedPoint.h>
#include <Orvex/actions/SoHandleEventAction.h>
#include <Orvex/events/SoKeyboardEvent.h>
#include <Orvex/events/SoLocation2Event.h>
#include <Orvex/events/SoMouseButtonEvent.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoEventCallback.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoSelection.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/sensors/SoNodeSensor.h>

#include <string>

#include "ActionTestSupport.h"

using namespace actiontest;

namespace {

// An orthographic view 10 units wide on a 100 x 100 viewport: pixel (x, y)
// looks at (x / 10 - 5, y / 10 - 5).
SoOrthographicCamera* camera() {
  auto* c = new SoOrthographicCamera;
  c->position.setValue(0, 0, 10);
  c->height = 10;
  return c;
}

SoSeparator* placed(SoNode* shape, float x, float y) {
  auto* sep = new SoSeparator;
  auto* t = new SoTranslation;
  t->translation.setValue(x, y, 0);
  sep->addChild(t);
  sep->addChild(shape);
  return sep;
}

struct Calls {
  std::vector<std::string> names;
  bool handle = false;
  bool grab = false;
  bool release = false;
  const SoPickedPoint* picked = nullptr;
  bool samePickTwice = false;
};

template <int N>
void record(void* data, SoEventCallback* node) {
  auto* calls = static_cast<Calls*>(data);
  calls->names.push_back("cb" + std::to_string(N) + " " + node->getEvent()->getTypeId().getName().getString());
  calls->picked = node->getPickedPoint();
  calls->samePickTwice = node->getPickedPoint() == calls->picked;
  if (calls->handle) node->setHandled();
  if (calls->grab) node->grabEvents();
  if (calls->release) node->releaseEvents();
}

class HandleEvent : public ActionTest {
 protected:
  SoHandleEventAction action{SbViewportRegion(100, 100)};
  SoMouseButtonEvent press, release;
  SoKeyboardEvent key;
  void SetUp() override {
    press.setButton(SoMouseButtonEvent::BUTTON1);
    press.setState(SoButtonEvent::DOWN);
    release.setButton(SoMouseButtonEvent::BUTTON1);
    release.setState(SoButtonEvent::UP);
    key.setKey(SoKeyboardEvent::A);
    key.setState(SoButtonEvent::DOWN);
  }
  void send(SoNode* root, SoEvent& event, short x, short y, bool shift = false) {
    event.setPosition(SbVec2s(x, y));
    event.setShiftDown(shift);
    action.setEvent(&event);
    action.apply(root);
  }
};

TEST_F(HandleEvent, CallbacksGetTheEventsOfTheirTypeUntilOneHandlesThem) {
  auto root = make(new SoSeparator);
  auto* first = new SoEventCallback;
  auto* second = new SoEventCallback;
  root->addChild(first);
  root->addChild(second);
  Calls calls;
  first->addEventCallback(SoKeyboardEvent::getClassTypeId(), &record<1>, &calls);
  second->addEventCallback(SoButtonEvent::getClassTypeId(), &record<2>, &calls);  // keys and buttons
  send(root.get(), key, 1, 1);
  send(root.get(), press, 1, 1);
  EXPECT_EQ(calls.names, (std::vector<std::string>{"cb1 SoKeyboardEvent", "cb2 SoKeyboardEvent",
                                                    "cb2 SoMouseButtonEvent"}));
  EXPECT_FALSE(action.isHandled());
  calls.names.clear();
  calls.handle = true;
  send(root.get(), key, 1, 1);
  EXPECT_EQ(calls.names, (std::vector<std::string>{"cb1 SoKeyboardEvent"}));
  EXPECT_TRUE(action.isHandled());
  first->removeEventCallback(SoKeyboardEvent::getClassTypeId(), &record<1>, &calls);
  calls.names.clear();
  send(root.get(), key, 1, 1);
  EXPECT_EQ(calls.names, (std::vector<std::string>{"cb2 SoKeyboardEvent"}));
}

TEST_F(HandleEvent, APathLimitsACallbackToEventsOverIt) {
  auto root = make(new SoSeparator);
  root->addChild(camera());
  auto* cube = new SoCube;
  auto* cubeSep = placed(cube, -3, 0);
  root->addChild(cubeSep);
  root->addChild(placed(new SoSphere, 3, 0));
  auto* watcher = new SoEventCallback;
  root->addChild(watcher);
  Calls calls;
  watcher->addEventCallback(SoMouseButtonEvent::getClassTypeId(), &record<1>, &calls);
  auto path = make(new SoPath(root.get()));
  path->append(1);
  watcher->setPath(path.get());
  send(root.get(), press, 20, 50);  // over the cube at x = -3
  ASSERT_EQ(calls.names.size(), 1u);
  ASSERT_NE(calls.picked, nullptr);
  EXPECT_TRUE(calls.samePickTwice);  // picked once per event
  expectNear(calls.picked->getPoint(), SbVec3f(-3, 0, 1));
  EXPECT_EQ(calls.picked->getPath()->getTail(), cube);
  send(root.get(), press, 80, 50);  // over the sphere
  send(root.get(), press, 50, 90);  // over nothing
  EXPECT_EQ(calls.names.size(), 1u);
  watcher->setPath(nullptr);
  send(root.get(), press, 50, 90);
  EXPECT_EQ(calls.names.size(), 2u);
  EXPECT_EQ(calls.picked, nullptr);
}

TEST_F(HandleEvent, AGrabbingNodeGetsTheEventsAlone) {
  auto root = make(new SoSeparator);
  auto* other = new SoEventCallback;
  auto* grabber = new SoEventCallback;
  root->addChild(other);
  root->addChild(grabber);
  Calls otherCalls, grabberCalls;
  other->addEventCallback(SoEvent::getClassTypeId(), &record<1>, &otherCalls);
  grabber->addEventCallback(SoEvent::getClassTypeId(), &record<2>, &grabberCalls);
  grabberCalls.grab = true;
  send(root.get(), press, 1, 1);
  EXPECT_EQ(action.getGrabber(), grabber);
  grabberCalls.grab = false;
  SoLocation2Event move;
  send(root.get(), move, 5, 5);
  send(root.get(), move, 6, 6);
  EXPECT_EQ(otherCalls.names.size(), 1u);  // only the first event
  EXPECT_EQ(grabberCalls.names.size(), 3u);
  grabberCalls.release = true;
  send(root.get(), release, 6, 6);
  EXPECT_EQ(action.getGrabber(), nullptr);
  send(root.get(), move, 7, 7);
  EXPECT_EQ(otherCalls.names.size(), 2u);
  EXPECT_EQ(grabberCalls.names.size(), 5u);
}

// ---- selection --------------------------------------------------------------------------

struct SelectionLog {
  std::vector<std::string> events;
  SoSelection* selection = nullptr;
  static void selected(void* d, SoPath* p) {
    static_cast<SelectionLog*>(d)->events.push_back("select " + std::string(p->getTail()->getTypeId().getName().getString()));
  }
  static void deselected(void* d, SoPath* p) {
    static_cast<SelectionLog*>(d)->events.push_back("deselect " +
                                                    std::string(p->getTail()->getTypeId().getName().getString()));
  }
  static void start(void* d, SoSelection*) { static_cast<SelectionLog*>(d)->events.push_back("start"); }
  static void finish(void* d, SoSelection*) { static_cast<SelectionLog*>(d)->events.push_back("finish"); }
  static void changed(void* d, SoSelection* s) {
    static_cast<SelectionLog*>(d)->events.push_back("change " + std::to_string(s->getNumSelected()));
  }
  void attach(SoSelection* s) {
    s->addSelectionCallback(&selected, this);
    s->addDeselectionCallback(&deselected, this);
    s->addStartCallback(&start, this);
    s->addFinishCallback(&finish, this);
    s->addChangeCallback(&changed, this);
  }
};

class Selection : public HandleEvent {
 protected:
  void SetUp() override {
    HandleEvent::SetUp();
    root = make(new SoSeparator);
    root->addChild(camera());
    selection = new SoSelection;
    root->addChild(selection);
    cube = new SoCube;
    sphere = new SoSphere;
    selection->addChild(placed(cube, -3, 0));
    selection->addChild(placed(sphere, 3, 0));
    log.attach(selection);
  }
  void click(short x, short y, bool shift = false) {
    send(root.get(), press, x, y, shift);
    send(root.get(), release, x, y, shift);
  }
  Ref<SoSeparator> root;
  SoSelection* selection = nullptr;
  SoCube* cube = nullptr;
  SoSphere* sphere = nullptr;
  SelectionLog log;
};

TEST_F(Selection, SinglePolicyKeepsThePickedPathAlone) {
  selection->policy = SoSelection::SINGLE;
  click(20, 50);
  ASSERT_EQ(selection->getNumSelected(), 1);
  EXPECT_EQ(selection->getPath(0)->getHead(), selection);
  EXPECT_EQ(selection->getPath(0)->getTail(), cube);
  EXPECT_TRUE(selection->isSelected(cube));
  click(80, 50);
  EXPECT_TRUE(selection->isSelected(sphere));
  EXPECT_FALSE(selection->isSelected(cube));
  click(80, 50);  // the same again: nothing changes
  click(50, 90);  // nothing picked: the list empties
  EXPECT_EQ(selection->getNumSelected(), 0);
  EXPECT_EQ(log.events, (std::vector<std::string>{"start", "select Cube", "change 1", "finish", "start",
                                                  "deselect Cube", "select Sphere", "change 1", "finish", "start",
                                                  "deselect Sphere", "change 0", "finish"}));
}

TEST_F(Selection, ToggleAndShiftPolicies) {
  selection->policy = SoSelection::TOGGLE;
  click(20, 50);
  click(80, 50);
  EXPECT_EQ(selection->getNumSelected(), 2);
  click(20, 50);
  EXPECT_EQ(selection->getNumSelected(), 1);
  EXPECT_TRUE(selection->isSelected(sphere));
  click(50, 90);  // nothing: no change
  EXPECT_EQ(selection->getNumSelected(), 1);

  selection->policy = SoSelection::SHIFT;
  click(20, 50, true);  // with shift: added
  EXPECT_EQ(selection->getNumSelected(), 2);
  click(20, 50);  // without: alone
  EXPECT_EQ(selection->getNumSelected(), 1);
  EXPECT_TRUE(selection->isSelected(cube));
}

TEST_F(Selection, PickMatchingNeedsTheSamePathTwice) {
  selection->policy = SoSelection::TOGGLE;
  send(root.get(), press, 20, 50);
  send(root.get(), release, 80, 50);
  EXPECT_EQ(selection->getNumSelected(), 0);
  selection->setPickMatching(false);
  send(root.get(), press, 20, 50);
  send(root.get(), release, 80, 50);
  EXPECT_TRUE(selection->isSelected(sphere));  // the release decides
}

SoPath* toSeparator(void* data, const SoPickedPoint* pp) {
  ++*static_cast<int*>(data);
  SoPath* p = pp->getPath()->copy();
  p->truncate(p->getLength() - 1);  // the shape's separator instead of the shape
  return p;
}
SoPath* refuse(void*, const SoPickedPoint*) { return nullptr; }

TEST_F(Selection, APickFilterChoosesWhatIsSelected) {
  selection->policy = SoSelection::TOGGLE;
  int filtered = 0;
  selection->setPickFilterCallback(&toSeparator, &filtered);
  click(20, 50);
  ASSERT_EQ(selection->getNumSelected(), 1);
  EXPECT_EQ(selection->getPath(0)->getTail(), selection->getChild(0));
  EXPECT_EQ(filtered, 2);  // press and release
  selection->setPickFilterCallback(&refuse, nullptr);
  click(80, 50);
  EXPECT_EQ(selection->getNumSelected(), 1);  // refused: as if nothing was picked
}

TEST_F(Selection, TheProgramChangesTheListToo) {
  selection->select(cube);
  selection->select(cube);  // once only
  EXPECT_EQ(selection->getNumSelected(), 1);
  auto path = make(new SoPath(root.get()));
  path->append(1);
  path->append(1);
  path->append(1);
  selection->toggle(path.get());
  EXPECT_TRUE(selection->isSelected(sphere));
  EXPECT_TRUE(selection->isSelected(path.get()));
  EXPECT_EQ((*selection)[1]->getHead(), selection);
  selection->deselect(cube);
  EXPECT_EQ(selection->getNumSelected(), 1);
  auto outside = make(new SoPath(root.get()));
  outside->append(0);
  selection->select(outside.get());  // not under the selection
  EXPECT_EQ(selection->getNumSelected(), 1);
  selection->deselectAll();
  EXPECT_EQ(selection->getNumSelected(), 0);
  EXPECT_EQ(log.events, (std::vector<std::string>{"select Cube", "change 1", "select Sphere", "change 2",
                                                  "deselect Cube", "change 1", "deselect Sphere", "change 0"}));
}

TEST_F(HandleEvent, ASelectionKeepingPathsIsStillDeletedWithItsGraph) {
  auto* root = new SoSeparator;
  root->ref();
  auto* selection = new SoSelection;
  auto* cube = new SoCube;
  selection->addChild(cube);
  root->addChild(selection);
  selection->select(cube);
  EXPECT_EQ(selection->getRefCount(), 1);  // its paths do not keep it alive
  bool deleted = false;
  SoNodeSensor sensor;
  sensor.setDeleteCallback([](void* d, SoSensor*) { *static_cast<bool*>(d) = true; }, &deleted);
  sensor.attach(selection);
  root->unref();
  EXPECT_TRUE(deleted);
}

}  // namespace
