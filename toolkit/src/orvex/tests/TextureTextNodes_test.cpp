// The texture, font and text nodes without rendering: scene-file round
// trips, the extent and picking of text, and the glyph tessellation
// checked against areas computed from the outlines themselves.

#include <Orvex/SoPickedPoint.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/nodes/SoFont.h>
#include <Orvex/nodes/SoOrthographicCamera.h>
#include <Orvex/nodes/SoPerspectiveCamera.h>
#include <Orvex/nodes/SoText2.h>
#include <Orvex/nodes/SoText3.h>
#include <Orvex/nodes/SoTexture2.h>
#include <Orvex/nodes/SoTexture2Transform.h>
#include <Orvex/nodes/SoTextureCoordinate2.h>
#include <Orvex/nodes/SoTextureCoordinateBinding.h>
#include <Orvex/nodes/SoTranslation.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "TestSupport.h"
#include "text/Font.h"
#include "text/GlyphTessellator.h"

using orvextest::make;
using orvextest::readFromString;
using orvextest::Ref;
using orvextest::writeToString;

namespace {

class TextureTextNodes : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};

template <class T>
T* findFirst(SoNode* root) {
  auto* group = static_cast<SoGroup*>(root);
  for (int i = 0; i < group->getNumChildren(); ++i)
    if (group->getChild(i)->isOfType(T::getClassTypeId())) return static_cast<T*>(group->getChild(i));
  return nullptr;
}

TEST_F(TextureTextNodes, TypesAreRegisteredWithoutPrefix) {
  EXPECT_EQ(SoTexture2::getClassTypeId().getName(), SbName("Texture2"));
  EXPECT_EQ(SoTexture2Transform::getClassTypeId().getName(), SbName("Texture2Transform"));
  EXPECT_EQ(SoTextureCoordinateBinding::getClassTypeId().getName(), SbName("TextureCoordinateBinding"));
  EXPECT_EQ(SoFont::getClassTypeId().getName(), SbName("Font"));
  EXPECT_EQ(SoText2::getClassTypeId().getName(), SbName("Text2"));
  EXPECT_EQ(SoText3::getClassTypeId().getName(), SbName("Text3"));
  EXPECT_TRUE(SoText2::getClassTypeId().isDerivedFrom(SoShape::getClassTypeId()));
  EXPECT_TRUE(SoText3::getClassTypeId().isDerivedFrom(SoShape::getClassTypeId()));
}

