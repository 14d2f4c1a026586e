// The render action reaches nodes through their GLRender virtuals, so that a
// node class of its own (one written in Java, say) can draw differently.

#include <Orvex/SoPath.h>
#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoGroup.h>
#include <Orvex/nodes/SoLightModel.h>
#include <Orvex/nodes/SoOrthographicCamera.h>

#include <string>
#include <vector>

#include "RenderTestSupport.h"

using gltest::Root;

namespace {

const ::testing::Environment* const kEnv = ::testing::AddGlobalTestEnvironment(new gltest::DatabaseEnvironment);

// A group that records which drawing form the action called, then draws as
// a group does (or not at all, when told to skip).
class RecordingGroup : public SoGroup {
 public:
  std::vector<std::string> calls;
  bool skip = false;

  void GLRender(SoGLRenderAction* action) override {
    calls.push_back("GLRender");
    if (!skip) SoGroup::GLRender(action);
  }
  void GLRenderInPath(SoGLRenderAction* action) override {
    calls.push_back("InPath");
    SoGroup::GLRenderInPath(action);
  }
  void GLRenderBelowPath(SoGLRenderAction* action) override {
    calls.push_back("BelowPath");
    SoGroup::GLRenderBelowPath(action);
  }
  void GLRenderOffPath(SoGLRenderAction* action) override {
    calls.push_back("OffPath");
    SoGroup::GLRenderOffPath(action);
  }
};

// A white unlit cube filling the middle of a 64x64 picture.
struct Scene {
  Root root;
  RecordingGroup* group = new RecordingGroup;
  SoCube* cube = new SoCube;
  Scene() {
    auto* cam = new SoOrthographicCamera;
    cam->position.setValue(0.0f, 0.0f, 10.0f);
    cam->height = 4.0f;
    root->addChild(cam);
    auto* unlit = new SoLightModel;
    unlit->model = SoLightModel::BASE_COLOR;
    root->addChild(unlit);
    root->addChild(group);
    group->addChild(cube);
  }
};

SbViewportRegion square() { return SbViewportRegion(64, 64); }

TEST(NodeGLRender, TheActionCallsTheVirtualAndTheBaseDraws) {
  Scene scene;
  SoOffscreenRenderer renderer(square());
  ASSERT_TRUE(renderer.render(scene.root.node));
  EXPECT_EQ(scene.group->calls, std::vector<std::string>{"GLRender"});
  // The cube spans half the view's height: a 32x32 square.
  EXPECT_NEAR(gltest::countLit(renderer), 32 * 32, 2 * 32);
}

TEST(NodeGLRender, AnOverrideCanSkipDrawing) {
  Scene scene;
  scene.group->skip = true;
  SoOffscreenRenderer renderer(square());
  ASSERT_TRUE(renderer.render(scene.root.node));
  EXPECT_EQ(scene.group->calls, std::vector<std::string>{"GLRender"});
  EXPECT_EQ(gltest::countLit(renderer), 0);
}

TEST(NodeGLRender, APathCallsThePathForms) {
  Scene scene;
  SoPath* path = new SoPath(scene.root.node);
  path->ref();
  path->append(scene.group);
  path->append(scene.cube);
  SoOffscreenRenderer renderer(square());
  ASSERT_TRUE(renderer.render(path));
  ASSERT_FALSE(scene.group->calls.empty());
  EXPECT_EQ(scene.group->calls.front(), "InPath");
  EXPECT_GT(gltest::countLit(renderer), 0);
  path->unref();
}

}  // namespace
