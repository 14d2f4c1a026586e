// Text drawn by the render action: screen-aligned text where the camera
// projects its origin, and 3D text covering the area of its glyph outlines.

#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/nodes/SoComplexity.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoFaceSet.h>
#include <Orvex/nodes/SoFont.h>
#include <Orvex/nodes/SoLightModel.h>
#include <Orvex/nodes/SoMaterial.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>
#include <Orvex/nodes/SoText2.h>
#include <Orvex/nodes/SoText3.h>
#include <Orvex/nodes/SoTranslation.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "RenderTestSupport.h"
#include "text/Font.h"

using gltest::pixel;
using gltest::Root;

namespace {

const ::testing::Environment* const kEnv = ::testing::AddGlobalTestEnvironment(new gltest::DatabaseEnvironment);

// 200 pixels show 10 units: 20 pixels per unit, the origin at pixel 100.
constexpr int kSize = 200;
constexpr float kPixelsPerUnit = 20.0f;

void addView(SoSeparator* root) {
  auto* camera = new SoOrthographicCamera;
  camera->position.setValue(0.0f, 0.0f, 10.0f);
  camera->height = kSize / kPixelsPerUnit;
  camera->nearDistance = 1.0f;
  camera->farDistance = 20.0f;
  root->addChild(camera);
  auto* model = new SoLightModel;
  model->model = SoLightModel::BASE_COLOR;
  root->addChild(model);
}

void addColor(SoSeparator* root, float r, float g, float b) {
  auto* m = new SoMaterial;
  m->diffuseColor.setValue(r, g, b);
  root->addChild(m);
}

void addFont(SoSeparator* root, float size) {
  auto* font = new SoFont;
  font->size = size;
  root->addChild(font);
}

// The pixels of the picture where `test` holds for the pixel's colour.
struct Region {
  int count = 0;
  int minX = kSize, maxX = -1, minY = kSize, maxY = -1;
};

template <class Test>
Region pixelsWhere(const SoOffscreenRenderer& r, Test test, int x0 = 0, int y0 = 0, int x1 = kSize - 1,
                   int y1 = kSize - 1) {
  Region out;
  for (int y = y0; y <= y1; ++y)
    for (int x = x0; x <= x1; ++x) {
      if (!test(pixel(r, x, y))) continue;
      ++out.count;
      out.minX = std::min(out.minX, x);
      out.maxX = std::max(out.maxX, x);
      out.minY = std::min(out.minY, y);
      out.maxY = std::max(out.maxY, y);
    }
  return out;
}

bool anyInk(const std::array<int, 4>& p) { return p[0] > 0 || p[1] > 0 || p[2] > 0; }
bool strongInk(const std::array<int, 4>& p) { return p[0] > 127; }

// White Text2 of `lines` at (x, y) in a font of 20 pixels on black.
SoOffscreenRenderer* renderText2(const std::vector<const char*>& lines, float x, float y, int justification,
                                 float spacing = 1.0f) {
  Root root;
  addView(root.node);
  addColor(root.node, 1, 1, 1);
  addFont(root.node, 20.0f);
  auto* move = new SoTranslation;
  move->translation.setValue(x, y, 0.0f);
  root->addChild(move);
  auto* text = new SoText2;
  for (size_t i = 0; i < lines.size(); ++i) text->string.set1Value(static_cast<int>(i), lines[i]);
  text->justification = justification;
  text->spacing = spacing;
  root->addChild(text);
  auto* renderer = new SoOffscreenRenderer(SbViewportRegion(kSize, kSize));
  EXPECT_TRUE(renderer->render(root.node));
  return renderer;
}

TEST(Text, Text2CoversPixelsAtTheProjectedOriginAndNothingFarFromIt) {
  // The origin (-2, 1) projects to pixel (60, 120).
  std::unique_ptr<SoOffscreenRenderer> r(renderText2({"Orvex"}, -2.0f, 1.0f, SoText2::LEFT));
  const Region ink = pixelsWhere(*r, anyInk);
  const Region strong = pixelsWhere(*r, strongInk);
  // Five glyphs of strokes about 2 pixels wide and 10 to 15 tall.
  EXPECT_GT(strong.count, 100);
  // Starting at the origin, ending within five ems (100 pixels).
  EXPECT_GE(ink.minX, 59);
  EXPECT_LE(ink.minX, 63);
  EXPECT_LE(ink.maxX, 160);
  EXPECT_GE(ink.maxX, 60 + 50);  // at least half an em per glyph
  // No descenders: nothing more than a pixel below the baseline; the
  // capital O reaches about three quarters of an em (15 pixels) up.
  EXPECT_GE(ink.minY, 118);
  EXPECT_GE(strong.maxY, 120 + 12);
  EXPECT_LE(ink.maxY, 120 + 17);
}

TEST(Text, Text2JustificationAndLineSpacing) {
  {
    std::unique_ptr<SoOffscreenRenderer> r(renderText2({"Orvex"}, 0.0f, 0.0f, SoText2::RIGHT));
    const Region ink = pixelsWhere(*r, anyInk);
    EXPECT_GT(ink.count, 100);
    EXPECT_LE(ink.maxX, 101);  // ends at the origin, pixel 100
    EXPECT_LE(ink.minX, 100 - 50);
  }
  {
    std::unique_ptr<SoOffscreenRenderer> r(renderText2({"Orvex"}, 0.0f, 0.0f, SoText2::CENTER));
    const Region ink = pixelsWhere(*r, anyInk);
    EXPECT_NEAR((ink.minX + ink.maxX) / 2.0, 100.0, 3.0);
  }
  {
    // Two lines two ems apart: baselines at pixels 120 and 80, capitals
    // about 15 pixels tall, nothing between them.
    std::unique_ptr<SoOffscreenRenderer> r(renderText2({"HI", "HI"}, 0.0f, 1.0f, SoText2::LEFT, 2.0f));
    const Region upper = pixelsWhere(*r, anyInk, 0, 100, kSize - 1, kSize - 1);
    const Region lower = pixelsWhere(*r, anyInk, 0, 0, kSize - 1, 99);
    EXPECT_GT(upper.count, 50);
    EXPECT_EQ(upper.count, lower.count);
    EXPECT_EQ(upper.minY, 120);
    EXPECT_EQ(lower.minY, 80);
    EXPECT_LE(lower.maxY, 80 + 17);
    EXPECT_EQ(upper.minX, lower.minX);
  }
}

TEST(Text, Text2IsHiddenByNearerGeometryOnly) {
  for (const float z : {-1.0f, 1.0f}) {
    Root root;
    addView(root.node);
    // A green square behind (z = -1) or in front of (z = 1) the text.
    addColor(root.node, 0, 1, 0);
    auto* coords = new SoCoordinate3;
    const float pts[4][3] = {{-4, -4, z}, {4, -4, z}, {4, 4, z}, {-4, 4, z}};
    coords->point.setValues(0, 4, pts);
    root->addChild(coords);
    auto* face = new SoFaceSet;
    face->numVertices.setValue(4);
    root->addChild(face);
    addColor(root.node, 1, 0, 0);
    addFont(root.node, 20.0f);
    auto* text = new SoText2;
    text->string = "Orvex";
    root->addChild(text);
    SoOffscreenRenderer r(SbViewportRegion(kSize, kSize));
    ASSERT_TRUE(r.render(root.node));
    const Region red = pixelsWhere(r, strongInk);
    if (z < 0)
      EXPECT_GT(red.count, 100) << "text in front of the square";
    else
      EXPECT_EQ(red.count, 0) << "text behind the square";
  }
}

// The area a glyph's outline encloses, in em squared (outer contours
// count positive, holes negative), from its contours alone.
double outlineArea(char32_t c) {
  const auto font = orvex::text::Font::find(SbName("defaultFont"));
  const auto glyph = font->outline(font->glyphIndex(c), 8);
  double area = 0.0;
  for (const auto& contour : glyph->contours)
    for (size_t i = 0; i < contour.size(); ++i) {
      const SbVec2f& a = contour[i];
      const SbVec2f& b = contour[(i + 1) % contour.size()];
      area += (double(a[0]) * b[1] - double(b[0]) * a[1]) / 2.0;
    }
  return area;
}

TEST(Text, Text3FrontCoversTheAreaOfItsOutlines) {
  // Glyphs of 5 units: 100 pixels per em.
  const float size = 5.0f;
  for (const char* s : {"O", "B", "8", "e"}) {
    Root root;
    addView(root.node);
    addColor(root.node, 1, 1, 1);
    addFont(root.node, size);
    auto* complexity = new SoComplexity;
    complexity->value = 0.75f;  // eight pieces per curve, as outlineArea()
    root->addChild(complexity);
    auto* move = new SoTranslation;
    move->translation.setValue(-2.0f, -2.0f, 0.0f);
    root->addChild(move);
    auto* text = new SoText3;
    text->string = s;
    root->addChild(text);
    SoOffscreenRenderer r(SbViewportRegion(kSize, kSize));
    ASSERT_TRUE(r.render(root.node));
    const double pixelsPerEm = size * kPixelsPerUnit;
    const double predicted = outlineArea(static_cast<char32_t>(s[0])) * pixelsPerEm * pixelsPerEm;
    const Region lit = pixelsWhere(r, strongInk);
    EXPECT_NEAR(lit.count, predicted, predicted * 0.03) << s;
    // Inside the box the bounding box action gives, projected.
    SoGetBoundingBoxAction bbox(SbViewportRegion(kSize, kSize));
    bbox.apply(root.node);
    const SbBox3f box = bbox.getBoundingBox();
    const auto toPixel = [](float v) { return (v + kSize / kPixelsPerUnit / 2) * kPixelsPerUnit; };
    EXPECT_GE(lit.minX, toPixel(box.getMin()[0]) - 1) << s;
    EXPECT_LE(lit.maxX, toPixel(box.getMax()[0]) + 1) << s;
    EXPECT_GE(lit.minY, toPixel(box.getMin()[1]) - 1) << s;
    EXPECT_LE(lit.maxY, toPixel(box.getMax()[1]) + 1) << s;
  }
}

}  // namespace