TEST_F(TextureTextNodes, EveryNodeRoundTripsThroughAFile) {
  auto root = make(new SoSeparator);
  auto* texture = new SoTexture2;
  const unsigned char rgba[2 * 2 * 4] = {255, 0, 0, 255, 0, 255, 0, 128, 0, 0, 255, 0, 10, 20, 30, 40};
  texture->image.setValue(SbVec2i32(2, 2), 4, rgba);
  texture->wrapS = SoTexture2::CLAMP;
  texture->model = SoTexture2::BLEND;
  texture->blendColor.setValue(0.25f, 0.5f, 0.75f);
  texture->minFilter = SoTexture2::NEAREST;
  root->addChild(texture);
  auto* transform = new SoTexture2Transform;
  transform->translation.setValue(0.5f, -0.25f);
  transform->rotation = 0.75f;
  transform->scaleFactor.setValue(2.0f, 3.0f);
  transform->center.setValue(0.5f, 0.5f);
  root->addChild(transform);
  auto* coords = new SoTextureCoordinate2;
  const float st[3][2] = {{0, 0}, {1, 0}, {1, 1}};
  coords->point.setValues(0, 3, st);
  root->addChild(coords);
  auto* binding = new SoTextureCoordinateBinding;
  binding->value = SoTextureCoordinateBinding::PER_VERTEX;
  root->addChild(binding);
  auto* font = new SoFont;
  font->name = SbName("DejaVu Serif:Bold");
  font->size = 24.0f;
  root->addChild(font);
  auto* text2 = new SoText2;
  const SbString lines[2] = {"Hello", "W\xC3\xB6rld \"quoted\""};
  text2->string.setValues(0, 2, lines);
  text2->spacing = 1.5f;
  text2->justification = SoText2::CENTER;
  root->addChild(text2);
  auto* text3 = new SoText3;
  text3->string = "3D";
  text3->justification = SoText3::RIGHT;
  text3->parts = SoText3::FRONT | SoText3::BACK;
  root->addChild(text3);

  const std::string text = writeToString(root.get());
  for (const char* name : {"Texture2 {", "Texture2Transform {", "TextureCoordinate2 {", "TextureCoordinateBinding {",
                           "Font {", "Text2 {", "Text3 {", "wrapS CLAMP", "model BLEND", "PER_VERTEX", "CENTER"})
    EXPECT_NE(text.find(name), std::string::npos) << name << " in\n" << text;
  auto back = readFromString(text);
  ASSERT_TRUE(back);
  // A file holding one separator reads as that separator.
  SoSeparator* root2 = back.get();
  ASSERT_EQ(root2->getNumChildren(), 7) << text;
  auto* t2 = findFirst<SoTexture2>(root2);
  ASSERT_NE(t2, nullptr);
  EXPECT_TRUE(t2->image == texture->image);
  EXPECT_EQ(t2->wrapS.getValue(), SoTexture2::CLAMP);
  EXPECT_EQ(t2->wrapT.getValue(), SoTexture2::REPEAT);
  EXPECT_EQ(t2->model.getValue(), SoTexture2::BLEND);
  EXPECT_EQ(t2->blendColor.getValue(), SbColor(0.25f, 0.5f, 0.75f));
  EXPECT_EQ(t2->minFilter.getValue(), SoTexture2::NEAREST);
  auto* tt = findFirst<SoTexture2Transform>(root2);
  EXPECT_EQ(tt->translation.getValue(), SbVec2f(0.5f, -0.25f));
  EXPECT_FLOAT_EQ(tt->rotation.getValue(), 0.75f);
  EXPECT_EQ(tt->scaleFactor.getValue(), SbVec2f(2.0f, 3.0f));
  EXPECT_EQ(tt->center.getValue(), SbVec2f(0.5f, 0.5f));
  EXPECT_EQ(findFirst<SoTextureCoordinate2>(root2)->point.getNum(), 3);
  EXPECT_EQ(findFirst<SoTextureCoordinateBinding>(root2)->value.getValue(), SoTextureCoordinateBinding::PER_VERTEX);
  auto* f2 = findFirst<SoFont>(root2);
  EXPECT_EQ(f2->name.getValue(), SbName("DejaVu Serif:Bold"));
  EXPECT_FLOAT_EQ(f2->size.getValue(), 24.0f);
  auto* s2 = findFirst<SoText2>(root2);
  ASSERT_EQ(s2->string.getNum(), 2);
  EXPECT_EQ(s2->string[1], SbString(lines[1]));
  EXPECT_FLOAT_EQ(s2->spacing.getValue(), 1.5f);
  EXPECT_EQ(s2->justification.getValue(), SoText2::CENTER);
  auto* s3 = findFirst<SoText3>(root2);
  EXPECT_EQ(s3->string[0], SbString("3D"));
  EXPECT_EQ(s3->justification.getValue(), SoText3::RIGHT);
  EXPECT_EQ(s3->parts.getValue(), SoText3::FRONT | SoText3::BACK);
  // Writing what was read gives the same text.
  EXPECT_EQ(writeToString(root2), writeToString(root.get()));
}

TEST_F(TextureTextNodes, VrmlImageSyntaxAndFileNames) {
  auto root = readFromString(
      "#Orvex V1.0 ascii\n"
      "Texture2 { image 2 1 3 0xff0000 0x00ff00 wrapT CLAMP model DECAL }\n"
      "Texture2 { filename \"checker.png\" }\n");
  ASSERT_TRUE(root);
  auto* fromImage = static_cast<SoTexture2*>(root->getChild(0));
  SbVec2i32 size;
  int nc = 0;
  const unsigned char* pixels = fromImage->image.getValue(size, nc);
  ASSERT_EQ(size, SbVec2i32(2, 1));
  ASSERT_EQ(nc, 3);
  EXPECT_EQ(pixels[0], 255);
  EXPECT_EQ(pixels[1], 0);
  EXPECT_EQ(pixels[4], 255);
  EXPECT_EQ(fromImage->wrapT.getValue(), SoTexture2::CLAMP);
  EXPECT_EQ(fromImage->model.getValue(), SoTexture2::DECAL);
  // A texture from a file writes its name, not the pixels.
  const std::string written = writeToString(root->getChild(1));
  EXPECT_NE(written.find("filename \"checker.png\""), std::string::npos) << written;
  EXPECT_EQ(written.find("image"), std::string::npos) << written;
}

