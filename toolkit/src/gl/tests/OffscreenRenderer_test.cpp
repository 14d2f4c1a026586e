// The offscreen renderer's buffer: components, alpha, repeatability, size
// limits, and the files it writes.

#include <Orvex/SoPath.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoLightModel.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoTranslation.h>
#include <png.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "RenderTestSupport.h"

using gltest::pixel;
using gltest::Root;

namespace {

const ::testing::Environment* const kEnv = ::testing::AddGlobalTestEnvironment(new gltest::DatabaseEnvironment);

// A cube of colour `rgb` filling the middle half of the view (orthographic
// camera 4 units high, cube 2 units wide), lit by nothing (base colour).
void buildScene(SoSeparator* root, const SbColor& rgb) {
  auto* cam = new SoOrthographicCamera;
  cam->position.setValue(0.0f, 0.0f, 10.0f);
  cam->height = 4.0f;
  root->addChild(cam);
  auto* model = new SoLightModel;
  model->model = SoLightModel::BASE_COLOR;
  root->addChild(model);
  auto* material = new SoMaterial;
  material->diffuseColor.setValue(rgb);
  root->addChild(material);
  root->addChild(new SoCube);
}

std::string tempPath(const char* suffix) {
  return std::string(::testing::TempDir()) + "orvexgl_" + std::to_string(::getpid()) + suffix;
}

TEST(OffscreenRenderer, Defaults) {
  SoOffscreenRenderer r(SbViewportRegion(10, 20));
  EXPECT_EQ(r.getComponents(), SoOffscreenRenderer::RGB);
  EXPECT_EQ(r.getBackgroundColor(), SbColor(0.0f, 0.0f, 0.0f));
  EXPECT_EQ(r.getViewportRegion().getWindowSize(), SbVec2s(10, 20));
  EXPECT_EQ(r.getBuffer(), nullptr);
  EXPECT_EQ(r.getBufferSize(), 0u);
  EXPECT_FALSE(r.writeToPNG(tempPath("none.png").c_str()));
  EXPECT_FALSE(r.render(static_cast<SoNode*>(nullptr)));
  EXPECT_NE(r.getGLRenderAction(), nullptr);
}

TEST(OffscreenRenderer, AlphaIsZeroWhereNothingWasDrawn) {
  Root root;
  buildScene(root.node, SbColor(0.2f, 0.4f, 0.6f));
  SoOffscreenRenderer r(SbViewportRegion(16, 16));
  r.setComponents(SoOffscreenRenderer::RGBA);
  r.setBackgroundColor(SbColor(1.0f, 1.0f, 0.0f));
  ASSERT_TRUE(r.render(root.node));
  ASSERT_EQ(r.getBufferSize(), 16u * 16u * 4u);
  EXPECT_EQ(pixel(r, 0, 0), (std::array<int, 4>{255, 255, 0, 0}));
  const auto inside = pixel(r, 8, 8);
  EXPECT_EQ(inside[3], 255);
  EXPECT_NEAR(inside[0], 0.2 * 255, 1.0);
  EXPECT_NEAR(inside[1], 0.4 * 255, 1.0);
  EXPECT_NEAR(inside[2], 0.6 * 255, 1.0);
}

TEST(OffscreenRenderer, LuminanceUsesTheUsualWeights) {
  Root root;
  buildScene(root.node, SbColor(0.9f, 0.3f, 0.5f));
  SoOffscreenRenderer r(SbViewportRegion(16, 16));
  r.setBackgroundColor(SbColor(0.0f, 0.0f, 1.0f));
  ASSERT_TRUE(r.render(root.node));
  const auto rgbIn = pixel(r, 8, 8);
  const auto rgbOut = pixel(r, 0, 0);
  r.setComponents(SoOffscreenRenderer::LUMINANCE);
  ASSERT_TRUE(r.render(root.node));
  ASSERT_EQ(r.getBufferSize(), 16u * 16u);
  auto lum = [](const std::array<int, 4>& p) { return 0.299 * p[0] + 0.587 * p[1] + 0.114 * p[2]; };
  EXPECT_NEAR(pixel(r, 8, 8)[0], lum(rgbIn), 0.5 + 1e-9);
  EXPECT_NEAR(pixel(r, 0, 0)[0], lum(rgbOut), 0.5 + 1e-9);
  EXPECT_EQ(pixel(r, 0, 0)[0], 29);  // 0.114 * 255 = 29.07
  r.setComponents(SoOffscreenRenderer::LUMINANCETRANSPARENCY);
  ASSERT_TRUE(r.render(root.node));
  EXPECT_EQ(r.getBufferSize(), 16u * 16u * 2u);
  EXPECT_EQ(pixel(r, 0, 0)[1], 0);
  EXPECT_EQ(pixel(r, 8, 8)[1], 255);
}

TEST(OffscreenRenderer, SameSceneGivesSameBytes) {
  Root root;
  buildScene(root.node, SbColor(0.7f, 0.1f, 0.3f));
  SoOffscreenRenderer a(SbViewportRegion(24, 18));
  ASSERT_TRUE(a.render(root.node));
  const std::vector<unsigned char> first(a.getBuffer(), a.getBuffer() + a.getBufferSize());
  ASSERT_TRUE(a.render(root.node));
  EXPECT_EQ(std::vector<unsigned char>(a.getBuffer(), a.getBuffer() + a.getBufferSize()), first);
  SoOffscreenRenderer b(SbViewportRegion(24, 18));
  ASSERT_TRUE(b.render(root.node));
  EXPECT_EQ(std::vector<unsigned char>(b.getBuffer(), b.getBuffer() + b.getBufferSize()), first);
}

TEST(OffscreenRenderer, OnePixel) {
  Root root;
  buildScene(root.node, SbColor(0.0f, 1.0f, 0.0f));
  SoOffscreenRenderer r(SbViewportRegion(1, 1));
  ASSERT_TRUE(r.render(root.node));
  ASSERT_EQ(r.getBufferSize(), 3u);
  EXPECT_EQ(pixel(r, 0, 0), (std::array<int, 4>{0, 255, 0, 255}));
}

TEST(OffscreenRenderer, RowsGoBottomUp) {
  Root root;
  buildScene(root.node, SbColor(1.0f, 1.0f, 1.0f));
  auto* move = new SoTranslation;
  move->translation.setValue(0.0f, 1.5f, 0.0f);
  root->insertChild(move, 1);  // the cube in the upper half only
  SoOffscreenRenderer r(SbViewportRegion(8, 8));
  ASSERT_TRUE(r.render(root.node));
  // Cube spans y 0.5 to 2.5 of -2..2: rows 5 to 7 counted from the bottom.
  EXPECT_EQ(r.getBuffer()[0], 0);  // first row in memory: the bottom
  EXPECT_EQ(pixel(r, 4, 7)[0], 255);
  EXPECT_EQ(pixel(r, 4, 1)[0], 0);
}

TEST(OffscreenRenderer, RendersAPath) {
  Root root;
  buildScene(root.node, SbColor(1.0f, 0.0f, 0.0f));
  auto* path = new SoPath(root.node);
  path->ref();
  path->append(3);  // the cube
  SoOffscreenRenderer r(SbViewportRegion(8, 8));
  EXPECT_TRUE(r.render(path));
  EXPECT_EQ(pixel(r, 4, 4), (std::array<int, 4>{255, 0, 0, 255}));
  path->unref();
}

TEST(OffscreenRenderer, MaximumResolutionIsReportedAndBoundsTheTileSize) {
  const SbVec2s max = SoOffscreenRenderer::getMaximumResolution();
  EXPECT_GE(max[0], 1024);
  EXPECT_GE(max[1], 1024);
  SoOffscreenRenderer r(SbViewportRegion(8, 8));
  EXPECT_EQ(r.getMaxTileSize(), max);
  r.setMaxTileSize(SbVec2s(100, 0));
  EXPECT_EQ(r.getMaxTileSize(), SbVec2s(100, max[1]));
  if (max[0] < 32767) {
    r.setMaxTileSize(SbVec2s(static_cast<short>(max[0] + 1), 5));
    EXPECT_EQ(r.getMaxTileSize(), SbVec2s(max[0], 5));
  }
}

// Reads a PNG file with libpng into rows top-down, 8 bits per channel.
bool readPNG(const std::string& file, int& width, int& height, int& channels, std::vector<unsigned char>& data) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, file.c_str())) return false;
  channels = PNG_IMAGE_PIXEL_CHANNELS(image.format);
  width = static_cast<int>(image.width);
  height = static_cast<int>(image.height);
  data.resize(PNG_IMAGE_SIZE(image));
  return png_image_finish_read(&image, nullptr, data.data(), 0, nullptr) != 0;
}