namespace {

TEST(Text, Text3FollowsFontAndStringEditsBetweenRenders) {
  Root root;
  addView(root.node);
  addColor(root.node, 1, 1, 1);
  auto* font = new SoFont;
  font->size = 2.0f;
  root->addChild(font);
  // Room for two bold capitals of 4 units (80 pixels each at most).
  auto* move = new SoTranslation;
  move->translation.setValue(-4.0f, -1.0f, 0.0f);
  root->addChild(move);
  auto* text = new SoText3;
  text->string = "B";
  root->addChild(text);
  SoOffscreenRenderer r(SbViewportRegion(kSize, kSize));
  ASSERT_TRUE(r.render(root.node));
  const int small = pixelsWhere(r, strongInk).count;
  EXPECT_GT(small, 100);
  // Twice the size: four times the area.
  font->size = 4.0f;
  ASSERT_TRUE(r.render(root.node));
  EXPECT_NEAR(pixelsWhere(r, strongInk).count, 4.0 * small, 0.05 * 4.0 * small);
  // Another font covers another area; another string too.
  font->name = SbName("DejaVu Sans:Bold");
  ASSERT_TRUE(r.render(root.node));
  const int bold = pixelsWhere(r, strongInk).count;
  EXPECT_GT(bold, 4.0 * small * 1.1);
  text->string = "BB";
  ASSERT_TRUE(r.render(root.node));
  EXPECT_NEAR(pixelsWhere(r, strongInk).count, 2.0 * bold, 0.02 * 2.0 * bold);
}

}  // namespace

