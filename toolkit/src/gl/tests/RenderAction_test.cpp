// The render action's control of a frame: the abort callback's answers,
// transparency drawn in traversal, delayed and sorted order, jittered
// passes, the update area and the render-cache setting.

#include <Orvex/SoDB.h>
#include <Orvex/SoPath.h>
#include <Orvex/SoPathList.h>
#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/nodes/SoCube.h>

#include <GL/gl.h>

#include <memory>
#include <vector>

#include "RenderTestSupport.h"

using gltest::addQuad;
using gltest::baseColor;
using gltest::diffuse;
using gltest::orthoCamera;
using gltest::pixel;
using gltest::Root;

namespace {

const ::testing::Environment* const kEnv = ::testing::AddGlobalTestEnvironment(new gltest::DatabaseEnvironment);

using Rgb = std::array<int, 3>;

Rgb rgbAt(const SoOffscreenRenderer& r, int x, int y) {
  const auto p = pixel(r, x, y);
  return {p[0], p[1], p[2]};
}

void expectRgbNear(const Rgb& actual, const Rgb& expected, int tolerance, const char* what) {
  for (size_t c = 0; c < 3; ++c) EXPECT_NEAR(actual[c], expected[c], tolerance) << what << ", channel " << c;
}

// A separator holding a quad of one colour.
SoSeparator* coloredQuad(float r, float g, float b, float x0, float y0, float x1, float y1, float z,
                         float transparency = 0.0f) {
  auto* sep = new SoSeparator;
  sep->addChild(diffuse(r, g, b, transparency));
  addQuad(sep, x0, y0, x1, y1, z);
  return sep;
}

// ---- abort callback ----------------------------------------------------------------------

// Answers `code` for one node, CONTINUE for the others, and counts calls.
struct AbortAt {
  SoGLRenderAction* action = nullptr;
  SoNode* target = nullptr;
  SoGLRenderAction::AbortCode code = SoGLRenderAction::CONTINUE;
  int calls = 0;

