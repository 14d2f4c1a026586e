// The scene manager: redraw requests through the sensor queue, events to
// the scene, the abort callback, and what render() draws into the
// drawable bound by its owner.

#include <Orvex/SoDB.h>
#include <Orvex/SoSceneManager.h>
#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/actions/SoHandleEventAction.h>
#include <Orvex/antialiasing/SoAntialiasingEventListener.h>
#include <Orvex/antialiasing/SoAntialiasingParameters.h>
#include <Orvex/devices/SoGLContext.h>
#include <Orvex/events/SoKeyboardEvent.h>
#include <Orvex/events/SoMouseButtonEvent.h>
#include <Orvex/fields/SoSFTime.h>
#include <Orvex/nodes/SoEventCallback.h>
#include <Orvex/nodes/SoTransform.h>
#include <Orvex/sensors/SoSensorManager.h>
#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "RenderTestSupport.h"

using gltest::addQuad;
using gltest::baseColor;
using gltest::diffuse;
using gltest::orthoCamera;
using gltest::Root;

namespace {

const ::testing::Environment* const kEnv = ::testing::AddGlobalTestEnvironment(new gltest::DatabaseEnvironment);

void processDelayQueue() { SoDB::getSensorManager()->processDelayQueue(true); }

// Every render callback call: user data and manager.
struct RenderCalls {
  std::vector<std::pair<void*, SoSceneManager*>> calls;
  static void callback(void* data, SoSceneManager* manager) {
    static_cast<RenderCalls*>(data)->calls.emplace_back(data, manager);
  }
};

TEST(SceneManager, RenderCallbackTellsTheManagersApart) {
  Root root;
  SoSceneManager first, second;
  RenderCalls calls;
  for (SoSceneManager* m : {&first, &second}) {
    m->setRenderCallback(&RenderCalls::callback, &calls);
    EXPECT_TRUE(m->isAutoRedraw());
    m->activate();
    m->setSceneGraph(root.node);  // schedules a redraw
  }
  EXPECT_TRUE(calls.calls.empty());  // nothing before the queue is processed
  processDelayQueue();
  ASSERT_EQ(calls.calls.size(), 2u);
  const std::set<SoSceneManager*> managers{calls.calls[0].second, calls.calls[1].second};
  EXPECT_EQ(managers, (std::set<SoSceneManager*>{&first, &second}));
  EXPECT_EQ(calls.calls[0].first, &calls);
}

TEST(SceneManager, RedrawRequestsCoalesceIntoOneCall) {
  Root root;
  auto* material = diffuse(1, 0, 0);
  root->addChild(material);
  SoSceneManager manager;
  RenderCalls calls;
  manager.setRenderCallback(&RenderCalls::callback, &calls);
  manager.setSceneGraph(root.node);
  processDelayQueue();
  EXPECT_TRUE(calls.calls.empty()) << "inactive: no redraw";

  manager.activate();
  manager.scheduleRedraw();
  manager.scheduleRedraw();
  material->diffuseColor.setValue(0.0f, 1.0f, 0.0f);  // the graph changes
  manager.scheduleRedraw();
  processDelayQueue();
  ASSERT_EQ(calls.calls.size(), 1u);
  EXPECT_EQ(calls.calls[0].second, &manager);
  processDelayQueue();
  EXPECT_EQ(calls.calls.size(), 1u);

  // A change of the graph alone asks for a redraw too.
  material->diffuseColor.setValue(0.0f, 0.0f, 1.0f);
  processDelayQueue();
  EXPECT_EQ(calls.calls.size(), 2u);

  // Deactivated: changes and requests are ignored, forced ones are not.
  manager.deactivate();
  material->diffuseColor.setValue(1.0f, 1.0f, 1.0f);
  manager.scheduleRedraw();
  processDelayQueue();
  EXPECT_EQ(calls.calls.size(), 2u);
  manager.scheduleForcedRedraw();
  manager.scheduleForcedRedraw();
  processDelayQueue();
  EXPECT_EQ(calls.calls.size(), 3u);

  // Priority 0: the redraw happens as it is asked for.
  EXPECT_EQ(manager.getRedrawPriority(), SoSceneManager::getDefaultRedrawPriority());
  manager.activate();
  manager.setRedrawPriority(0);
  manager.scheduleRedraw();
  EXPECT_EQ(calls.calls.size(), 4u);

  // Without a render callback nothing is asked.
  manager.setRenderCallback(nullptr);
  EXPECT_FALSE(manager.isAutoRedraw());
  manager.scheduleForcedRedraw();
  processDelayQueue();
  EXPECT_EQ(calls.calls.size(), 4u);
}

TEST(SceneManager, ProcessEventReachesAnEventCallbackNode) {
  struct Seen {
    int count = 0;
    const SoEvent* event = nullptr;
    static void callback(void* data, SoEventCallback* node) {
      auto* self = static_cast<Seen*>(data);
      ++self->count;
      self->event = node->getEvent();
      node->setHandled();
    }
  } seen;
  Root root;
  auto* node = new SoEventCallback;
  node->addEventCallback(SoMouseButtonEvent::getClassTypeId(), &Seen::callback, &seen);
  root->addChild(node);
  SoSceneManager manager;
  manager.setWindowSize(SbVec2s(50, 40));
  EXPECT_FALSE(manager.processEvent(nullptr));

  SoMouseButtonEvent click;
  click.setButton(SoMouseButtonEvent::BUTTON1);
  click.setState(SoButtonEvent::DOWN);
  EXPECT_FALSE(manager.processEvent(&click)) << "no scene yet";
  manager.setSceneGraph(root.node);
  EXPECT_TRUE(manager.processEvent(&click));
  EXPECT_EQ(seen.count, 1);
  EXPECT_EQ(seen.event, &click);
  EXPECT_EQ(manager.getHandleEventAction()->getViewportRegion().getWindowSize(), SbVec2s(50, 40));

  // An event of another type is not the node's.
  SoKeyboardEvent key;
  EXPECT_FALSE(manager.processEvent(&key));
  EXPECT_EQ(seen.count, 1);

  // A given event action is used instead of the manager's own.
  SoHandleEventAction other(SbViewportRegion(10, 10));
  manager.setHandleEventAction(&other);
  EXPECT_EQ(manager.getHandleEventAction(), &other);
  EXPECT_TRUE(manager.processEvent(&click));
  EXPECT_EQ(seen.count, 2);
  EXPECT_EQ(other.getViewportRegion().getWindowSize(), SbVec2s(50, 40));
  manager.setHandleEventAction(nullptr);
  EXPECT_NE(manager.getHandleEventAction(), &other);
}

// An offscreen context with a framebuffer object of the given size bound
// for drawing and reading, as a window's owner would have it.
class BoundDrawable {
 public:
  BoundDrawable(int width, int height) : m_width(width), m_height(height), m_context(new SoGLContext(SoGLFormat())) {
    m_context->ref();
    m_bound = m_context->bind();
    if (!m_bound) return;
    glGenFramebuffers(1, &m_framebuffer);
    glGenRenderbuffers(2, m_renderbuffers);
    glBindRenderbuffer(GL_RENDERBUFFER, m_renderbuffers[0]);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width, height);
    glBindRenderbuffer(GL_RENDERBUFFER, m_renderbuffers[1]);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH24_STENCIL8, width, height);
    glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, m_renderbuffers[0]);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER, m_renderbuffers[1]);
    m_complete = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
  }
  ~BoundDrawable() {
    if (m_bound) {
      glBindFramebuffer(GL_FRAMEBUFFER, 0);
      glDeleteFramebuffers(1, &m_framebuffer);
      glDeleteRenderbuffers(2, m_renderbuffers);
      m_context->unbind();
    }
    m_context->unref();
  }
  BoundDrawable(const BoundDrawable&) = delete;
  BoundDrawable& operator=(const BoundDrawable&) = delete;

  bool usable() const { return m_bound && m_complete; }
  // Pixel (x, y) from the bottom left, RGBA.
  std::array<int, 4> pixel(int x, int y) const {
    unsigned char p[4] = {0, 0, 0, 0};
    glBindFramebuffer(GL_READ_FRAMEBUFFER, m_framebuffer);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, p);
    return {p[0], p[1], p[2], p[3]};
  }
  // The first channel of every pixel, row by row from the bottom.
  std::vector<int> reds() const {
    std::vector<unsigned char> rgba(static_cast<size_t>(m_width) * m_height * 4);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, m_framebuffer);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, m_width, m_height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    std::vector<int> out(static_cast<size_t>(m_width) * m_height);
    for (size_t i = 0; i < out.size(); ++i) out[i] = rgba[i * 4];
    return out;
  }

 private:
  int m_width, m_height;
  SoGLContext* m_context;
  bool m_bound = false;
  bool m_complete = false;
  GLuint m_framebuffer = 0;
  GLuint m_renderbuffers[2] = {0, 0};
};