namespace {

TEST(Text, Text2OfUnreasonableSizeIsDrawnBoundedOrNotAtAll) {
  // A size beyond the largest drawn covers the picture up and right of
  // the origin (pixel 10, 10), and nothing left of or below it.
  Root root;
  addView(root.node);
  addColor(root.node, 1, 1, 1);
  addFont(root.node, 1e30f);
  auto* move = new SoTranslation;
  move->translation.setValue(-4.5f, -4.5f, 0.0f);
  root->addChild(move);
  auto* text = new SoText2;
  text->string = "HH";
  root->addChild(text);
  SoOffscreenRenderer r(SbViewportRegion(kSize, kSize));
  ASSERT_TRUE(r.render(root.node));
  const Region ink = pixelsWhere(r, anyInk);
  EXPECT_GT(ink.count, 1000);
  EXPECT_GE(ink.minX, 10);
  EXPECT_GE(ink.minY, 9);
  // NaN spacing places no line.
  text->spacing = std::nanf("");
  ASSERT_TRUE(r.render(root.node));
  EXPECT_EQ(pixelsWhere(r, anyInk).count, 0);
}

}  // namespace

namespace {

TEST(Text, Text2UnderPerspectiveSitsAtTheProjectedOrigin) {
  // A camera 10 units away with a 45 degree view over 200 pixels: the
  // point (1, 1, 0) shows 100 / (10 tan 22.5 degrees) = 24.1 pixels right
  // of and above the centre, at pixel (124, 124).
  Root root;
  auto* camera = new SoPerspectiveCamera;
  camera->position.setValue(0.0f, 0.0f, 10.0f);
  camera->heightAngle = static_cast<float>(M_PI / 4.0);
  camera->nearDistance = 1.0f;
  camera->farDistance = 20.0f;
  root->addChild(camera);
  addColor(root.node, 1, 1, 1);
  addFont(root.node, 20.0f);
  auto* move = new SoTranslation;
  move->translation.setValue(1.0f, 1.0f, 0.0f);
  root->addChild(move);
  auto* text = new SoText2;
  text->string = "HH";
  root->addChild(text);
  SoOffscreenRenderer r(SbViewportRegion(kSize, kSize));
  ASSERT_TRUE(r.render(root.node));
  const Region ink = pixelsWhere(r, anyInk);
  EXPECT_GT(ink.count, 50);
  // The H stands on the baseline, a pixel or two right of its pen.
  EXPECT_GE(ink.minX, 124);
  EXPECT_LE(ink.minX, 128);
  EXPECT_EQ(ink.minY, 124);
  EXPECT_LE(ink.maxY, 124 + 16);
}

}  // namespace
