// Inline nodes (children fetched by the application) and anchors (links
// followed by picking), in traversals, events and scene files.

#include <Orvex/SoInput.h>
#include <Orvex/SoPath.h>
#include <Orvex/SoPickedPoint.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/actions/SoHandleEventAction.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/actions/SoSearchAction.h>
#include <Orvex/events/SoLocation2Event.h>
#include <Orvex/events/SoMouseButtonEvent.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoEventCallback.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/nodes/SoWWWAnchor.h>
#include <Orvex/nodes/SoWWWInline.h>
#include <Orvex/sensors/SoNodeSensor.h>

#include <cstdio>
#include <string>
#include <vector>

#include "ActionTestSupport.h"
#include "TempFiles.h"

using namespace actiontest;
using orvextest::readFromString;
using orvextest::TempDir;
using orvextest::writeToString;

namespace {

SoTranslation* translation(float x, float y, float z) {
  auto* t = new SoTranslation;
  t->translation.setValue(x, y, z);
  return t;
}

SoCube* cube(float size) {
  auto* c = new SoCube;
  c->width = size;
  c->height = size;
  c->depth = size;
  return c;
}

SbBox3f boundsOf(SoNode* root) {
  SoGetBoundingBoxAction action(SbViewportRegion(100, 100));
  action.apply(root);
  return action.getBoundingBox();
}

// ---- inline nodes ----------------------------------------------------------------------

// What the inline fetch function saw; it answers each request with `answer`.
struct FetchLog {
  std::vector<std::string> urls;
  std::vector<SoWWWInline*> nodes;
  SoNode* answer = nullptr;
  static void fetch(const SbString& url, void* data, SoWWWInline* node) {
    auto* log = static_cast<FetchLog*>(data);
    log->urls.push_back(url.toStdString());
    log->nodes.push_back(node);
    if (log->answer) node->setChildData(log->answer);
  }
};

class WWWInline : public ActionTest {
 protected:
  void TearDown() override { SoWWWInline::setFetchURLCallBack(nullptr, nullptr); }
  FetchLog log;
};

TEST_F(WWWInline, IsRegisteredWithoutThePrefixAndHasItsFields) {
  EXPECT_EQ(SoType::fromName("WWWInline"), SoWWWInline::getClassTypeId());
  EXPECT_EQ(SoWWWInline::getClassTypeId().getParent(), SoNode::getClassTypeId());
  EXPECT_EQ(SoType::fromName("WWWAnchor"), SoWWWAnchor::getClassTypeId());
  EXPECT_EQ(SoWWWAnchor::getClassTypeId().getParent(), SoSeparator::getClassTypeId());
  auto node = make(static_cast<SoWWWInline*>(SoWWWInline::getClassTypeId().createInstance()));
  ASSERT_TRUE(node);
  EXPECT_EQ(node->name.getValue(), "<Undefined file>");
  EXPECT_EQ(node->getFullURLName(), "<Undefined file>");
  EXPECT_EQ(node->getField("bboxCenter"), &node->bboxCenter);
  EXPECT_EQ(node->getField("bboxSize"), &node->bboxSize);
  EXPECT_FALSE(node->isURLDataHere());
  EXPECT_EQ(node->getChildData(), nullptr);
  EXPECT_EQ(node->getChildren()->getLength(), 0);
}

TEST_F(WWWInline, RequestsCallTheFetchFunctionOnceUntilAnswered) {
  auto node = make(new SoWWWInline);
  node->name = "models/part.ovx";
  // No fetch function: nothing is requested.
  node->requestURLData();
  EXPECT_FALSE(node->isURLDataRequested());

  SoWWWInline::setFetchURLCallBack(&FetchLog::fetch, &log);
  node->requestURLData();
  EXPECT_TRUE(node->isURLDataRequested());
  node->requestURLData();  // already asked for
  ASSERT_EQ(log.urls, std::vector<std::string>{"models/part.ovx"});
  EXPECT_EQ(log.nodes[0], node.get());
  node->cancelURLDataRequest();
  node->setFullURLName("http://example.org/models/part.ovx");
  node->requestURLData();
  EXPECT_EQ(log.urls.back(), "http://example.org/models/part.ovx");
  EXPECT_EQ(log.urls.size(), 2u);

  // Data arriving later ends the request.
  auto data = make(cube(2));
  node->setChildData(data.get());
  EXPECT_FALSE(node->isURLDataRequested());
  EXPECT_TRUE(node->isURLDataHere());
  EXPECT_EQ(node->getChildData(), data.get());
  EXPECT_EQ(node->getChildren()->getLength(), 1);
}

TEST_F(WWWInline, KeepsItsDataReferencedAndLetsReplacedDataGo) {
  auto node = make(new SoWWWInline);
  auto first = make(cube(1));
  node->setChildData(first.get());
  EXPECT_EQ(first->getRefCount(), 2);
  auto second = make(new SoSphere);
  node->setChildData(second.get());
  EXPECT_EQ(first->getRefCount(), 1);
  EXPECT_EQ(second->getRefCount(), 2);
  // The same data again keeps its reference.
  node->setChildData(second.get());
  EXPECT_EQ(second->getRefCount(), 2);
  node->setChildData(nullptr);
  EXPECT_EQ(second->getRefCount(), 1);
  EXPECT_FALSE(node->isURLDataHere());
}

TEST_F(WWWInline, StandsForItsDeclaredBoxUntilTheDataIsHere) {
  auto root = make(new SoSeparator);
  root->addChild(translation(10, 0, 0));
  auto* node = new SoWWWInline;
  root->addChild(node);
  // No box declared: nothing to bound.
  EXPECT_TRUE(boundsOf(root.get()).isEmpty());
  node->bboxSize.setValue(-1, 2, 2);
  EXPECT_TRUE(boundsOf(root.get()).isEmpty());

  node->bboxCenter.setValue(1, 2, 3);
  node->bboxSize.setValue(2, 4, 6);
  expectBoxNear(boundsOf(root.get()), SbBox3f(SbVec3f(10, 0, 0), SbVec3f(12, 4, 6)));
  expectBoxNear(node->getDeclaredBox(), SbBox3f(SbVec3f(0, 0, 0), SbVec3f(2, 4, 6)));

  // With data, its own box instead (a cube of size 1 moved by 0 0 -5 inside).
  auto* data = new SoSeparator;
  data->addChild(translation(0, 0, -5));
  data->addChild(cube(1));
  node->setChildData(data);
  expectBoxNear(boundsOf(root.get()), SbBox3f(SbVec3f(9.5f, -0.5f, -5.5f), SbVec3f(10.5f, 0.5f, -4.5f)));
}

TEST_F(WWWInline, TraversesItsDataAndKeepsItsStateChangesInside) {
  auto root = make(new SoSeparator);
  auto* node = new SoWWWInline;
  root->addChild(node);
  root->addChild(cube(2));
  // Data that is not a separator: its translation must not reach the cube after the inline.
  auto* data = new SoTranslation;
  data->translation.setValue(5, 0, 0);
  auto* group = new SoGroup;
  group->addChild(data);
  group->addChild(cube(2));
  node->setChildData(group);
  expectBoxNear(boundsOf(root.get()), SbBox3f(SbVec3f(-1, -1, -1), SbVec3f(6, 1, 1)));

  // A search finds nodes of the data, on a path through the inline.
  SoSearchAction search;
  search.setNode(data);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), data);
  EXPECT_TRUE(search.getPath()->containsNode(node));

  // A ray along -z at x = 5 hits the fetched cube, through the inline.
  auto scene = make(new SoSeparator);
  auto* cam = new SoOrthographicCamera;
  cam->position.setValue(0, 0, 10);
  cam->height = 20;
  scene->addChild(cam);
  scene->addChild(root.get());
  SoRayPickAction pick(SbViewportRegion(200, 200));
  pick.setPoint(SbVec2s(150, 100));  // x = 150 / 10 - 10 = 5
  pick.apply(scene.get());
  const SoPickedPoint* pp = pick.getPickedPoint();
  ASSERT_NE(pp, nullptr);
  EXPECT_TRUE(pp->getPath()->containsNode(node));
  expectNear(pp->getPoint(), SbVec3f(5, 0, 1), 1e-4f);
}

