// Textured shapes compared with the texel that the texture coordinates,
// the texture transformation and the camera predict for each pixel.

#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/nodes/SoComplexity.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoFaceSet.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoLightModel.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoTexture2.h>
#include <Orvex/nodes/SoTexture2Transform.h>
#include <Orvex/nodes/SoTextureCoordinate2.h>
#include <Orvex/nodes/SoTextureCoordinateBinding.h>

#include <png.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

#include "RenderTestSupport.h"

using gltest::pixel;
using gltest::Root;

namespace {

const ::testing::Environment* const kEnv = ::testing::AddGlobalTestEnvironment(new gltest::DatabaseEnvironment);

constexpr int kSize = 64;

using Rgb = std::array<int, 3>;

// Four texels, rows from the bottom: red, green / blue, yellow.
const unsigned char kTexels[2][2][3] = {{{255, 0, 0}, {0, 255, 0}}, {{0, 0, 255}, {255, 255, 0}}};

Rgb texel(int s, int t) { return {kTexels[t][s][0], kTexels[t][s][1], kTexels[t][s][2]}; }

SoTexture2* fourTexelTexture() {
  auto* texture = new SoTexture2;
  texture->image.setValue(SbVec2i32(2, 2), 3, &kTexels[0][0][0]);
  texture->minFilter = SoTexture2::NEAREST;
  texture->magFilter = SoTexture2::NEAREST;
  return texture;
}

// The scene: a camera showing [-1, 1] x [-1, 1], unlit colours, a white
// material unless given, then `setup` adds texture nodes, then the square
// [-1, 1]^2 at z = 0 with the default texture coordinates (s along x, t
// along y, 0 to 1).
void buildSquareScene(SoSeparator* root, const std::function<void(SoSeparator*)>& setup,
                      const SbColor& material = SbColor(1.0f, 1.0f, 1.0f)) {
  auto* camera = new SoOrthographicCamera;
  camera->position.setValue(0.0f, 0.0f, 5.0f);
  camera->height = 2.0f;
  root->addChild(camera);
  auto* model = new SoLightModel;
  model->model = SoLightModel::BASE_COLOR;
  root->addChild(model);
  auto* m = new SoMaterial;
  m->diffuseColor.setValue(material);
  root->addChild(m);
  setup(root);
  auto* coords = new SoCoordinate3;
  const float pts[4][3] = {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};
  coords->point.setValues(0, 4, pts);
  root->addChild(coords);
  auto* face = new SoFaceSet;
  face->numVertices.setValue(4);
  root->addChild(face);
}

// Texture coordinates at the centre of pixel (x, y) of the square.
SbVec2f texCoordsAt(int x, int y) { return SbVec2f((x + 0.5f) / kSize, (y + 0.5f) / kSize); }

// Whether a coordinate (after wrapping) lies within `margin` of a texel
// boundary of a 2-texel axis, where sampling may fall either way.
bool nearBoundary(float c, float margin) {
  const float f = c * 2.0f - std::floor(c * 2.0f);
  return f < margin || f > 1.0f - margin;
}

int texelIndex(float c) {
  const float wrapped = c - std::floor(c);
  return std::min(1, static_cast<int>(wrapped * 2.0f));
}

// Compares every pixel whose texture coordinates, mapped by `map`, are not
// next to a texel boundary with `expected` of that texel; answers how many
// pixels were compared.
int checkAllPixels(const SoOffscreenRenderer& r, const std::function<SbVec2f(SbVec2f)>& map,
                   const std::function<Rgb(int, int)>& expected, int tolerance = 0) {
  int compared = 0, mismatches = 0;
  // A pixel spans 1/64 of the square; the mapping may scale that up.
  const float margin = 3.0f / kSize;
  for (int y = 0; y < kSize; ++y) {
    for (int x = 0; x < kSize; ++x) {
      const SbVec2f st = map(texCoordsAt(x, y));
      if (nearBoundary(st[0], margin) || nearBoundary(st[1], margin)) continue;
      const Rgb want = expected(texelIndex(st[0]), texelIndex(st[1]));
      const auto got = pixel(r, x, y);
      ++compared;
      bool same = true;
      for (int c = 0; c < 3; ++c)
        if (std::abs(got[static_cast<size_t>(c)] - want[static_cast<size_t>(c)]) > tolerance) same = false;
      if (!same && ++mismatches <= 5)
        ADD_FAILURE() << "pixel " << x << "," << y << " (s " << st[0] << ", t " << st[1] << "): got " << got[0] << " "
                      << got[1] << " " << got[2] << ", want " << want[0] << " " << want[1] << " " << want[2];
    }
  }
  EXPECT_EQ(mismatches, 0);
  return compared;
}

SbVec2f identity(SbVec2f st) { return st; }

TEST(Texture, FourTexelImageShowsThePredictedTexelInEachQuadrant) {
  Root root;
  buildSquareScene(root.node, [](SoSeparator* r) { r->addChild(fourTexelTexture()); });
  SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_GT(checkAllPixels(renderer, identity, texel), kSize * kSize / 2);
  // The quadrant centres, spelled out.
  EXPECT_EQ(pixel(renderer, 16, 16), (std::array<int, 4>{255, 0, 0, 255}));
  EXPECT_EQ(pixel(renderer, 48, 16), (std::array<int, 4>{0, 255, 0, 255}));
  EXPECT_EQ(pixel(renderer, 16, 48), (std::array<int, 4>{0, 0, 255, 255}));
  EXPECT_EQ(pixel(renderer, 48, 48), (std::array<int, 4>{255, 255, 0, 255}));
}

TEST(Texture, ModulateMultipliesTheMaterialColour) {
  const SbColor material(0.5f, 0.75f, 0.25f);
  Root root;
  buildSquareScene(root.node, [](SoSeparator* r) { r->addChild(fourTexelTexture()); }, material);
  SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
  ASSERT_TRUE(renderer.render(root.node));
  checkAllPixels(
      renderer, identity,
      [&](int s, int t) {
        const Rgb c = texel(s, t);
        return Rgb{static_cast<int>(std::lround(c[0] * material[0])), static_cast<int>(std::lround(c[1] * material[1])),
                   static_cast<int>(std::lround(c[2] * material[2]))};
      },
      1);
}

TEST(Texture, ReplaceIgnoresAndBlendMixesTheMaterialColour) {
  const SbColor material(0.5f, 0.25f, 1.0f);
  const SbColor blend(0.2f, 0.4f, 0.6f);
  {
    Root root;
    buildSquareScene(root.node, [](SoSeparator* r) {
      SoTexture2* t = fourTexelTexture();
      t->model = SoTexture2::REPLACE;
      r->addChild(t);
    }, material);
    SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
    ASSERT_TRUE(renderer.render(root.node));
    checkAllPixels(renderer, identity, texel);
  }
  {
    Root root;
    buildSquareScene(root.node, [&](SoSeparator* r) {
      SoTexture2* t = fourTexelTexture();
      t->model = SoTexture2::BLEND;
      t->blendColor.setValue(blend);
      r->addChild(t);
    }, material);
    SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
    ASSERT_TRUE(renderer.render(root.node));
    // Each channel: colour * (1 - texel) + blend colour * texel.
    checkAllPixels(
        renderer, identity,
        [&](int s, int t) {
          const Rgb c = texel(s, t);
          Rgb out{};
          for (int i = 0; i < 3; ++i) {
            const float k = c[static_cast<size_t>(i)] / 255.0f;
            out[static_cast<size_t>(i)] = static_cast<int>(std::lround((material[i] * (1 - k) + blend[i] * k) * 255));
          }
          return out;
        },
        1);
  }
}

TEST(Texture, TextureTransformMovesThePredictedTexels) {
  struct Case {
    SbVec2f translation, scale, center;
    float rotation;
  };
  const Case cases[] = {
      {SbVec2f(0.5f, 0.0f), SbVec2f(1, 1), SbVec2f(0, 0), 0.0f},        // shifted by one texel in s
      {SbVec2f(0.0f, 0.0f), SbVec2f(2, 2), SbVec2f(0, 0), 0.0f},        // repeated twice
      {SbVec2f(0.25f, 0.0f), SbVec2f(1, 3), SbVec2f(0.5f, 0.5f), 0.0f},  // scaled about the centre
      {SbVec2f(0.0f, 0.0f), SbVec2f(1, 1), SbVec2f(0.5f, 0.5f), static_cast<float>(M_PI / 2)},  // turned
  };
  for (const Case& c : cases) {
    Root root;
    buildSquareScene(root.node, [&](SoSeparator* r) {
      r->addChild(fourTexelTexture());
      auto* transform = new SoTexture2Transform;
      transform->translation.setValue(c.translation);
      transform->scaleFactor.setValue(c.scale);
      transform->center.setValue(c.center);
      transform->rotation = c.rotation;
      r->addChild(transform);
    });
    SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
    ASSERT_TRUE(renderer.render(root.node));
    // Scale about the centre, then turn about it counterclockwise, then translate.
    const auto map = [&](SbVec2f st) {
      const float x = (st[0] - c.center[0]) * c.scale[0], y = (st[1] - c.center[1]) * c.scale[1];
      const float cs = std::cos(c.rotation), sn = std::sin(c.rotation);
      return SbVec2f(x * cs - y * sn + c.center[0] + c.translation[0],
                     x * sn + y * cs + c.center[1] + c.translation[1]);
    };
    SCOPED_TRACE(::testing::Message() << "translation " << c.translation[0] << " scale " << c.scale[0] << ","
                                      << c.scale[1] << " rotation " << c.rotation);
    EXPECT_GT(checkAllPixels(renderer, map, texel), kSize * kSize / 4);
  }
}

TEST(Texture, ExplicitCoordinatesAndTheCubeDefaults) {
  {
    // Explicit coordinates mirroring s: texel column 1 on the left.
    Root root;
    buildSquareScene(root.node, [](SoSeparator* r) {
      r->addChild(fourTexelTexture());
      auto* coords = new SoTextureCoordinate2;
      const float st[4][2] = {{1, 0}, {0, 0}, {0, 1}, {1, 1}};
      coords->point.setValues(0, 4, st);
      r->addChild(coords);
    });
    SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
    ASSERT_TRUE(renderer.render(root.node));
    checkAllPixels(renderer, [](SbVec2f st) { return SbVec2f(1.0f - st[0], st[1]); }, texel);
  }
  {
    // The cube's front face carries the whole texture, (0, 0) at its
    // lower left corner.
    Root root;
    buildSquareScene(root.node, [](SoSeparator* r) {
      r->addChild(fourTexelTexture());
      r->addChild(new SoCube);  // 2 x 2 x 2: its front face fills the view
    });
    SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
    ASSERT_TRUE(renderer.render(root.node));
    checkAllPixels(renderer, identity, texel);
  }
}

// Writes an RGB PNG file, rows given from the top as files store them.
bool writePng(const std::string& path, int width, int height, const unsigned char* topDownRgb) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  image.format = PNG_FORMAT_RGB;
  const bool ok = png_image_write_to_file(&image, path.c_str(), 0, topDownRgb, 0, nullptr) != 0;
  png_image_free(&image);
  return ok;
}