// The box of a Text3 of `text` in a font of `size`.
SbBox3f text3Box(const char* text, float size, int justification = SoText3::LEFT, int parts = SoText3::FRONT) {
  auto root = make(new SoSeparator);
  auto* font = new SoFont;
  font->size = size;
  root->addChild(font);
  auto* text3 = new SoText3;
  text3->string = text;
  text3->justification = justification;
  text3->parts = parts;
  root->addChild(text3);
  SoGetBoundingBoxAction action(SbViewportRegion(100, 100));
  action.apply(root.get());
  return action.getBoundingBox();
}

TEST_F(TextureTextNodes, Text3BoxGrowsWithTheStringAndTheSize) {
  const SbBox3f two = text3Box("WW", 1.0f);
  const SbBox3f four = text3Box("WWWW", 1.0f);
  ASSERT_FALSE(two.isEmpty());
  const float w2 = two.getSize()[0], h2 = two.getSize()[1];
  const float w4 = four.getSize()[0], h4 = four.getSize()[1];
  // Equal glyphs side by side: twice the string, twice the width.
  EXPECT_GT(w2, 1.0f);  // a W is wider than half an em
  EXPECT_NEAR(w4 / w2, 2.0f, 0.01f);
  EXPECT_FLOAT_EQ(h4, h2);
  EXPECT_NEAR(two.getMin()[0], 0.0f, 1e-6f);
  // Taller than the capitals' height (about 0.73 em), within ascent plus
  // descent of roughly 1.2 em.
  EXPECT_GT(h2, 0.73f);
  EXPECT_LT(h2, 1.3f);
  const SbBox3f big = text3Box("WW", 3.0f);
  const float w = big.getSize()[0], h = big.getSize()[1];
  EXPECT_NEAR(w / w2, 3.0f, 1e-3f);
  EXPECT_NEAR(h / h2, 3.0f, 1e-3f);
  // Justified: the string ends at the origin, or is centred on it.
  EXPECT_NEAR(text3Box("WW", 1.0f, SoText3::RIGHT).getMax()[0], 0.0f, 1e-5f);
  const SbBox3f centred = text3Box("WW", 1.0f, SoText3::CENTER);
  EXPECT_NEAR(centred.getMin()[0], -centred.getMax()[0], 1e-5f);
  // The back and sides lie behind the front by a fifth of the size.
  EXPECT_FLOAT_EQ(text3Box("WW", 2.0f, SoText3::LEFT, SoText3::ALL).getMin()[2], -0.4f);
  EXPECT_FLOAT_EQ(two.getMin()[2], 0.0f);
  EXPECT_TRUE(text3Box("", 1.0f).isEmpty());
}

// A pick along -z through (x, y) of a Text3 "I" of size 1; null when missed.
SbVec3f pickText3(float x, float y, bool& hit, SbVec3f& normal) {
  auto root = make(new SoSeparator);
  auto* text3 = new SoText3;
  text3->string = "I";
  root->addChild(text3);
  SoRayPickAction pick(SbViewportRegion(100, 100));
  pick.setRay(SbVec3f(x, y, 5.0f), SbVec3f(0.0f, 0.0f, -1.0f));
  pick.apply(root.get());
  const SoPickedPoint* pp = pick.getPickedPoint();
  hit = pp != nullptr;
  if (!pp) return SbVec3f();
  normal = pp->getNormal();
  return pp->getPoint();
}

TEST_F(TextureTextNodes, Text3PicksItsGlyphsAndNothingBeside) {
  // The capital I is a vertical bar centred in its advance, from the
  // baseline to the capital height; the box gives the advance.
  auto root = make(new SoSeparator);
  auto* font = new SoFont;
  font->size = 1.0f;
  root->addChild(font);
  const SbBox3f box = text3Box("I", 10.0f);  // default size 10
  const float middle = (box.getMin()[0] + box.getMax()[0]) / 2.0f;
  bool hit = false;
  SbVec3f normal;
  const SbVec3f p = pickText3(middle, 3.5f, hit, normal);
  ASSERT_TRUE(hit);
  EXPECT_NEAR(p[0], middle, 1e-4f);
  EXPECT_NEAR(p[2], 0.0f, 1e-5f);
  EXPECT_NEAR(normal[2], 1.0f, 1e-5f);
  // Beside the bar (inside its advance), above the capitals, and past the end.
  pickText3(box.getMin()[0] + 0.1f, 3.5f, hit, normal);
  EXPECT_FALSE(hit);
  pickText3(middle, 9.0f, hit, normal);
  EXPECT_FALSE(hit);
  pickText3(box.getMax()[0] + 1.0f, 3.5f, hit, normal);
  EXPECT_FALSE(hit);
}