TEST_F(WWWInline, ReadingAsksForTheDataWithTheURLResolvedAgainstTheFile) {
  auto answer = make(cube(4));
  log.answer = answer.get();
  SoWWWInline::setFetchURLCallBack(&FetchLog::fetch, &log);
  TempDir dir;
  const std::string path = dir.write(
      "scene.ovx",
      "#Orvex V1.0 ascii\n"
      "Separator {\n"
      "  WWWInline { name \"parts/wheel.ovx\" bboxCenter 1 2 3 bboxSize 2 4 6 }\n"
      "  WWWInline { name \"http://example.org/a.ovx\" }\n"
      "  WWWInline { name \"/abs/b.ovx\" }\n"
      "}\n");
  SoInput in;
  ASSERT_TRUE(in.openFile(path.c_str()));
  auto root = make(SoDB::readAll(&in));
  ASSERT_TRUE(root);
  ASSERT_EQ(log.urls, (std::vector<std::string>{dir.path() + "/parts/wheel.ovx", "http://example.org/a.ovx",
                                                 "/abs/b.ovx"}));
  ASSERT_EQ(root->getNumChildren(), 3);
  auto* first = static_cast<SoWWWInline*>(root->getChild(0));
  ASSERT_EQ(first->getTypeId(), SoWWWInline::getClassTypeId());
  EXPECT_EQ(log.nodes[0], first);
  EXPECT_EQ(first->name.getValue(), "parts/wheel.ovx");
  expectNear(first->bboxCenter.getValue(), SbVec3f(1, 2, 3));
  expectNear(first->bboxSize.getValue(), SbVec3f(2, 4, 6));
  EXPECT_EQ(first->getChildData(), answer.get());
  // The data is here: the bounds are those of the fetched cube.
  expectBoxNear(boundsOf(root.get()), SbBox3f(SbVec3f(-2, -2, -2), SbVec3f(2, 2, 2)));

  // From a buffer there is no directory: the name is the URL.
  log.urls.clear();
  auto again = readFromString("#Orvex V1.0 ascii\nWWWInline { name \"parts/wheel.ovx\" }\n");
  ASSERT_TRUE(again);
  EXPECT_EQ(log.urls, std::vector<std::string>{"parts/wheel.ovx"});
}