class TempDir {
 public:
  TempDir() {
    char pattern[] = "/tmp/orvex-texture-XXXXXX";
    m_path = mkdtemp(pattern);
  }
  ~TempDir() { std::system(("rm -rf " + m_path).c_str()); }
  const std::string& path() const { return m_path; }

 private:
  std::string m_path;
};

TEST(Texture, PngFileIsReadRightSideUp) {
  TempDir dir;
  const std::string path = dir.path() + "/four.png";
  // The same four texels as the image field, given top row first.
  const unsigned char topDown[2][2][3] = {{{0, 0, 255}, {255, 255, 0}}, {{255, 0, 0}, {0, 255, 0}}};
  ASSERT_TRUE(writePng(path, 2, 2, &topDown[0][0][0]));
  Root root;
  buildSquareScene(root.node, [&](SoSeparator* r) {
    auto* texture = new SoTexture2;
    texture->filename = path.c_str();
    texture->minFilter = SoTexture2::NEAREST;
    texture->magFilter = SoTexture2::NEAREST;
    r->addChild(texture);
  });
  SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
  ASSERT_TRUE(renderer.render(root.node));
  checkAllPixels(renderer, identity, texel);
}

TEST(Texture, UnreadableFileLeavesTheShapeUntextured) {
  TempDir dir;
  const std::string path = dir.path() + "/broken.png";
  FILE* f = std::fopen(path.c_str(), "wb");
  ASSERT_NE(f, nullptr);
  std::fputs("\x89PNG\r\n\x1a\n this is no image", f);
  std::fclose(f);
  for (const std::string& name : {path, dir.path() + "/missing.png"}) {
    Root root;
    buildSquareScene(root.node, [&](SoSeparator* r) {
      auto* texture = new SoTexture2;
      texture->filename = name.c_str();
      r->addChild(texture);
    }, SbColor(0.0f, 1.0f, 1.0f));
    SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
    ASSERT_TRUE(renderer.render(root.node));
    EXPECT_EQ(pixel(renderer, 16, 16), (std::array<int, 4>{0, 255, 255, 255})) << name;
  }
}