  static SoGLRenderAction::AbortCode callback(void* data) {
    auto* self = static_cast<AbortAt*>(data);
    ++self->calls;
    return self->action->getCurPathTail() == self->target ? self->code : SoGLRenderAction::CONTINUE;
  }
};

// A 20x20 picture 4 units wide: red on the left half, green on the right.
struct TwoHalves {
  TwoHalves() {
    root->addChild(orthoCamera(4.0f));
    root->addChild(baseColor());
    left = coloredQuad(1, 0, 0, -2, -2, 0, 2, 0);
    right = coloredQuad(0, 1, 0, 0, -2, 2, 2, 0);
    root->addChild(left);
    root->addChild(right);
  }
  Root root;
  SoSeparator* left;
  SoSeparator* right;
};

TEST(RenderAction, AbortCallbackStopsPrunesOrGoesOn) {
  TwoHalves scene;
  SoOffscreenRenderer renderer(SbViewportRegion(20, 20));
  SoGLRenderAction* action = renderer.getGLRenderAction();
  AbortAt abort;
  abort.action = action;
  action->setAbortCallback(&AbortAt::callback, &abort);

  // CONTINUE everywhere: asked once per node (root, camera, light model,
  // and 1 + 3 per half), everything drawn.
  ASSERT_TRUE(renderer.render(scene.root.node));
  EXPECT_EQ(abort.calls, 11);
  EXPECT_FALSE(action->hasAborted());
  EXPECT_EQ(rgbAt(renderer, 5, 10), (Rgb{255, 0, 0}));
  EXPECT_EQ(rgbAt(renderer, 15, 10), (Rgb{0, 255, 0}));

  // ABORT at the right half: the left one was drawn, nothing after it is
  // traversed.
  abort.calls = 0;
  abort.target = scene.right;
  abort.code = SoGLRenderAction::ABORT;
  ASSERT_TRUE(renderer.render(scene.root.node));
  EXPECT_TRUE(action->hasAborted());
  EXPECT_EQ(abort.calls, 8);
  EXPECT_EQ(rgbAt(renderer, 5, 10), (Rgb{255, 0, 0}));
  EXPECT_EQ(rgbAt(renderer, 15, 10), (Rgb{0, 0, 0}));

  // PRUNE at the left half: skipped with what is under it, the rest drawn.
  abort.calls = 0;
  abort.target = scene.left;
  abort.code = SoGLRenderAction::PRUNE;
  ASSERT_TRUE(renderer.render(scene.root.node));
  EXPECT_FALSE(action->hasAborted());
  EXPECT_EQ(abort.calls, 8);
  EXPECT_EQ(rgbAt(renderer, 5, 10), (Rgb{0, 0, 0}));
  EXPECT_EQ(rgbAt(renderer, 15, 10), (Rgb{0, 255, 0}));

  action->setAbortCallback(nullptr, nullptr);
  ASSERT_TRUE(renderer.render(scene.root.node));
  EXPECT_EQ(rgbAt(renderer, 5, 10), (Rgb{255, 0, 0}));
}

TEST(RenderAction, DelayedNodeIsDrawnAfterTheRest) {
  // Two quads at the same depth: with the default LESS depth test the one
  // drawn first keeps the pixel.
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  SoSeparator* red = coloredQuad(1, 0, 0, -1, -1, 1, 1, 0);
  root->addChild(red);
  root->addChild(coloredQuad(0, 1, 0, -1, -1, 1, 1, 0));
  SoOffscreenRenderer renderer(SbViewportRegion(16, 16));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(rgbAt(renderer, 8, 8), (Rgb{255, 0, 0}));

  AbortAt abort;
  abort.action = renderer.getGLRenderAction();
  abort.target = red;
  abort.code = SoGLRenderAction::DELAY;
  abort.action->setAbortCallback(&AbortAt::callback, &abort);
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(rgbAt(renderer, 8, 8), (Rgb{0, 255, 0}));
  // The delayed red quad was drawn after all, where nothing else was.
  EXPECT_FALSE(abort.action->hasAborted());
}

// ---- transparency ---------------------------------------------------------------------------

// The centre pixel of a scene rendered with one transparency type.
Rgb centreWith(SoNode* scene, SoGLRenderAction::TransparencyType type) {
  SoOffscreenRenderer renderer(SbViewportRegion(16, 16));
  renderer.getGLRenderAction()->setTransparencyType(type);
  EXPECT_TRUE(renderer.render(scene));
  return rgbAt(renderer, 8, 8);
}

TEST(RenderAction, TransparentInFrontOfOpaqueDrawnAfterTheOpaque) {
  // Traversal order: a half-transparent red quad in front (z = 1), then
  // an opaque green one behind it (z = -1), over a black background.
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(coloredQuad(1, 0, 0, -1, -1, 1, 1, 1.0f, 0.5f));
  root->addChild(coloredQuad(0, 1, 0, -2, -2, 2, 2, -1.0f));
  // Opaque red wins by depth.
  expectRgbNear(centreWith(root.node, SoGLRenderAction::NOTRANSPARENCY), {255, 0, 0}, 1, "NOTRANSPARENCY");
  // Red blended over black first; its depth then hides the green.
  expectRgbNear(centreWith(root.node, SoGLRenderAction::BLEND), {128, 0, 0}, 2, "BLEND");
  // Green first, then red at opacity 0.5 over it.
  expectRgbNear(centreWith(root.node, SoGLRenderAction::DELAYEDBLEND), {128, 128, 0}, 2, "DELAYEDBLEND");
  expectRgbNear(centreWith(root.node, SoGLRenderAction::SORTEDOBJECTBLEND), {128, 128, 0}, 2, "SORTEDOBJECTBLEND");
}

TEST(RenderAction, DelayedTransparencyKeepsTraversalOrderSortedGoesBackToFront) {
  // Traversal order: a half-transparent red quad in front (z = 1), then a
  // half-transparent blue one behind it (z = -1).
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(coloredQuad(1, 0, 0, -1, -1, 1, 1, 1.0f, 0.5f));
  root->addChild(coloredQuad(0, 0, 1, -1, -1, 1, 1, -1.0f, 0.5f));
  // The red one writes depth: the blue one fails the depth test.
  expectRgbNear(centreWith(root.node, SoGLRenderAction::BLEND), {128, 0, 0}, 2, "BLEND");
  // No depth written: red over black (0.5, 0, 0), then blue over that.
  expectRgbNear(centreWith(root.node, SoGLRenderAction::DELAYEDBLEND), {64, 0, 128}, 2, "DELAYEDBLEND");
  // Farthest first: blue over black (0, 0, 0.5), then red over that.
  expectRgbNear(centreWith(root.node, SoGLRenderAction::SORTEDOBJECTBLEND), {128, 0, 64}, 2, "SORTEDOBJECTBLEND");
}

TEST(RenderAction, PathListsGetTheDelayedTransparentShapesToo) {
  // The two half-transparent quads of the test above, each reached by its
  // own path: applied as a list, the sorted kind still draws the far one
  // first.
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(coloredQuad(1, 0, 0, -1, -1, 1, 1, 1.0f, 0.5f));
  root->addChild(coloredQuad(0, 0, 1, -1, -1, 1, 1, -1.0f, 0.5f));
  SoPathList paths;
  for (int child : {2, 3}) {
    auto* path = new SoPath(root.node);
    path->append(child);
    paths.append(path);
  }
  SoOffscreenRenderer renderer(SbViewportRegion(16, 16));
  ASSERT_TRUE(renderer.render(root.node));  // sets up the context and buffer
  SoGLRenderAction* action = renderer.getGLRenderAction();
  action->setTransparencyType(SoGLRenderAction::SORTEDOBJECTBLEND);
  // Draw the list into the renderer's framebuffer through a pass callback
  // of a one-node render: the renderer's context is current there.
  struct ListDrawer {
    SoGLRenderAction* inner;
    const SoPathList* paths;
    static SoGLRenderAction::AbortCode callback(void* data) {
      auto* self = static_cast<ListDrawer*>(data);
      self->inner->apply(*self->paths);
      return SoGLRenderAction::ABORT;
    }
  };
  SoGLRenderAction inner(SbViewportRegion(16, 16));
  inner.setTransparencyType(SoGLRenderAction::SORTEDOBJECTBLEND);
  ListDrawer drawer{&inner, &paths};
  action->setAbortCallback(&ListDrawer::callback, &drawer);
  ASSERT_TRUE(renderer.render(root.node));
  expectRgbNear(rgbAt(renderer, 8, 8), {128, 0, 64}, 2, "path list, SORTEDOBJECTBLEND");
}

TEST(RenderAction, SortingFollowsTheCameraNotTheCoordinates) {
  // The same two quads seen from behind (camera on -z looking at +z): now
  // the blue one is in front, so sorted blending draws the red one first.
  Root root;
  auto* cam = orthoCamera(4.0f);
  cam->position.setValue(0.0f, 0.0f, -10.0f);
  cam->orientation.setValue(SbRotation(SbVec3f(0.0f, 1.0f, 0.0f), static_cast<float>(M_PI)));
  root->addChild(cam);
  root->addChild(baseColor());
  root->addChild(coloredQuad(1, 0, 0, -1, -1, 1, 1, 1.0f, 0.5f));
  root->addChild(coloredQuad(0, 0, 1, -1, -1, 1, 1, -1.0f, 0.5f));
  // Red over black (0.5, 0, 0), then blue over that.
  expectRgbNear(centreWith(root.node, SoGLRenderAction::SORTEDOBJECTBLEND), {64, 0, 128}, 2, "SORTEDOBJECTBLEND");
}

// ---- passes -----------------------------------------------------------------------------------

struct PassCounter {
  SoGLRenderAction* action = nullptr;
  std::vector<int> passes;
  static void callback(void* data) {
    auto* self = static_cast<PassCounter*>(data);
    self->passes.push_back(self->action->getCurPass());
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  }
};

TEST(RenderAction, PassesAverageSubPixelSamples) {
  // 16 pixels for 2 units: a quad from the left border to 0.75 pixel into
  // column 8, whose centre is at 8.5 pixels.
  const float pixelsPerUnit = 8.0f;
  const float edge = 8.75f / pixelsPerUnit - 1.0f;
  Root root;
  root->addChild(orthoCamera(2.0f));
  root->addChild(baseColor());
  root->addChild(coloredQuad(1, 1, 1, -1.5f, -1.5f, edge, 1.5f, 0.0f));
  SoOffscreenRenderer renderer(SbViewportRegion(16, 16));
  SoGLRenderAction* action = renderer.getGLRenderAction();
  EXPECT_EQ(action->getNumPasses(), 1);

  // One pass samples the centre, which is covered.
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(pixel(renderer, 8, 8)[0], 255);

  // With 4 passes column 8 is sampled at 8.5 - (k + 0.5) / 4 + 0.5 pixels:
  // 8.875, 8.625, 8.375, 8.125; three of them lie left of the edge.
  action->setNumPasses(4);
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_NEAR(pixel(renderer, 8, 8)[0], 0.75 * 255, 2.0);
  EXPECT_EQ(pixel(renderer, 7, 8)[0], 255);
  EXPECT_EQ(pixel(renderer, 9, 8)[0], 0);

  // The pass callback runs before passes 1, 2 and 3 and does the clearing.
  PassCounter counter;
  counter.action = action;
  action->setPassCallback(&PassCounter::callback, &counter);
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(counter.passes, (std::vector<int>{1, 2, 3}));
  EXPECT_NEAR(pixel(renderer, 8, 8)[0], 0.75 * 255, 2.0);
  EXPECT_EQ(action->getCurPass(), 0);

  action->setNumPasses(0);
  EXPECT_EQ(action->getNumPasses(), 1);
  action->setNumPasses(1 << 30);
  EXPECT_EQ(action->getNumPasses(), 256);
}

// ---- update area ----------------------------------------------------------------------------

TEST(RenderAction, DrawsOnlyInsideTheUpdateArea) {
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(coloredQuad(1, 0, 0, -3, -3, 3, 3, 0));
  SoOffscreenRenderer renderer(SbViewportRegion(20, 20));
  SoGLRenderAction* action = renderer.getGLRenderAction();
  SbVec2f origin, size;
  action->getUpdateArea(origin, size);
  EXPECT_EQ(origin, SbVec2f(0.0f, 0.0f));
  EXPECT_EQ(size, SbVec2f(1.0f, 1.0f));

  action->setUpdateArea(SbVec2f(0.25f, 0.5f), SbVec2f(0.5f, 0.25f));
  ASSERT_TRUE(renderer.render(root.node));
  // Columns 5 to 14, rows 10 to 14.
  int lit = 0;
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 20; ++x) {
      const bool inside = x >= 5 && x < 15 && y >= 10 && y < 15;
      EXPECT_EQ(pixel(renderer, x, y)[0], inside ? 255 : 0) << x << ", " << y;
      lit += inside;
    }
  }
  EXPECT_EQ(gltest::countLit(renderer), lit);

  // Out-of-range values are clamped to the viewport.
  action->setUpdateArea(SbVec2f(-1.0f, 0.5f), SbVec2f(3.0f, 2.0f));
  action->getUpdateArea(origin, size);
  EXPECT_EQ(origin, SbVec2f(0.0f, 0.5f));
  EXPECT_EQ(size, SbVec2f(1.0f, 1.0f));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(gltest::countLit(renderer), 20 * 10);
}

