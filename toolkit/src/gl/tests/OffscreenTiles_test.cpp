// Pictures drawn in tiles: equal to the same picture drawn in one piece,
// where the geometry predicts, seen tile by tile by an observer; and the
// buffer's kinds of components and JPEG bytes.

#include <Orvex/SoOffscreenTileObserver.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoDirectionalLight.h>
#include <Orvex/nodes/SoMaterialBinding.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoTranslation.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <string>
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

// A lit perspective scene with curved and slanted surfaces, per-vertex
// colours and a transparent part: edges everywhere, at every angle.
void buildBusyScene(SoSeparator* root) {
  auto* cam = new SoPerspectiveCamera;
  cam->position.setValue(0.3f, 0.2f, 6.0f);
  cam->nearDistance = 1.0f;
  cam->farDistance = 20.0f;
  root->addChild(cam);
  auto* light = new SoDirectionalLight;
  light->direction.setValue(-0.3f, -0.5f, -1.0f);
  root->addChild(light);
  root->addChild(diffuse(0.9f, 0.5f, 0.2f));
  root->addChild(new SoSphere);
  auto* move = new SoTranslation;
  move->translation.setValue(1.6f, 0.7f, -1.0f);
  root->addChild(move);
  auto* cube = new SoCube;
  cube->width = 1.5f;
  root->addChild(diffuse(0.2f, 0.4f, 0.9f, 0.4f));
  root->addChild(cube);
  auto* perVertex = new SoMaterial;
  const float colors[4][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 1}};
  perVertex->diffuseColor.setValues(0, 4, colors);
  root->addChild(perVertex);
  auto* binding = new SoMaterialBinding;
  binding->value = SoMaterialBinding::PER_VERTEX;
  root->addChild(binding);
  addQuad(root, -5.0f, -2.5f, -1.5f, -0.5f, -0.5f);
}

std::vector<unsigned char> bufferOf(const SoOffscreenRenderer& r) {
  return std::vector<unsigned char>(r.getBuffer(), r.getBuffer() + r.getBufferSize());
}

// Compares two pictures of the same size region by region (blocks of
// `block` pixels): in each region, how many pixels have a channel that
// differs by more than `tolerance`.
struct RegionComparison {
  int regions = 0;
  int regionsWithDifferences = 0;
  long differingPixels = 0;
  long mostInOneRegion = 0;
};

RegionComparison compareRegions(const std::vector<unsigned char>& a, const std::vector<unsigned char>& b, int width,
                                int height, int components, int block, int tolerance) {
  RegionComparison result;
  for (int by = 0; by < height; by += block) {
    for (int bx = 0; bx < width; bx += block) {
      ++result.regions;
      long differing = 0;
      for (int y = by; y < std::min(height, by + block); ++y) {
        for (int x = bx; x < std::min(width, bx + block); ++x) {
          const size_t at = (static_cast<size_t>(y) * width + x) * components;
          bool same = true;
          for (int c = 0; c < components; ++c) same = same && std::abs(a[at + c] - b[at + c]) <= tolerance;
          if (!same) ++differing;
        }
      }
      if (differing > 0) ++result.regionsWithDifferences;
      result.differingPixels += differing;
      result.mostInOneRegion = std::max(result.mostInOneRegion, differing);
    }
  }
  return result;
}

TEST(OffscreenTiles, TiledPictureEqualsTheOnePiecePicture) {
  Root root;
  buildBusyScene(root.node);
  const short width = 301, height = 203;  // not multiples of the tiles
  SoOffscreenRenderer whole(SbViewportRegion(width, height));
  whole.setComponents(SoOffscreenRenderer::RGBA);
  ASSERT_TRUE(whole.render(root.node));
  const auto reference = bufferOf(whole);

  for (const SbVec2s tile : {SbVec2s(64, 48), SbVec2s(100, 203), SbVec2s(301, 7)}) {
    SoOffscreenRenderer tiled(SbViewportRegion(width, height));
    tiled.setComponents(SoOffscreenRenderer::RGBA);
    tiled.setMaxTileSize(tile);
    ASSERT_TRUE(tiled.render(root.node));
    ASSERT_EQ(tiled.getBufferSize(), reference.size());
    // A tile's projection is the picture's scaled and shifted, so a pixel
    // whose centre lies on an edge up to rounding may fall either side:
    // such pixels are rare and isolated; everything else is equal.
    const RegionComparison cmp = compareRegions(bufferOf(tiled), reference, width, height, 4, 16, 1);
    EXPECT_EQ(cmp.regions, 19 * 13);
    EXPECT_LE(cmp.mostInOneRegion, 1) << "tile " << tile[0] << "x" << tile[1];
    EXPECT_LE(cmp.differingPixels, 3) << "tile " << tile[0] << "x" << tile[1] << ": in "
                                      << cmp.regionsWithDifferences << " regions";
  }
}

