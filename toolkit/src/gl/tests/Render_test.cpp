// Pictures drawn by the render action compared with what projection,
// depth and lighting formulas predict.

#include <Orvex/SbRotation.h>
#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/nodes/SoComplexity.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoDirectionalLight.h>
#include <Orvex/nodes/SoFaceSet.h>
#include <Orvex/nodes/SoLightModel.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoMaterialBinding.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>
#include <Orvex/nodes/SoShapeHints.h>
#include <Orvex/nodes/SoSphere.h>
#include <Orvex/nodes/SoTranslation.h>

#include <cmath>

#include "RenderTestSupport.h"

using gltest::pixel;
using gltest::Root;

namespace {

const ::testing::Environment* const kEnv = ::testing::AddGlobalTestEnvironment(new gltest::DatabaseEnvironment);

using gltest::addQuad;
using gltest::baseColor;
using gltest::diffuse;
using gltest::orthoCamera;

TEST(Render, SphereCoversThePredictedDisc) {
  const int size = 200;
  const float distance = 5.0f;
  const float heightAngle = static_cast<float>(M_PI / 4.0);
  Root root;
  auto* cam = new SoPerspectiveCamera;
  cam->position.setValue(0.0f, 0.0f, distance);
  cam->heightAngle = heightAngle;
  cam->nearDistance = 1.0f;
  cam->farDistance = 10.0f;
  root->addChild(cam);
  root->addChild(baseColor());
  root->addChild(diffuse(1.0f, 1.0f, 1.0f));
  auto* complexity = new SoComplexity;
  complexity->value = 1.0f;
  root->addChild(complexity);
  root->addChild(new SoSphere);

  SoOffscreenRenderer renderer(SbViewportRegion(size, size));
  ASSERT_TRUE(renderer.render(root.node));
  // The silhouette is the cone tangent to the sphere: half-angle
  // asin(r / d); on the image plane its radius is tan of that, and the
  // half-height of the view tan(heightAngle / 2) spans size / 2 pixels.
  const double alpha = std::asin(1.0 / distance);
  const double radiusPixels = (size / 2.0) * std::tan(alpha) / std::tan(heightAngle / 2.0);
  const double predicted = M_PI * radiusPixels * radiusPixels;
  const int lit = gltest::countLit(renderer);
  EXPECT_NEAR(lit, predicted, predicted * 0.01) << "radius " << radiusPixels;
  RecordProperty("litPixels", lit);
  // Centred: the centre pixel is lit, a pixel just outside the radius is not.
  EXPECT_GT(pixel(renderer, size / 2, size / 2)[0], 127);
  EXPECT_EQ(pixel(renderer, size / 2 + static_cast<int>(radiusPixels) + 2, size / 2)[0], 0);
}

TEST(Render, CubeFaceOnCoversThePredictedSquare) {
  const int size = 100;
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(diffuse(1.0f, 1.0f, 1.0f));
  root->addChild(new SoCube);  // 2 x 2 x 2
  SoOffscreenRenderer renderer(SbViewportRegion(size, size));
  ASSERT_TRUE(renderer.render(root.node));
  // 2 units of 4 across 100 pixels: columns and rows 25 to 74.
  int minX = size, maxX = -1, minY = size, maxY = -1, lit = 0;
  for (int y = 0; y < size; ++y) {
    for (int x = 0; x < size; ++x) {
      if (pixel(renderer, x, y)[0] <= 127) continue;
      ++lit;
      minX = std::min(minX, x);
      maxX = std::max(maxX, x);
      minY = std::min(minY, y);
      maxY = std::max(maxY, y);
    }
  }
  EXPECT_EQ(minX, 25);
  EXPECT_EQ(maxX, 74);
  EXPECT_EQ(minY, 25);
  EXPECT_EQ(maxY, 74);
  EXPECT_EQ(lit, 50 * 50);
}

TEST(Render, NearerObjectHidesFartherOne) {
  const int size = 32;
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  // Near red square first, far green one after: the depth test, not the
  // order, must decide.
  auto* nearPart = new SoSeparator;
  nearPart->addChild(diffuse(1.0f, 0.0f, 0.0f));
  addQuad(nearPart, -1.0f, -1.0f, 1.0f, 1.0f, 1.0f);
  root->addChild(nearPart);
  auto* farPart = new SoSeparator;
  farPart->addChild(diffuse(0.0f, 1.0f, 0.0f));
  addQuad(farPart, -2.0f, -2.0f, 2.0f, 2.0f, -1.0f);
  root->addChild(farPart);
  SoOffscreenRenderer renderer(SbViewportRegion(size, size));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(pixel(renderer, size / 2, size / 2), (std::array<int, 4>{255, 0, 0, 255}));
  // Outside the near square the far one shows.
  EXPECT_EQ(pixel(renderer, 1, 1), (std::array<int, 4>{0, 255, 0, 255}));
}

// A quad counterclockwise as seen by the camera, under shape hints.
int centreRedAfterHints(SoShapeHints::VertexOrdering ordering, SoShapeHints::ShapeType type) {
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  auto* hints = new SoShapeHints;
  hints->vertexOrdering = ordering;
  hints->shapeType = type;
  root->addChild(hints);
  root->addChild(diffuse(1.0f, 0.0f, 0.0f));
  addQuad(root.node, -1.0f, -1.0f, 1.0f, 1.0f, 0.0f);
  SoOffscreenRenderer renderer(SbViewportRegion(16, 16));
  EXPECT_TRUE(renderer.render(root.node));
  return pixel(renderer, 8, 8)[0];
}

TEST(Render, BackFacesOfSolidShapesAreCulled) {
  // Seen from the camera the quad is counterclockwise: a front face for
  // COUNTERCLOCKWISE ordering, a back face for CLOCKWISE.
  EXPECT_EQ(centreRedAfterHints(SoShapeHints::COUNTERCLOCKWISE, SoShapeHints::SOLID), 255);
  EXPECT_EQ(centreRedAfterHints(SoShapeHints::CLOCKWISE, SoShapeHints::SOLID), 0);
  // Not solid: never culled.
  EXPECT_EQ(centreRedAfterHints(SoShapeHints::CLOCKWISE, SoShapeHints::UNKNOWN_SHAPE_TYPE), 255);
}

TEST(Render, DirectionalLightGivesLambertIntensity) {
  const SbColor kd(0.8f, 0.6f, 0.4f);
  const SbColor ka(0.5f, 0.25f, 0.0f);
  for (const float degrees : {0.0f, 30.0f, 60.0f}) {
    const float angle = degrees * static_cast<float>(M_PI) / 180.0f;
    Root root;
    root->addChild(orthoCamera(4.0f));
    auto* light = new SoDirectionalLight;
    light->direction.setValue(0.0f, -std::sin(angle), -std::cos(angle));
    root->addChild(light);
    auto* material = new SoMaterial;
    material->diffuseColor.setValue(kd);
    material->ambientColor.setValue(ka);
    root->addChild(material);
    addQuad(root.node, -2.0f, -2.0f, 2.0f, 2.0f, 0.0f);
    SoOffscreenRenderer renderer(SbViewportRegion(8, 8));
    ASSERT_TRUE(renderer.render(root.node));
    const auto p = pixel(renderer, 4, 4);
    for (int c = 0; c < 3; ++c) {
      // Global ambient light 0.2 times the ambient colour, plus diffuse
      // colour times the cosine between normal (+z) and light.
      const double expected = std::min(1.0, 0.2 * ka[c] + kd[c] * std::cos(angle)) * 255.0;
      EXPECT_NEAR(p[static_cast<size_t>(c)], expected, 2.0) << degrees << " degrees, channel " << c;
    }
  }
}

TEST(Render, MaterialPerFaceColoursEachFace) {
  const int size = 40;
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  auto* material = new SoMaterial;
  const float colors[2][3] = {{1.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 1.0f}};
  material->diffuseColor.setValues(0, 2, colors);
  root->addChild(material);
  auto* binding = new SoMaterialBinding;
  binding->value = SoMaterialBinding::PER_FACE;
  root->addChild(binding);
  auto* coords = new SoCoordinate3;
  const float pts[8][3] = {{-2, -1, 0}, {0, -1, 0}, {0, 1, 0}, {-2, 1, 0},
                           {0, -1, 0},  {2, -1, 0}, {2, 1, 0}, {0, 1, 0}};
  coords->point.setValues(0, 8, pts);
  root->addChild(coords);
  auto* faces = new SoFaceSet;
  const int32_t counts[2] = {4, 4};
  faces->numVertices.setValues(0, 2, counts);
  root->addChild(faces);
  SoOffscreenRenderer renderer(SbViewportRegion(size, size));
  ASSERT_TRUE(renderer.render(root.node));
  // Face centres at x = -1 and x = 1: pixels 10 and 30.
  EXPECT_EQ(pixel(renderer, 10, 20), (std::array<int, 4>{255, 0, 0, 255}));
  EXPECT_EQ(pixel(renderer, 30, 20), (std::array<int, 4>{0, 0, 255, 255}));
}

TEST(Render, MaterialPerVertexIsInterpolated) {
  const int size = 64;
  Root root;
  root->addChild(orthoCamera(2.0f));
  root->addChild(baseColor());
  auto* material = new SoMaterial;
  const float colors[4][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 1}};
  material->diffuseColor.setValues(0, 4, colors);
  root->addChild(material);
  auto* binding = new SoMaterialBinding;
  binding->value = SoMaterialBinding::PER_VERTEX;
  root->addChild(binding);
  addQuad(root.node, -1.0f, -1.0f, 1.0f, 1.0f, 0.0f);
  SoOffscreenRenderer renderer(SbViewportRegion(size, size));
  ASSERT_TRUE(renderer.render(root.node));
  // Near each corner its own colour (one pixel in: at most 1/64 of the way
  // to the neighbours, under 8 levels).
  const int last = size - 1;
  const std::array<std::array<int, 2>, 4> corners{{{0, 0}, {last, 0}, {last, last}, {0, last}}};
  for (size_t i = 0; i < 4; ++i) {
    const auto p = pixel(renderer, corners[i][0], corners[i][1]);
    for (int c = 0; c < 3; ++c) EXPECT_NEAR(p[static_cast<size_t>(c)], colors[i][c] * 255.0f, 8.0) << i << " " << c;
  }
  // The centre lies on the diagonal from vertex 0 to vertex 2, so it takes
  // their mean (pixels 31 and 32 straddle it).
  const auto a = pixel(renderer, 31, 31);
  const auto b = pixel(renderer, 32, 32);
  EXPECT_NEAR((a[0] + b[0]) / 2.0, 127.5, 6.0);
  EXPECT_NEAR((a[2] + b[2]) / 2.0, 127.5, 6.0);
  EXPECT_NEAR((a[1] + b[1]) / 2.0, 0.0, 6.0);
}

TEST(Render, FollowsGraphEditsBetweenRenders) {
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  auto* material = diffuse(1.0f, 0.0f, 0.0f);
  root->addChild(material);
  auto* cube = new SoCube;
  root->addChild(cube);
  SoOffscreenRenderer renderer(SbViewportRegion(20, 20));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(gltest::countLit(renderer), 100);  // 2 of 4 units: 10 x 10
  cube->width = 4.0f;
  material->diffuseColor.setValue(0.0f, 1.0f, 0.0f);
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(gltest::countLit(renderer), 0);  // no red left
  EXPECT_EQ(pixel(renderer, 1, 10), (std::array<int, 4>{0, 255, 0, 255}));
  EXPECT_EQ(pixel(renderer, 10, 1)[1], 0);  // still 2 units tall
}

}  // namespace
