// The declared box of inline nodes as renderers show it, against the
// outline that the orthographic projection predicts.

#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoTranslation.h>
#include <Orvex/nodes/SoWWWInline.h>

#include "RenderTestSupport.h"

using gltest::pixel;
using gltest::Root;

namespace {

const ::testing::Environment* const kEnv = ::testing::AddGlobalTestEnvironment(new gltest::DatabaseEnvironment);

constexpr int kSize = 100;
// 4 units across 100 pixels: world x maps to window x = 25 x + 50.
constexpr float kPixelsPerUnit = 25.0f;

class InlineBox : public ::testing::Test {
 protected:
  void SetUp() override {
    auto* cam = new SoOrthographicCamera;
    cam->position.setValue(0.0f, 0.0f, 10.0f);
    cam->height = 4.0f;
    cam->nearDistance = 1.0f;
    cam->farDistance = 20.0f;
    root->addChild(cam);
    move = new SoTranslation;
    root->addChild(move);
    node = new SoWWWInline;
    // A flat square, half-size 1.02: its edges fall on pixel centres
    // (25 * 1.02 + 50 = 75.5, -25 * 1.02 + 50 = 24.5), columns and rows 24 and 75.
    node->bboxSize.setValue(2.04f, 2.04f, 0.0f);
    root->addChild(node);
    SoWWWInline::setBoundingBoxColor(SbColor(0.0f, 1.0f, 0.0f));
  }
  void TearDown() override {
    SoWWWInline::setBoundingBoxVisibility(SoWWWInline::UNTIL_LOADED);
    SoWWWInline::setBoundingBoxColor(SbColor(1.0f, 1.0f, 1.0f));
  }
  bool green(int x, int y) const {
    const auto p = pixel(renderer, x, y);
    return p[1] > 200 && p[0] < 50 && p[2] < 50;
  }
  bool black(int x, int y) const {
    const auto p = pixel(renderer, x, y);
    return p[0] == 0 && p[1] == 0 && p[2] == 0;
  }
  // Checks the outline of the square whose left and bottom edges are on
  // column/row `lo` and right and top on `hi`.
  void expectOutline(int loX, int hiX, int loY, int hiY) {
    for (int y = loY + 2; y <= hiY - 2; y += 7) {
      EXPECT_TRUE(green(loX, y)) << "left edge, row " << y;
      EXPECT_TRUE(green(hiX, y)) << "right edge, row " << y;
      EXPECT_TRUE(black(loX - 2, y)) << "outside left, row " << y;
      EXPECT_TRUE(black(hiX + 2, y)) << "outside right, row " << y;
      EXPECT_TRUE(black(loX + 3, y)) << "inside left, row " << y;
    }
    for (int x = loX + 2; x <= hiX - 2; x += 7) {
      EXPECT_TRUE(green(x, loY)) << "bottom edge, column " << x;
      EXPECT_TRUE(green(x, hiY)) << "top edge, column " << x;
      EXPECT_TRUE(black(x, loY - 2)) << "below, column " << x;
      EXPECT_TRUE(black(x, hiY + 2)) << "above, column " << x;
    }
    EXPECT_TRUE(black((loX + hiX) / 2, (loY + hiY) / 2));
  }
  int countGreen() const {
    int n = 0;
    for (int y = 0; y < kSize; ++y)
      for (int x = 0; x < kSize; ++x) n += green(x, y) ? 1 : 0;
    return n;
  }

  Root root;
  SoTranslation* move = nullptr;
  SoWWWInline* node = nullptr;
  SoOffscreenRenderer renderer{SbViewportRegion(kSize, kSize)};
};

TEST_F(InlineBox, ADeclaredBoxIsDrawnAsItsOutlineUntilTheDataIsHere) {
  ASSERT_TRUE(renderer.render(root.node));
  expectOutline(24, 75, 24, 75);
  // Four edges of 52 pixels, corners shared: no pixel drawn elsewhere.
  EXPECT_GE(countGreen(), 4 * 50);
  EXPECT_LE(countGreen(), 4 * 53);

  // Moved by 0.4 units: 10 pixels to the right.
  move->translation.setValue(0.4f, 0.0f, 0.0f);
  ASSERT_TRUE(renderer.render(root.node));
  const int shift = static_cast<int>(0.4f * kPixelsPerUnit + 0.5f);
  expectOutline(24 + shift, 75 + shift, 24, 75);

  // The data arrived (nothing visible in it): the box is gone.
  node->setChildData(new SoSeparator);
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(countGreen(), 0);
}

TEST_F(InlineBox, VisibilityDecidesWhenTheBoxIsShown) {
  SoWWWInline::setBoundingBoxVisibility(SoWWWInline::NEVER);
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(countGreen(), 0);

  SoWWWInline::setBoundingBoxVisibility(SoWWWInline::ALWAYS);
  node->setChildData(new SoSeparator);
  ASSERT_TRUE(renderer.render(root.node));
  expectOutline(24, 75, 24, 75);

  // No declared box: nothing to draw.
  node->bboxSize.setValue(0.0f, 0.0f, 0.0f);
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(countGreen(), 0);
}

}  // namespace