TEST(OffscreenRenderer, WritesPNGThatReadsBackTheSame) {
  Root root;
  buildScene(root.node, SbColor(0.25f, 0.5f, 0.75f));
  for (const auto components : {SoOffscreenRenderer::RGB, SoOffscreenRenderer::RGBA, SoOffscreenRenderer::LUMINANCE}) {
    SoOffscreenRenderer r(SbViewportRegion(12, 7));
    r.setComponents(components);
    ASSERT_TRUE(r.render(root.node));
    const std::string file = tempPath(".png");
    ASSERT_TRUE(r.writeToPNG(file.c_str()));
    int w = 0, h = 0, c = 0;
    std::vector<unsigned char> data;
    ASSERT_TRUE(readPNG(file, w, h, c, data));
    std::remove(file.c_str());
    ASSERT_EQ(w, 12);
    ASSERT_EQ(h, 7);
    ASSERT_EQ(c, SoOffscreenRenderer::getNumComponents(components));
    // The file is top-down, the buffer bottom-up.
    const size_t stride = static_cast<size_t>(w * c);
    for (int y = 0; y < h; ++y) {
      const unsigned char* fileRow = data.data() + stride * static_cast<size_t>(y);
      const unsigned char* bufRow = r.getBuffer() + stride * static_cast<size_t>(h - 1 - y);
      EXPECT_EQ(std::vector<unsigned char>(fileRow, fileRow + stride), std::vector<unsigned char>(bufRow, bufRow + stride))
          << "row " << y;
    }
  }
  EXPECT_FALSE(SoOffscreenRenderer(SbViewportRegion(4, 4)).writeToPNG("/nonexistent-dir/x.png"));
}

TEST(OffscreenRenderer, WritesJPEG) {
  Root root;
  buildScene(root.node, SbColor(0.25f, 0.5f, 0.75f));
  SoOffscreenRenderer r(SbViewportRegion(16, 16));
  r.setComponents(SoOffscreenRenderer::RGBA);
  ASSERT_TRUE(r.render(root.node));
  const std::string file = tempPath(".jpg");
  ASSERT_TRUE(r.writeToJPEG(file.c_str(), 0.9f));
  FILE* f = std::fopen(file.c_str(), "rb");
  ASSERT_NE(f, nullptr);
  unsigned char magic[3] = {0, 0, 0};
  EXPECT_EQ(std::fread(magic, 1, 3, f), 3u);
  std::fclose(f);
  std::remove(file.c_str());
  // The JPEG start-of-image marker.
  EXPECT_EQ(magic[0], 0xFF);
  EXPECT_EQ(magic[1], 0xD8);
  EXPECT_EQ(magic[2], 0xFF);
  EXPECT_FALSE(r.writeToJPEG("/nonexistent-dir/x.jpg", 0.5f));
}

}  // namespace