// ---- render caches -------------------------------------------------------------------------

// A cube that counts how often its primitives are generated.
class CountingCube : public SoCube {
 public:
  int generations = 0;

 protected:
  void generatePrimitives(SoAction* action) override {
    ++generations;
    SoCube::generatePrimitives(action);
  }
};

// Restores the database's render-cache count at the end of a test.
struct RenderCacheCount {
  RenderCacheCount() : saved(SoDB::getNumRenderCaches()) {}
  ~RenderCacheCount() { SoDB::setNumRenderCaches(saved); }
  int saved;
};

TEST(RenderAction, ShapeArraysAreKeptUnlessRenderCachingIsOff) {
  RenderCacheCount restore;
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  auto* cube = new CountingCube;
  root->addChild(cube);
  SoOffscreenRenderer renderer(SbViewportRegion(20, 20));

  SoDB::setNumRenderCaches(2);
  ASSERT_TRUE(renderer.render(root.node));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(cube->generations, 1);
  EXPECT_EQ(gltest::countLit(renderer, 100), 100);

  SoDB::setNumRenderCaches(0);
  ASSERT_TRUE(renderer.render(root.node));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(cube->generations, 3);
  EXPECT_EQ(gltest::countLit(renderer, 100), 100);

  // Back on: kept again after one more build.
  SoDB::setNumRenderCaches(1);
  ASSERT_TRUE(renderer.render(root.node));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(cube->generations, 4);
}

}  // namespace