TEST(OffscreenTiles, OnePixelTilesMakeTheSamePicture) {
  Root root;
  buildBusyScene(root.node);
  SoOffscreenRenderer whole(SbViewportRegion(5, 3));
  ASSERT_TRUE(whole.render(root.node));
  SoOffscreenRenderer tiled(SbViewportRegion(5, 3));
  tiled.setMaxTileSize(SbVec2s(1, 1));
  ASSERT_TRUE(tiled.render(root.node));
  const RegionComparison cmp = compareRegions(bufferOf(tiled), bufferOf(whole), 5, 3, 3, 1, 1);
  EXPECT_LE(cmp.differingPixels, 1);

  // And a single pixel as a single tile.
  SoOffscreenRenderer one(SbViewportRegion(1, 1));
  one.setMaxTileSize(SbVec2s(1, 1));
  ASSERT_TRUE(one.render(root.node));
  EXPECT_EQ(one.getBufferSize(), 3u);
}

// Records every tile it is shown; answers ABORT at tile `abortAt`.
class RecordingObserver : public SoOffscreenTileObserver {
 public:
  struct Seen {
    SbVec2i32 origin, size, index, numTiles, picture;
    std::vector<unsigned char> pixels;
    int components;
  };
  std::vector<Seen> tiles;
  int abortAt = -1;

  SoOffscreenRenderer::AbortCodes tileRendered(const SoOffscreenTileProperty& tile) override {
    Seen seen{tile.getOrigin(), tile.getSize(), tile.getIndex(), tile.getNumTiles(), tile.getPictureSize(),
              std::vector<unsigned char>(tile.getBuffer(), tile.getBuffer() + tile.getBufferSize()),
              tile.getNumComponents()};
    tiles.push_back(std::move(seen));
    return static_cast<int>(tiles.size()) - 1 == abortAt ? SoOffscreenRenderer::ABORT : SoOffscreenRenderer::CONTINUE;
  }
};

TEST(OffscreenTiles, ObserverSeesEachTileBottomRowFirst) {
  Root root;
  buildBusyScene(root.node);
  SoOffscreenRenderer r(SbViewportRegion(50, 30));
  r.setComponents(SoOffscreenRenderer::LUMINANCETRANSPARENCY);
  r.setMaxTileSize(SbVec2s(20, 16));
  RecordingObserver observer;
  r.setTileObserver(&observer);
  EXPECT_EQ(r.getTileObserver(), &observer);
  ASSERT_TRUE(r.render(root.node));

  // 50 = 20 + 20 + 10 across, 30 = 16 + 14 up.
  ASSERT_EQ(observer.tiles.size(), 6u);
  const int widths[3] = {20, 20, 10};
  const int heights[2] = {16, 14};
  for (size_t i = 0; i < observer.tiles.size(); ++i) {
    const auto& t = observer.tiles[i];
    const int column = static_cast<int>(i % 3), row = static_cast<int>(i / 3);
    EXPECT_EQ(t.index, SbVec2i32(column, row)) << i;
    EXPECT_EQ(t.origin, SbVec2i32(column * 20, row * 16)) << i;
    EXPECT_EQ(t.size, SbVec2i32(widths[column], heights[row])) << i;
    EXPECT_EQ(t.numTiles, SbVec2i32(3, 2));
    EXPECT_EQ(t.picture, SbVec2i32(50, 30));
    EXPECT_EQ(t.components, 2);
    // The tile's pixels are the picture's pixels at its place.
    ASSERT_EQ(t.pixels.size(), static_cast<size_t>(t.size[0] * t.size[1] * 2));
    for (int y = 0; y < t.size[1]; ++y) {
      const unsigned char* inPicture = r.getBuffer() + ((t.origin[1] + y) * 50 + t.origin[0]) * 2;
      EXPECT_EQ(0, std::memcmp(t.pixels.data() + y * t.size[0] * 2, inPicture, static_cast<size_t>(t.size[0] * 2)))
          << "tile " << i << " row " << y;
    }
  }

  // ABORT after the second tile: no more tiles, no picture.
  RecordingObserver stopper;
  stopper.abortAt = 1;
  r.setTileObserver(&stopper);
  EXPECT_FALSE(r.render(root.node));
  EXPECT_EQ(stopper.tiles.size(), 2u);
  EXPECT_EQ(r.getBuffer(), nullptr);
  EXPECT_EQ(r.getBufferSize(), 0u);

  // The base observer goes on.
  SoOffscreenTileObserver plain;
  r.setTileObserver(&plain);
  EXPECT_TRUE(r.render(root.node));
}