TEST_F(WWWInline, ScenesKeepTheFieldsButNotTheFetchedData) {
  auto root = make(new SoSeparator);
  auto* node = new SoWWWInline;
  node->name = "http://example.org/car.ovx";
  node->bboxCenter.setValue(0.5f, 0, 0);
  node->bboxSize.setValue(3, 2, 1);
  node->setChildData(new SoSphere);
  root->addChild(node);
  const std::string text = writeToString(root.get());
  EXPECT_NE(text.find("WWWInline"), std::string::npos);
  EXPECT_NE(text.find("http://example.org/car.ovx"), std::string::npos);
  EXPECT_EQ(text.find("Sphere"), std::string::npos) << text;

  auto back = readFromString(text);
  ASSERT_TRUE(back);
  ASSERT_EQ(back->getNumChildren(), 1);
  auto* read = static_cast<SoWWWInline*>(back->getChild(0));
  ASSERT_EQ(read->getTypeId(), SoWWWInline::getClassTypeId());
  EXPECT_EQ(read->name.getValue(), "http://example.org/car.ovx");
  expectNear(read->bboxCenter.getValue(), SbVec3f(0.5f, 0, 0));
  expectNear(read->bboxSize.getValue(), SbVec3f(3, 2, 1));
  EXPECT_FALSE(read->isURLDataHere());

  // Binary files too.
  auto binary = readFromString(writeToString(root.get(), true));
  ASSERT_TRUE(binary);
  auto* fromBinary = static_cast<SoWWWInline*>(binary->getChild(0));
  EXPECT_EQ(fromBinary->name.getValue(), "http://example.org/car.ovx");
  expectNear(fromBinary->bboxSize.getValue(), SbVec3f(3, 2, 1));
}