TEST_F(TextureTextNodes, Text3SidesAndBackLieAFifthOfTheSizeBehind) {
  // An "I" of size 1 with every part: its bar's right side faces +x from
  // z = 0 to z = -0.2, its back faces -z at z = -0.2.
  auto root = make(new SoSeparator);
  auto* font = new SoFont;
  font->size = 1.0f;
  root->addChild(font);
  auto* text3 = new SoText3;
  text3->string = "I";
  text3->parts = SoText3::ALL;
  root->addChild(text3);
  const auto pick = [&](const SbVec3f& start, const SbVec3f& direction, SbVec3f& point, SbVec3f& normal) {
    SoRayPickAction action(SbViewportRegion(100, 100));
    action.setRay(start, direction);
    action.apply(root.get());
    const SoPickedPoint* pp = action.getPickedPoint();
    if (!pp) return false;
    point = pp->getPoint();
    normal = pp->getNormal();
    return true;
  };
  SbVec3f point, normal;
  // From the right, half way up the capital, half way into the depth.
  ASSERT_TRUE(pick(SbVec3f(10.0f, 0.35f, -0.1f), SbVec3f(-1, 0, 0), point, normal));
  EXPECT_NEAR(normal[0], 1.0f, 1e-5f);
  EXPECT_NEAR(point[2], -0.1f, 1e-5f);
  EXPECT_GT(point[0], 0.0f);
  EXPECT_LT(point[0], 1.0f);
  // Behind the back, the ray from the right passes.
  EXPECT_FALSE(pick(SbVec3f(10.0f, 0.35f, -0.3f), SbVec3f(-1, 0, 0), point, normal));
  // From behind, the back is hit first.
  const float x = point[0] - 0.02f;  // just inside the bar
  ASSERT_TRUE(pick(SbVec3f(x, 0.35f, -5.0f), SbVec3f(0, 0, 1), point, normal));
  EXPECT_NEAR(point[2], -0.2f, 1e-5f);
  EXPECT_NEAR(normal[2], -1.0f, 1e-5f);
}

TEST_F(TextureTextNodes, Text2BoxIsItsScreenRectangleAtTheOriginDepth) {
  // 200 pixels show 10 units: 20 pixels per unit.
  auto root = make(new SoSeparator);
  auto* camera = new SoOrthographicCamera;
  camera->position.setValue(0.0f, 0.0f, 10.0f);
  camera->height = 10.0f;
  root->addChild(camera);
  auto* move = new SoTranslation;
  move->translation.setValue(-2.0f, 1.0f, 3.0f);
  root->addChild(move);
  auto* font = new SoFont;
  font->size = 20.0f;
  root->addChild(font);
  auto* text2 = new SoText2;
  text2->string = "Orvex";
  root->addChild(text2);
  SoGetBoundingBoxAction action(SbViewportRegion(200, 200));
  action.apply(root.get());
  const SbBox3f box = action.getBoundingBox();
  ASSERT_FALSE(box.isEmpty());
  // Starts at the origin, at its depth; five glyphs of at most an em
  // (one unit here) each, at least a third of an em each.
  EXPECT_NEAR(box.getMin()[0], -2.0f, 0.05f);
  EXPECT_NEAR(box.getMin()[2], 3.0f, 1e-4f);
  EXPECT_NEAR(box.getMax()[2], 3.0f, 1e-4f);
  EXPECT_GT(box.getMax()[0] + 2.0f, 5.0f / 3.0f);
  EXPECT_LT(box.getMax()[0] + 2.0f, 5.0f);
  // From the descent below the baseline to the ascent above it.
  EXPECT_LT(box.getMin()[1], 1.0f);
  EXPECT_GT(box.getMin()[1], 1.0f - 0.4f);
  EXPECT_GT(box.getMax()[1], 1.0f + 0.7f);
  EXPECT_LT(box.getMax()[1], 1.0f + 1.3f);
}