TEST(Texture, EditedImageIsDrawnAtTheNextRender) {
  Root root;
  SoTexture2* texture = fourTexelTexture();
  buildSquareScene(root.node, [&](SoSeparator* r) { r->addChild(texture); });
  SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(pixel(renderer, 16, 16), (std::array<int, 4>{255, 0, 0, 255}));
  const unsigned char grey[1] = {128};
  texture->image.setValue(SbVec2i32(1, 1), 1, grey);
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(pixel(renderer, 16, 16), (std::array<int, 4>{128, 128, 128, 255}));
  EXPECT_EQ(pixel(renderer, 48, 48), (std::array<int, 4>{128, 128, 128, 255}));
  // Wrapping and models are applied without a new image.
  texture->model = SoTexture2::BLEND;
  texture->blendColor.setValue(0.0f, 0.0f, 0.0f);
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_NEAR(pixel(renderer, 16, 16)[0], 127, 1);  // white * (1 - 0.5) + black * 0.5
}

}  // namespace

namespace {

TEST(Texture, ImageWiderThanTheDriverTakesIsSampledDown) {
  // Twice the widest texture Mesa's drivers take (16384).
  const int width = 32768;
  std::vector<unsigned char> row(static_cast<size_t>(width) * 3);
  // Left half red, right half blue.
  for (int x = 0; x < width; ++x) {
    row[static_cast<size_t>(x) * 3 + 0] = x < width / 2 ? 255 : 0;
    row[static_cast<size_t>(x) * 3 + 2] = x < width / 2 ? 0 : 255;
  }
  Root root;
  buildSquareScene(root.node, [&](SoSeparator* r) {
    auto* texture = new SoTexture2;
    texture->image.setValue(SbVec2i32(width, 1), 3, row.data());
    texture->minFilter = SoTexture2::NEAREST;
    texture->magFilter = SoTexture2::NEAREST;
    r->addChild(texture);
  });
  SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(pixel(renderer, 10, 32), (std::array<int, 4>{255, 0, 0, 255}));
  EXPECT_EQ(pixel(renderer, 54, 32), (std::array<int, 4>{0, 0, 255, 255}));
}

}  // namespace