TEST_F(WWWInline, ACopyHasACopyOfTheData) {
  auto node = make(new SoWWWInline);
  node->name = "x.ovx";
  node->setFullURLName("/data/x.ovx");
  auto* data = cube(3);
  node->setChildData(data);
  auto copy = make(static_cast<SoWWWInline*>(node->copy()));
  EXPECT_EQ(copy->name.getValue(), "x.ovx");
  EXPECT_EQ(copy->getFullURLName(), "/data/x.ovx");
  ASSERT_NE(copy->getChildData(), nullptr);
  EXPECT_NE(copy->getChildData(), data);
  EXPECT_EQ(copy->getChildData()->getTypeId(), SoCube::getClassTypeId());
  EXPECT_EQ(static_cast<SoCube*>(copy->getChildData())->width.getValue(), 3.0f);
  auto copied = make(node->copyChildren());
  ASSERT_TRUE(copied);
  EXPECT_NE(copied.get(), data);
  EXPECT_EQ(copied->getTypeId(), SoCube::getClassTypeId());
}

// ---- anchors ---------------------------------------------------------------------------

struct AnchorLog {
  std::vector<std::string> fetched;
  std::vector<std::string> highlighted;
  std::vector<SoWWWAnchor*> nodes;
  static void fetch(const SbString& url, void* data, SoWWWAnchor* node) {
    static_cast<AnchorLog*>(data)->fetched.push_back(url.toStdString());
    static_cast<AnchorLog*>(data)->nodes.push_back(node);
  }
  static void highlight(const SbString& url, void* data, SoWWWAnchor* node) {
    static_cast<AnchorLog*>(data)->highlighted.push_back(url.toStdString());
    static_cast<AnchorLog*>(data)->nodes.push_back(node);
  }
};

// An orthographic view 10 units wide on a 100 x 100 viewport: pixel (x, y)
// looks at (x / 10 - 5, y / 10 - 5). The anchor, moved to (-3, 1, 0), holds
// a cube of size 2; a sphere of radius 1 sits outside it at (3, 0, 0).
class WWWAnchor : public ActionTest {
 protected:
  void SetUp() override {
    root = make(new SoSeparator);
    auto* cam = new SoOrthographicCamera;
    cam->position.setValue(0, 0, 10);
    cam->height = 10;
    root->addChild(cam);
    auto* anchorSpace = new SoSeparator;
    anchorSpace->addChild(translation(-3, 1, 0));
    anchor = new SoWWWAnchor;
    anchor->name = "http://example.org/box";
    anchor->addChild(cube(2));
    anchorSpace->addChild(anchor);
    root->addChild(anchorSpace);
    auto* other = new SoSeparator;
    other->addChild(translation(3, 0, 0));
    other->addChild(new SoSphere);
    root->addChild(other);
    SoWWWAnchor::setFetchURLCallBack(&AnchorLog::fetch, &log);
    SoWWWAnchor::setHighlightURLCallBack(&AnchorLog::highlight, &log);
    press.setButton(SoMouseButtonEvent::BUTTON1);
    press.setState(SoButtonEvent::DOWN);
  }
  void TearDown() override {
    SoWWWAnchor::setFetchURLCallBack(nullptr, nullptr);
    SoWWWAnchor::setHighlightURLCallBack(nullptr, nullptr);
  }
  bool send(SoEvent& event, short x, short y) {
    event.setPosition(SbVec2s(x, y));
    action.setEvent(&event);
    action.apply(root.get());
    return action.isHandled();
  }
  Ref<SoSeparator> root;
  SoWWWAnchor* anchor = nullptr;
  AnchorLog log;
  SoHandleEventAction action{SbViewportRegion(100, 100)};
  SoMouseButtonEvent press;
  SoLocation2Event move;
};