TEST_F(TextureTextNodes, TextOfUnreasonableSizesHasNoExtentOrABoundedOne) {
  const float nan = std::nanf("");
  EXPECT_TRUE(text3Box("WW", nan).isEmpty());
  EXPECT_TRUE(text3Box("WW", std::numeric_limits<float>::infinity()).isEmpty());
  // Screen-aligned text: a size beyond the largest drawn, NaN spacing,
  // a camera of no height.
  for (const float height : {10.0f, 0.0f}) {
    auto root = make(new SoSeparator);
    auto* camera = new SoOrthographicCamera;
    camera->height = height;
    root->addChild(camera);
    auto* font = new SoFont;
    font->size = 1e30f;
    root->addChild(font);
    auto* text2 = new SoText2;
    text2->string.set1Value(0, "huge");
    text2->string.set1Value(1, "lines");
    text2->spacing = nan;
    root->addChild(text2);
    SoGetBoundingBoxAction action(SbViewportRegion(200, 200));
    action.apply(root.get());
    const SbBox3f box = action.getBoundingBox();
    if (box.isEmpty()) continue;
    for (int i = 0; i < 3; ++i) {
      EXPECT_TRUE(std::isfinite(box.getMin()[i]));
      EXPECT_TRUE(std::isfinite(box.getMax()[i]));
    }
  }
}

TEST_F(TextureTextNodes, Text2IsPickedWhereItShowsOnTheScreen) {
  // 20 pixels per unit; the origin (1, -1, 2) shows at pixel (120, 80).
  auto root = make(new SoSeparator);
  auto* camera = new SoOrthographicCamera;
  camera->position.setValue(0.0f, 0.0f, 10.0f);
  camera->height = 10.0f;
  root->addChild(camera);
  auto* move = new SoTranslation;
  move->translation.setValue(1.0f, -1.0f, 2.0f);
  root->addChild(move);
  auto* font = new SoFont;
  font->size = 20.0f;
  root->addChild(font);
  auto* text2 = new SoText2;
  text2->string = "Pick";
  root->addChild(text2);
  const auto pickAt = [&](short x, short y, SbVec3f& point) {
    SoRayPickAction pick(SbViewportRegion(200, 200));
    pick.setPoint(SbVec2s(x, y));
    pick.apply(root.get());
    const SoPickedPoint* pp = pick.getPickedPoint();
    if (pp) point = pp->getPoint();
    return pp != nullptr;
  };
  SbVec3f point;
  // Inside the first glyph's cell: the point lies on the text's plane.
  ASSERT_TRUE(pickAt(125, 85, point));
  EXPECT_NEAR(point[0], 1.0f + 5.0f / 20.0f, 0.03f);
  EXPECT_NEAR(point[1], -1.0f + 5.0f / 20.0f, 0.03f);
  EXPECT_NEAR(point[2], 2.0f, 1e-4f);
  // Left of the origin, above the ascent, past four ems: nothing.
  EXPECT_FALSE(pickAt(115, 85, point));
  EXPECT_FALSE(pickAt(125, 80 + 30, point));
  EXPECT_FALSE(pickAt(120 + 4 * 20 + 5, 85, point));
}

TEST_F(TextureTextNodes, Text2UnderPerspectiveIsPickedAtTheOriginDepth) {
  // A camera 10 units away with a 45 degree view: one pixel of 200 spans
  // 2 * 10 * tan(22.5 degrees) / 200 units at the origin's depth.
  auto root = make(new SoSeparator);
  auto* camera = new SoPerspectiveCamera;
  camera->position.setValue(0.0f, 0.0f, 10.0f);
  camera->heightAngle = static_cast<float>(M_PI / 4.0);
  root->addChild(camera);
  auto* font = new SoFont;
  font->size = 20.0f;
  root->addChild(font);
  auto* text2 = new SoText2;
  text2->string = "Pick";
  root->addChild(text2);
  SoRayPickAction pick(SbViewportRegion(200, 200));
  pick.setPoint(SbVec2s(105, 105));
  pick.apply(root.get());
  const SoPickedPoint* pp = pick.getPickedPoint();
  ASSERT_NE(pp, nullptr);
  const double unitsPerPixel = 2.0 * 10.0 * std::tan(M_PI / 8.0) / 200.0;
  // The pick ray of pixel (105, 105) passes 5 pixels right of and above
  // the view's centre (pixel 100), where the origin shows.
  EXPECT_NEAR(pp->getPoint()[0], 5.0 * unitsPerPixel, 1e-3);
  EXPECT_NEAR(pp->getPoint()[1], 5.0 * unitsPerPixel, 1e-3);
  EXPECT_NEAR(pp->getPoint()[2], 0.0f, 1e-4f);
}