TEST(OffscreenTiles, Picture4096SquareMatchesPredictedGeometry) {
  // An orthographic view 4 units high of a 2 x 2 face: exactly the middle
  // half of the picture, columns and rows 1024 to 3071.
  const int size = 4096;
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(diffuse(1.0f, 1.0f, 1.0f));
  root->addChild(new SoCube);
  SoOffscreenRenderer tiled(SbViewportRegion(size, size));
  tiled.setMaxTileSize(SbVec2s(1000, 1500));  // 5 x 3 tiles, partial ones at the ends
  RecordingObserver observer;
  tiled.setTileObserver(&observer);
  ASSERT_TRUE(tiled.render(root.node));
  EXPECT_EQ(observer.tiles.size(), 15u);
  ASSERT_EQ(tiled.getBufferSize(), static_cast<size_t>(size) * size * 3);

  long lit = 0;
  int minX = size, maxX = -1, minY = size, maxY = -1;
  const unsigned char* p = tiled.getBuffer();
  for (int y = 0; y < size; ++y) {
    for (int x = 0; x < size; ++x, p += 3) {
      if (p[0] <= 127) continue;
      ++lit;
      minX = std::min(minX, x);
      maxX = std::max(maxX, x);
      minY = std::min(minY, y);
      maxY = std::max(maxY, y);
    }
  }
  EXPECT_EQ(minX, 1024);
  EXPECT_EQ(maxX, 3071);
  EXPECT_EQ(minY, 1024);
  EXPECT_EQ(maxY, 3071);
  EXPECT_EQ(lit, 2048L * 2048L);

  // Where the driver can draw it in one piece, that picture is the same.
  const SbVec2s max = SoOffscreenRenderer::getMaximumResolution();
  if (max[0] >= size && max[1] >= size) {
    SoOffscreenRenderer whole(SbViewportRegion(size, size));
    ASSERT_TRUE(whole.render(root.node));
    const RegionComparison cmp = compareRegions(bufferOf(tiled), bufferOf(whole), size, size, 3, 256, 0);
    EXPECT_EQ(cmp.regions, 256);
    EXPECT_EQ(cmp.regionsWithDifferences, 0) << cmp.differingPixels;
  }
}

TEST(OffscreenTiles, ComponentKindsAreDistinctAndSized) {
  using R = SoOffscreenRenderer;
  const R::Components kinds[] = {R::LUMINANCE, R::LUMINANCETRANSPARENCY, R::RGB, R::RGBTRANSPARENCY, R::RGBA};
  const int bytes[] = {1, 2, 3, 4, 4};
  for (size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(R::getNumComponents(kinds[i]), bytes[i]);
    for (size_t j = 0; j < i; ++j) EXPECT_NE(static_cast<int>(kinds[i]), static_cast<int>(kinds[j]));
  }
  // RGBA and RGBTRANSPARENCY give the same bytes: alpha 0 on the
  // background, 255 on the opaque face.
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(diffuse(0.0f, 1.0f, 0.0f));
  root->addChild(new SoCube);
  std::vector<unsigned char> pictures[2];
  const R::Components four[2] = {R::RGBA, R::RGBTRANSPARENCY};
  for (int i = 0; i < 2; ++i) {
    R r(SbViewportRegion(8, 8));
    r.setComponents(four[i]);
    EXPECT_EQ(r.getComponents(), four[i]);
    ASSERT_TRUE(r.render(root.node));
    EXPECT_EQ(pixel(r, 0, 0), (std::array<int, 4>{0, 0, 0, 0}));
    EXPECT_EQ(pixel(r, 4, 4), (std::array<int, 4>{0, 255, 0, 255}));
    pictures[i] = bufferOf(r);
  }
  EXPECT_EQ(pictures[0], pictures[1]);
}

TEST(OffscreenTiles, JpegBufferHoldsTheFileBytes) {
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(diffuse(0.2f, 0.6f, 1.0f));
  root->addChild(new SoCube);
  SoOffscreenRenderer r(SbViewportRegion(32, 24));
  EXPECT_EQ(r.getBufferType(), SoOffscreenRenderer::RGBBUFFER);
  r.setBufferType(SoOffscreenRenderer::JPEGBUFFER);
  r.setJPEGQuality(0.8f);
  ASSERT_TRUE(r.render(root.node));
  ASSERT_GT(r.getBufferSize(), 4u);
  EXPECT_NE(r.getBufferSize(), 32u * 24u * 3u);
  const unsigned char* b = r.getBuffer();
  // Start-of-image and end-of-image markers.
  EXPECT_EQ(b[0], 0xFF);
  EXPECT_EQ(b[1], 0xD8);
  EXPECT_EQ(b[r.getBufferSize() - 2], 0xFF);
  EXPECT_EQ(b[r.getBufferSize() - 1], 0xD9);
  // The same bytes as the file written at that quality.
  const std::string file = std::string(::testing::TempDir()) + "orvexgl_tiles_" + std::to_string(::getpid()) + ".jpg";
  ASSERT_TRUE(r.writeToJPEG(file.c_str(), 0.8f));
  std::vector<unsigned char> fromFile;
  if (FILE* f = std::fopen(file.c_str(), "rb")) {
    unsigned char chunk[4096];
    size_t n;
    while ((n = std::fread(chunk, 1, sizeof chunk, f)) > 0) fromFile.insert(fromFile.end(), chunk, chunk + n);
    std::fclose(f);
  }
  std::remove(file.c_str());
  EXPECT_EQ(fromFile, bufferOf(r));

  // Back to raw pixels.
  r.setBufferType(SoOffscreenRenderer::RGBBUFFER);
  ASSERT_TRUE(r.render(root.node));
  EXPECT_EQ(r.getBufferSize(), 32u * 24u * 3u);
}

}  // namespace