TEST(SceneManager, RendersIntoItsViewportOverTheBackground) {
  BoundDrawable drawable(40, 30);
  ASSERT_TRUE(drawable.usable());
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(diffuse(1.0f, 0.0f, 0.0f));
  addQuad(root.node, -3.0f, -3.0f, 3.0f, 3.0f, 0.0f);  // beyond the view: the whole viewport
  SoSceneManager manager;
  manager.setSceneGraph(root.node);
  manager.setWindowSize(SbVec2s(40, 30));
  manager.setOrigin(SbVec2s(10, 5));
  manager.setSize(SbVec2s(20, 20));
  EXPECT_EQ(manager.getOrigin(), SbVec2s(10, 5));
  EXPECT_EQ(manager.getSize(), SbVec2s(20, 20));
  EXPECT_EQ(manager.getWindowSize(), SbVec2s(40, 30));
  manager.setBackgroundColorRGBA(SbColorRGBA(0.0f, 0.0f, 1.0f, 1.0f));
  manager.render();
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 40; ++x) {
      const bool inside = x >= 10 && x < 30 && y >= 5 && y < 25;
      EXPECT_EQ(drawable.pixel(x, y), inside ? (std::array<int, 4>{255, 0, 0, 255}) : (std::array<int, 4>{0, 0, 255, 255}))
          << x << ", " << y;
    }
  }
  // RGB background: alpha 0.
  manager.setBackgroundColor(SbColor(0.0f, 1.0f, 0.0f));
  EXPECT_EQ(manager.getBackgroundColor(), SbColor(0.0f, 1.0f, 0.0f));
  manager.render();
  EXPECT_EQ(drawable.pixel(0, 0), (std::array<int, 4>{0, 255, 0, 0}));

  // A clear depth of 0 lets nothing through the LESS depth test.
  manager.setClearDepth(-3.0f);
  EXPECT_EQ(manager.getClearDepth(), 0.0f);
  manager.render();
  EXPECT_EQ(drawable.pixel(20, 15), (std::array<int, 4>{0, 255, 0, 0}));
  manager.setClearDepth(1.0f);

  // Without clearing the window what was there stays outside the scene.
  manager.setBackgroundColor(SbColor(1.0f, 1.0f, 1.0f));
  manager.render(false, true);
  EXPECT_EQ(drawable.pixel(0, 0), (std::array<int, 4>{0, 255, 0, 0}));
  EXPECT_EQ(drawable.pixel(20, 15), (std::array<int, 4>{255, 0, 0, 255}));
}