double triangleArea(const orvex::text::TessellatedGlyph& g) {
  double area = 0.0;
  for (size_t t = 0; t + 2 < g.triangles.size(); t += 3) {
    const SbVec2f& a = g.vertices[static_cast<size_t>(g.triangles[t])];
    const SbVec2f& b = g.vertices[static_cast<size_t>(g.triangles[t + 1])];
    const SbVec2f& c = g.vertices[static_cast<size_t>(g.triangles[t + 2])];
    const double cross = (double(b[0]) - a[0]) * (double(c[1]) - a[1]) - (double(b[1]) - a[1]) * (double(c[0]) - a[0]);
    EXPECT_GE(cross, 0.0) << "triangle " << t / 3 << " is clockwise";
    area += cross / 2.0;
  }
  return area;
}

double contourArea(const orvex::text::Contour& c) {
  double area = 0.0;
  for (size_t i = 0; i < c.size(); ++i) {
    const SbVec2f& a = c[i];
    const SbVec2f& b = c[(i + 1) % c.size()];
    area += (double(a[0]) * b[1] - double(b[0]) * a[1]) / 2.0;
  }
  return area;
}

TEST_F(TextureTextNodes, TessellationFillsOutlinesAndLeavesHolesOpen) {
  using orvex::text::Contour;
  // A 4 x 4 square with a 2 x 2 hole and a 1 x 1 island in the hole, all
  // given counterclockwise: nesting, not direction, makes the hole.
  const Contour outer = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
  const Contour hole = {{1, 1}, {3, 1}, {3, 3}, {1, 3}};
  const Contour island = {{1.5f, 1.5f}, {2.5f, 1.5f}, {2.5f, 2.5f}, {1.5f, 2.5f}};
  const auto glyph = orvex::text::tessellate({outer, hole, island});
  EXPECT_NEAR(triangleArea(glyph), 16.0 - 4.0 + 1.0, 1e-6);
  ASSERT_EQ(glyph.contours.size(), 3u);
  EXPECT_GT(contourArea(glyph.contours[0]), 0.0);  // outer counterclockwise
  EXPECT_LT(contourArea(glyph.contours[1]), 0.0);  // hole clockwise
  EXPECT_GT(contourArea(glyph.contours[2]), 0.0);
  // Two holes side by side in a non-convex outline.
  const Contour ell = {{0, 0}, {6, 0}, {6, 2}, {2, 2}, {2, 6}, {0, 6}};
  const Contour h1 = {{0.5f, 0.5f}, {1.5f, 0.5f}, {1.5f, 1.5f}, {0.5f, 1.5f}};
  const Contour h2 = {{3, 0.5f}, {5, 0.5f}, {5, 1.5f}, {3, 1.5f}};
  EXPECT_NEAR(triangleArea(orvex::text::tessellate({ell, h1, h2})), 20.0 - 1.0 - 2.0, 1e-6);
}

TEST_F(TextureTextNodes, GlyphTrianglesCoverTheOutlineArea) {
  const auto font = orvex::text::Font::find(SbName("DejaVu Sans"));
  ASSERT_TRUE(font);
  EXPECT_NE(font->path().find("DejaVuSans.ttf"), std::string::npos) << font->path();
  // Unknown names fall back to DejaVu Sans; classic names find DejaVu families.
  EXPECT_EQ(orvex::text::Font::find(SbName("No Such Font"))->path(), font->path());
  EXPECT_NE(orvex::text::Font::find(SbName("Courier"))->path().find("DejaVuSansMono"), std::string::npos);
  // Every printable ASCII glyph of the DejaVu families, curves cut
  // coarsely and finely: the triangles fill exactly what the contours
  // enclose (holes, and bold glyphs with two holes, included).
  for (const char* name : {"DejaVu Sans", "DejaVu Sans:Bold", "DejaVu Serif", "DejaVu Serif:Bold", "DejaVu Sans Mono",
                           "DejaVu Sans Mono:Bold"}) {
    const auto face = orvex::text::Font::find(SbName(name));
    for (char32_t c = U'!'; c <= U'~'; ++c) {
      for (const int segments : {1, 4, 8}) {
        const auto glyph = face->outline(face->glyphIndex(c), segments);
        double outline = 0.0;
        for (const auto& contour : glyph->contours) outline += contourArea(contour);
        EXPECT_GT(outline, 0.001) << name << " '" << static_cast<char>(c) << "'";
        EXPECT_NEAR(triangleArea(*glyph), outline, outline * 1e-4)
            << name << " '" << static_cast<char>(c) << "', " << segments << " pieces per curve";
      }
    }
  }
}

}  // namespace