namespace {

TEST(RenderAction, OneActionDrawsInContextsThatShareNothing) {
  // The action keeps its shapes' arrays in buffer objects of the context
  // they were first drawn in; another renderer has its own context, where
  // those names mean nothing, and must still get the picture.
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(diffuse(0.0f, 0.0f, 1.0f));
  root->addChild(new SoCube);
  SoGLRenderAction action(SbViewportRegion(20, 20));
  auto first = std::make_unique<SoOffscreenRenderer>(&action);
  ASSERT_TRUE(first->render(root.node));
  const std::vector<unsigned char> picture(first->getBuffer(), first->getBuffer() + first->getBufferSize());
  EXPECT_EQ(rgbAt(*first, 10, 10), (Rgb{0, 0, 255}));
  SoOffscreenRenderer second(&action);
  ASSERT_TRUE(second.render(root.node));
  EXPECT_EQ(std::vector<unsigned char>(second.getBuffer(), second.getBuffer() + second.getBufferSize()), picture);
  // The first context may go; the action goes on drawing in the second.
  first.reset();
  ASSERT_TRUE(second.render(root.node));
  EXPECT_EQ(std::vector<unsigned char>(second.getBuffer(), second.getBuffer() + second.getBufferSize()), picture);
  action.invalidateCaches();
  ASSERT_TRUE(second.render(root.node));
  EXPECT_EQ(rgbAt(second, 10, 10), (Rgb{0, 0, 255}));
  int blue = 0;
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 20; ++x) blue += rgbAt(second, x, y) == Rgb{0, 0, 255};
  EXPECT_EQ(blue, 10 * 10);  // 2 of 4 units each way
}

}  // namespace