TEST(SceneManager, AbortCallbackAnswerIsHonoured) {
  BoundDrawable drawable(20, 20);
  ASSERT_TRUE(drawable.usable());
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  auto* right = new SoSeparator;
  right->addChild(diffuse(0, 1, 0));
  addQuad(right, 0, -2, 2, 2, 0);
  auto* left = new SoSeparator;
  left->addChild(diffuse(1, 0, 0));
  addQuad(left, -2, -2, 0, 2, 0);
  root->addChild(left);
  root->addChild(right);

  struct Abort {
    SoSceneManager* manager;
    SoNode* target;
    int answer;
    int calls = 0;
    bool actionWasTheManagers = true;
    static int callback(SoGLRenderAction* action, void* data) {
      auto* self = static_cast<Abort*>(data);
      ++self->calls;
      self->actionWasTheManagers = self->actionWasTheManagers && action == self->manager->getGLRenderAction();
      return action->getCurPathTail() == self->target ? self->answer : 0;
    }
  };
  SoSceneManager manager;
  manager.setWindowSize(SbVec2s(20, 20));
  manager.setSceneGraph(root.node);
  Abort abort{&manager, right, 1};
  manager.setAbortRenderCallback(&Abort::callback, &abort);

  // 1 (abort) at the right half: only the left half is drawn.
  manager.render();
  EXPECT_GT(abort.calls, 0);
  EXPECT_TRUE(abort.actionWasTheManagers);
  EXPECT_TRUE(manager.getGLRenderAction()->hasAborted());
  EXPECT_EQ(drawable.pixel(5, 10), (std::array<int, 4>{255, 0, 0, 255}));
  EXPECT_EQ(drawable.pixel(15, 10)[3], 0);

  // 0 (continue): everything.
  abort.answer = 0;
  manager.render();
  EXPECT_EQ(drawable.pixel(15, 10), (std::array<int, 4>{0, 255, 0, 255}));

  // Unknown codes continue; 2 (prune) skips the node.
  abort.answer = 42;
  manager.render();
  EXPECT_EQ(drawable.pixel(15, 10), (std::array<int, 4>{0, 255, 0, 255}));
  abort.target = left;
  abort.answer = 2;
  manager.render();
  EXPECT_EQ(drawable.pixel(5, 10)[3], 0);
  EXPECT_EQ(drawable.pixel(15, 10), (std::array<int, 4>{0, 255, 0, 255}));

  // A render action given later gets the callback too.
  SoGLRenderAction other(SbViewportRegion(1, 1));
  manager.setGLRenderAction(&other);
  abort.calls = 0;
  manager.render();
  EXPECT_GT(abort.calls, 0);
  EXPECT_EQ(drawable.pixel(5, 10)[3], 0);
  manager.setGLRenderAction(nullptr);
}