TEST_F(WWWAnchor, ClickingItsChildrenFollowsTheLink) {
  // Pixel (20, 60) looks at (-3, 1): the anchor's cube.
  EXPECT_TRUE(send(press, 20, 60));
  ASSERT_EQ(log.fetched, std::vector<std::string>{"http://example.org/box"});
  EXPECT_EQ(log.nodes[0], anchor);
  // The sphere outside, and empty space: no link.
  EXPECT_FALSE(send(press, 80, 50));
  EXPECT_FALSE(send(press, 50, 95));
  EXPECT_EQ(log.fetched.size(), 1u);
  // Releasing the button is not a click of its own.
  SoMouseButtonEvent release;
  release.setButton(SoMouseButtonEvent::BUTTON1);
  release.setState(SoButtonEvent::UP);
  EXPECT_FALSE(send(release, 20, 60));
  // Another button neither.
  SoMouseButtonEvent second;
  second.setButton(SoMouseButtonEvent::BUTTON2);
  second.setState(SoButtonEvent::DOWN);
  EXPECT_FALSE(send(second, 20, 60));
  EXPECT_EQ(log.fetched.size(), 1u);
  // The full URL name, once set, is what the function gets.
  anchor->setFullURLName("http://example.org/full/box");
  send(press, 20, 60);
  EXPECT_EQ(log.fetched.back(), "http://example.org/full/box");
}

TEST_F(WWWAnchor, AMappingAnchorAppendsThePickedPointInItsOwnSpace) {
  anchor->map = SoWWWAnchor::POINT;
  // Pixel (25, 55) looks at world (-2.5, 0.5) and hits the cube's front face
  // (z = 1); without the anchor's translation that is (0.5, -0.5, 1).
  send(press, 25, 55);
  ASSERT_EQ(log.fetched.size(), 1u);
  const std::string& url = log.fetched[0];
  const std::string prefix = "http://example.org/box?";
  ASSERT_EQ(url.compare(0, prefix.size(), prefix), 0) << url;
  float x = 0, y = 0, z = 0;
  ASSERT_EQ(std::sscanf(url.c_str() + prefix.size(), "%f,%f,%f", &x, &y, &z), 3) << url;
  expectNear(SbVec3f(x, y, z), SbVec3f(0.5f, -0.5f, 1.0f), 1e-3f);
}

TEST_F(WWWAnchor, MovingOntoAndOffTheAnchorHighlightsIt) {
  send(move, 50, 95);  // nothing under the cursor
  EXPECT_TRUE(log.highlighted.empty());
  send(move, 20, 60);
  send(move, 22, 61);  // still over it: no second call
  EXPECT_EQ(log.highlighted, std::vector<std::string>{"http://example.org/box"});
  send(move, 80, 50);  // over the sphere: off the anchor
  EXPECT_EQ(log.highlighted, (std::vector<std::string>{"http://example.org/box", ""}));
  EXPECT_TRUE(log.fetched.empty());
  EXPECT_FALSE(action.isHandled());
}

TEST_F(WWWAnchor, ItsChildrenSeeTheEventsFirst) {
  auto* catcher = new SoEventCallback;
  catcher->addEventCallback(SoMouseButtonEvent::getClassTypeId(),
                            [](void*, SoEventCallback* node) { node->setHandled(); });
  anchor->insertChild(catcher, 0);
  EXPECT_TRUE(send(press, 20, 60));
  EXPECT_TRUE(log.fetched.empty());
}