namespace {

TEST(Texture, BindingChoosesBetweenIndicesAndOrder) {
  // Coordinates in order, texture coordinate indices that mirror s: the
  // indices count with PER_VERTEX_INDEXED, the order with PER_VERTEX.
  for (const auto binding : {SoTextureCoordinateBinding::PER_VERTEX_INDEXED, SoTextureCoordinateBinding::PER_VERTEX}) {
    Root root;
    auto* camera = new SoOrthographicCamera;
    camera->position.setValue(0.0f, 0.0f, 5.0f);
    camera->height = 2.0f;
    root->addChild(camera);
    auto* model = new SoLightModel;
    model->model = SoLightModel::BASE_COLOR;
    root->addChild(model);
    auto* white = new SoMaterial;
    white->diffuseColor.setValue(1.0f, 1.0f, 1.0f);
    root->addChild(white);
    root->addChild(fourTexelTexture());
    auto* st = new SoTextureCoordinate2;
    const float points[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    st->point.setValues(0, 4, points);
    root->addChild(st);
    auto* bind = new SoTextureCoordinateBinding;
    bind->value = binding;
    root->addChild(bind);
    auto* coords = new SoCoordinate3;
    const float pts[4][3] = {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};
    coords->point.setValues(0, 4, pts);
    root->addChild(coords);
    auto* face = new SoIndexedFaceSet;
    const int32_t indices[5] = {0, 1, 2, 3, -1};
    const int32_t mirrored[5] = {1, 0, 3, 2, -1};
    face->coordIndex.setValues(0, 5, indices);
    face->textureCoordIndex.setValues(0, 5, mirrored);
    root->addChild(face);
    SoOffscreenRenderer renderer(SbViewportRegion(kSize, kSize));
    ASSERT_TRUE(renderer.render(root.node));
    SCOPED_TRACE(binding == SoTextureCoordinateBinding::PER_VERTEX ? "PER_VERTEX" : "PER_VERTEX_INDEXED");
    if (binding == SoTextureCoordinateBinding::PER_VERTEX)
      checkAllPixels(renderer, identity, texel);
    else
      checkAllPixels(renderer, [](SbVec2f st) { return SbVec2f(1.0f - st[0], st[1]); }, texel);
  }
}

}  // namespace

namespace {

TEST(Texture, EachContextGetsItsOwnTextureObject) {
  // Two renderers, two contexts sharing nothing: a texture object made in
  // one means nothing in the other.
  Root root;
  SoTexture2* texture = fourTexelTexture();
  buildSquareScene(root.node, [&](SoSeparator* r) { r->addChild(texture); });
  SoOffscreenRenderer first(SbViewportRegion(kSize, kSize));
  SoOffscreenRenderer second(SbViewportRegion(kSize, kSize));
  for (int round = 0; round < 2; ++round) {
    ASSERT_TRUE(first.render(root.node));
    ASSERT_TRUE(second.render(root.node));
    SCOPED_TRACE(round);
    checkAllPixels(first, identity, texel);
    checkAllPixels(second, identity, texel);
  }
  const unsigned char grey[1] = {64};
  texture->image.setValue(SbVec2i32(1, 1), 1, grey);
  ASSERT_TRUE(second.render(root.node));
  ASSERT_TRUE(first.render(root.node));
  EXPECT_EQ(pixel(first, 16, 16), (std::array<int, 4>{64, 64, 64, 255}));
  EXPECT_EQ(pixel(second, 48, 48), (std::array<int, 4>{64, 64, 64, 255}));
}

}  // namespace