// The number of pixels whose red channel is strictly between 0 and 255.
int partlyCovered(const std::vector<int>& reds) {
  int n = 0;
  for (int r : reds) n += r > 8 && r < 247;
  return n;
}

TEST(SceneManager, AntialiasingSmoothsEdges) {
  const int size = 32;
  BoundDrawable drawable(size, size);
  ASSERT_TRUE(drawable.usable());
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(diffuse(1.0f, 0.0f, 0.0f));
  // A quad turned so that its edges slant across the pixel grid.
  auto* tilted = new SoSeparator;
  addQuad(tilted, -1.3f, -1.1f, 1.2f, 1.3f, 0.0f);
  auto* turn = new SoTransform;
  turn->rotation.setValue(SbVec3f(0.0f, 0.0f, 1.0f), 0.3f);
  root->addChild(turn);
  root->addChild(tilted);
  SoSceneManager manager;
  manager.setWindowSize(SbVec2s(size, size));
  manager.setSceneGraph(root.node);

  manager.render();
  EXPECT_EQ(manager.getAntialiasingMode(), SoSceneManager::NOANTIALIASING);
  EXPECT_EQ(manager.getAntialiasingParameters(), nullptr);
  EXPECT_EQ(partlyCovered(drawable.reds()), 0);
  const std::vector<int> plain = drawable.reds();
  const int lit = static_cast<int>(std::count(plain.begin(), plain.end(), 255));
  EXPECT_GT(lit, 100);

  // Multisampling: edge pixels take the covered share of their samples.
  manager.setAntialiasing(1.0f, SoSceneManager::FSAA);
  EXPECT_EQ(manager.getAntialiasingMode(), SoSceneManager::FSAA);
  EXPECT_EQ(manager.getAntialiasingQuality(), 1.0f);
  ASSERT_NE(manager.getAntialiasingParameters(), nullptr);
  EXPECT_EQ(manager.getAntialiasingParameters()->getMode(), SoSceneManager::FSAA);
  manager.render();
  GLint most = 0;
  glGetIntegerv(GL_MAX_SAMPLES, &most);
  RecordProperty("maxSamples", most);
  RecordProperty("samples", manager.getLastSamples());
  RecordProperty("partlyCoveredFSAA", partlyCovered(drawable.reds()));
  if (most >= 2) {
    EXPECT_GE(manager.getLastSamples(), 2);
    EXPECT_GT(partlyCovered(drawable.reds()), 20);
  } else {
    EXPECT_EQ(manager.getLastSamples(), 0);
  }

  // Jittered passes (the older form: smoothing and a number of passes).
  manager.setAntialiasing(true, 8);
  EXPECT_EQ(manager.getAntialiasingMode(), SoSceneManager::ACCUMBUFFERS);
  EXPECT_TRUE(manager.isSmoothing());
  manager.render();
  EXPECT_EQ(manager.getGLRenderAction()->getNumPasses(), 8);
  EXPECT_EQ(manager.getLastSamples(), 0);
  EXPECT_GT(partlyCovered(drawable.reds()), 20);

  // Modes drawn without smoothing here are still accepted and reported.
  SoAntialiasingParameters fxaa(SoSceneManager::FXAA, 0.5f);
  manager.setAntialiasing(&fxaa);
  EXPECT_EQ(manager.getAntialiasingMode(), SoSceneManager::FXAA);
  EXPECT_EQ(manager.getAntialiasingQuality(), 0.5f);
  manager.setAntialiasing(false, 1);
  manager.render();
  EXPECT_EQ(manager.getAntialiasingMode(), SoSceneManager::NOANTIALIASING);
  EXPECT_EQ(partlyCovered(drawable.reds()), 0);
  manager.setAntialiasing(0.7f, SoSceneManager::SMAA);
  EXPECT_EQ(manager.getAntialiasingMode(), SoSceneManager::SMAA);
  manager.setAntialiasing(nullptr);
  EXPECT_EQ(manager.getAntialiasingMode(), SoSceneManager::NOANTIALIASING);
}