TEST_F(WWWAnchor, ScenesKeepItsFieldsAndChildren) {
  auto scene = make(new SoSeparator);
  auto* a = new SoWWWAnchor;
  a->name = "http://example.org/doc";
  a->description = "The documentation";
  a->map = SoWWWAnchor::POINT;
  a->addChild(cube(2));
  a->addChild(new SoSphere);
  scene->addChild(a);
  const std::string text = writeToString(scene.get());
  EXPECT_NE(text.find("WWWAnchor"), std::string::npos) << text;
  EXPECT_NE(text.find("POINT"), std::string::npos) << text;
  for (bool binary : {false, true}) {
    auto back = readFromString(binary ? writeToString(scene.get(), true) : text);
    ASSERT_TRUE(back);
    ASSERT_EQ(back->getNumChildren(), 1);
    auto* read = static_cast<SoWWWAnchor*>(back->getChild(0));
    ASSERT_EQ(read->getTypeId(), SoWWWAnchor::getClassTypeId());
    EXPECT_EQ(read->name.getValue(), "http://example.org/doc");
    EXPECT_EQ(read->description.getValue(), "The documentation");
    EXPECT_EQ(read->map.getValue(), SoWWWAnchor::POINT);
    ASSERT_EQ(read->getNumChildren(), 2);
    EXPECT_EQ(read->getChild(0)->getTypeId(), SoCube::getClassTypeId());
    EXPECT_EQ(read->getChild(1)->getTypeId(), SoSphere::getClassTypeId());
  }
  // Defaults are not written, and read back as defaults.
  auto plain = readFromString(writeToString(make(new SoWWWAnchor).get()));
  ASSERT_TRUE(plain);
  auto* p = static_cast<SoWWWAnchor*>(plain->getNumChildren() ? plain->getChild(0) : plain.get());
  ASSERT_EQ(p->getTypeId(), SoWWWAnchor::getClassTypeId());
  EXPECT_EQ(p->name.getValue(), "<Undefined URL>");
  EXPECT_EQ(p->map.getValue(), SoWWWAnchor::NONE);
}

}  // namespace

namespace {

TEST_F(WWWInline, AFetchFunctionMayReplaceTheGraphHoldingTheNode) {
  // The only reference to the inline is its parent's; the function lets the
  // parent go. The node goes with it, once the request is over.
  struct Holder {
    SoSeparator* parent = nullptr;
    int calls = 0;
    static void dropParent(const SbString&, void* data, SoWWWInline* node) {
      auto* h = static_cast<Holder*>(data);
      ++h->calls;
      node->setChildData(new SoSphere);
      h->parent->unref();
      h->parent = nullptr;
    }
  } holder;
  holder.parent = new SoSeparator;
  holder.parent->ref();
  auto* node = new SoWWWInline;
  holder.parent->addChild(node);
  bool deleted = false;
  SoNodeSensor watch;
  watch.setDeleteCallback([](void* d, SoSensor*) { *static_cast<bool*>(d) = true; }, &deleted);
  watch.attach(node);
  SoWWWInline::setFetchURLCallBack(&Holder::dropParent, &holder);
  node->requestURLData();
  EXPECT_EQ(holder.calls, 1);
  EXPECT_EQ(holder.parent, nullptr);
  EXPECT_TRUE(deleted);

  // An unreferenced node survives its own request.
  SoWWWInline::setFetchURLCallBack(&FetchLog::fetch, &log);
  auto* loose = new SoWWWInline;
  deleted = false;
  watch.attach(loose);
  loose->requestURLData();
  EXPECT_FALSE(deleted);
  EXPECT_EQ(log.nodes.back(), loose);
  loose->ref();
  loose->unref();
  EXPECT_TRUE(deleted);
}

}  // namespace