TEST(SceneManager, AntialiasingListenerHearsOfEachChange) {
  struct Listener : SoAntialiasingEventListener {
    std::vector<std::pair<SoSceneManager::AntialiasingMode, float>> heard;
    SoSceneManager* from = nullptr;
    void antialiasingChanged(SoSceneManager* manager, SoSceneManager::AntialiasingMode mode, float quality) override {
      from = manager;
      heard.emplace_back(mode, quality);
    }
  } listener;
  SoSceneManager manager;
  EXPECT_EQ(manager.getAntialiasingEventListener(), nullptr);
  manager.setAntialiasingEventListener(&listener);
  EXPECT_EQ(manager.getAntialiasingEventListener(), &listener);
  manager.setAntialiasing(0.5f, SoSceneManager::FSAA);
  manager.setAntialiasing(0.5f, SoSceneManager::FSAA);  // no change: not told
  manager.setAntialiasing(2.0f, SoSceneManager::SUPERSAMPLING);
  manager.setAntialiasing(nullptr);
  ASSERT_EQ(listener.heard.size(), 3u);
  EXPECT_EQ(listener.from, &manager);
  EXPECT_EQ(listener.heard[0], std::make_pair(SoSceneManager::FSAA, 0.5f));
  EXPECT_EQ(listener.heard[1], std::make_pair(SoSceneManager::SUPERSAMPLING, 1.0f));
  EXPECT_EQ(listener.heard[2], std::make_pair(SoSceneManager::NOANTIALIASING, 0.0f));
  manager.setAntialiasingEventListener(nullptr);
  manager.setAntialiasing(0.3f, SoSceneManager::FSAA);
  EXPECT_EQ(listener.heard.size(), 3u);
}

TEST(SceneManager, StillSuperSamplingRedrawsWhenTheSceneRests) {
  BoundDrawable drawable(8, 8);
  ASSERT_TRUE(drawable.usable());
  Root root;
  root->addChild(orthoCamera(4.0f));
  SoSceneManager manager;
  manager.setWindowSize(SbVec2s(8, 8));
  manager.setSceneGraph(root.node);
  RenderCalls calls;
  manager.setRenderCallback(&RenderCalls::callback, &calls);
  manager.setStillSuperSampling(1.0f, 0.0f);
  EXPECT_EQ(manager.getStillSuperSamplingQuality(), 1.0f);
  EXPECT_EQ(manager.getStillSuperSamplingDelay(), 0.0f);

  manager.render();
  EXPECT_EQ(manager.getGLRenderAction()->getNumPasses(), 1);
  SoDB::getSensorManager()->processTimerQueue();  // the delay (0) has passed
  ASSERT_EQ(calls.calls.size(), 1u);
  manager.render();  // the still picture
  EXPECT_EQ(manager.getGLRenderAction()->getNumPasses(), 16);
  SoDB::getSensorManager()->processTimerQueue();
  EXPECT_EQ(calls.calls.size(), 1u) << "a still picture asks for no other";

  // Interactive: no still picture.
  manager.setInteractive(true);
  manager.render();
  SoDB::getSensorManager()->processTimerQueue();
  EXPECT_EQ(calls.calls.size(), 1u);
  EXPECT_EQ(manager.getGLRenderAction()->getNumPasses(), 1);
}

TEST(SceneManager, SettingsAreKeptAndReported) {
  SoSceneManager manager(3);
  EXPECT_EQ(manager.getNumSurfaces(), 3);
  EXPECT_EQ(SoSceneManager(0).getNumSurfaces(), 1);
  EXPECT_FALSE(manager.isActive());
  manager.activate();
  EXPECT_TRUE(manager.isActive());
  manager.deactivate();
  EXPECT_FALSE(manager.isActive());

  EXPECT_TRUE(manager.isRGBMode());
  manager.setRGBMode(false);
  EXPECT_FALSE(manager.isRGBMode());
  manager.setBackgroundIndex(7);
  EXPECT_EQ(manager.getBackgroundIndex(), 7);

  EXPECT_FALSE(manager.isAutoInteractiveMode());
  manager.setAutoInteractiveMode(true);
  EXPECT_TRUE(manager.isAutoInteractiveMode());

  bool floating = true;
  int bits = 0;
  manager.getFloatingColorBuffer(floating, bits);
  EXPECT_FALSE(floating);
  manager.setFloatingColorBuffer(true, 32);
  manager.getFloatingColorBuffer(floating, bits);
  EXPECT_TRUE(floating);
  EXPECT_EQ(bits, 32);

  SoGLContext* context = new SoGLContext(SoGLFormat());
  context->ref();
  const SbGLShareContext share(context, 5);
  manager.setShareContext(share, true);
  EXPECT_EQ(manager.getShareContext(), share);
  EXPECT_EQ(manager.getShareContext().getShareGroupId(), 5);
  context->unref();

  // The realTime global field gets the time of day at each render (here
  // without a drawable: only the field is looked at).
  auto* realTime = static_cast<SoSFTime*>(SoDB::getGlobalField("realTime"));
  ASSERT_NE(realTime, nullptr);
  realTime->setValue(SbTime(0.0));
  EXPECT_TRUE(manager.isRealTimeUpdateEnabled());
  manager.updateRealTimeSensor();
  EXPECT_NEAR(realTime->getValue().getValue(), SbTime::getTimeOfDay().getValue(), 5.0);
  manager.enableRealTimeUpdate(false);
  EXPECT_FALSE(manager.isRealTimeUpdateEnabled());
}

}  // namespace
