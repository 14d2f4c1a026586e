// The OpenGL elements: registered under their class names, in the render
// action's state in place of the plain ones, sending their values when
// set and again when a separator's end restores the earlier values; the
// pass and update-area elements as the action sets them.

#include <Orvex/SoType.h>
#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/elements/SoGLDepthBufferElement.h>
#include <Orvex/elements/SoGLDrawStyleElement.h>
#include <Orvex/elements/SoGLLinePatternElement.h>
#include <Orvex/elements/SoGLLineWidthElement.h>
#include <Orvex/elements/SoGLPointSizeElement.h>
#include <Orvex/elements/SoGLRenderPassElement.h>
#include <Orvex/elements/SoGLShapeHintsElement.h>
#include <Orvex/elements/SoGLUpdateAreaElement.h>
#include <Orvex/elements/SoGLViewportRegionElement.h>
#include <Orvex/misc/SoState.h>
#include <Orvex/nodes/SoCallback.h>
#include <Orvex/nodes/SoDepthBuffer.h>
#include <Orvex/nodes/SoDrawStyle.h>
#include <Orvex/nodes/SoLineSet.h>
#include <Orvex/nodes/SoShapeHints.h>

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

struct ElementPair {
  const char* gl;
  const char* plain;
  int stackIndex;
};

std::vector<ElementPair> elementPairs() {
  SoGLRenderAction::initClass();
  return {{"SoGLDrawStyleElement", "SoDrawStyleElement", SoDrawStyleElement::getClassStackIndex()},
          {"SoGLLineWidthElement", "SoLineWidthElement", SoLineWidthElement::getClassStackIndex()},
          {"SoGLLinePatternElement", "SoLinePatternElement", SoLinePatternElement::getClassStackIndex()},
          {"SoGLPointSizeElement", "SoPointSizeElement", SoPointSizeElement::getClassStackIndex()},
          {"SoGLDepthBufferElement", "SoDepthBufferElement", SoDepthBufferElement::getClassStackIndex()},
          {"SoGLShapeHintsElement", "SoShapeHintsElement", SoShapeHintsElement::getClassStackIndex()},
          {"SoGLViewportRegionElement", "SoViewportRegionElement", SoViewportRegionElement::getClassStackIndex()}};
}

TEST(GLElements, RegisteredUnderTheirClassNamesAndUsedByTheRenderAction) {
  const std::vector<ElementPair> pairs = elementPairs();
  for (const ElementPair& p : pairs) {
    const SoType gl = SoType::fromName(p.gl);
    ASSERT_FALSE(gl.isBad()) << p.gl;
    EXPECT_TRUE(gl.isDerivedFrom(SoType::fromName(p.plain))) << p.gl;
    EXPECT_TRUE(gl.canCreateInstance()) << p.gl;
  }
  EXPECT_FALSE(SoType::fromName("SoGLRenderPassElement").isBad());
  EXPECT_FALSE(SoType::fromName("SoGLUpdateAreaElement").isBad());
  EXPECT_EQ(SoGLDrawStyleElement::getClassStackIndex(), SoDrawStyleElement::getClassStackIndex());

  // What a callback node finds in the state of each action.
  struct Probe {
    std::vector<ElementPair> pairs;
    std::vector<std::string> found;
    static void callback(void* data, SoAction* action) {
      auto* self = static_cast<Probe*>(data);
      for (const ElementPair& p : self->pairs)
        self->found.emplace_back(action->getState()->getConstElement(p.stackIndex)->getTypeId().getName().getString());
    }
  } probe{pairs, {}};
  Root root;
  auto* node = new SoCallback;
  node->setCallback(&Probe::callback, &probe);
  root->addChild(node);
  SoOffscreenRenderer renderer(SbViewportRegion(4, 4));
  ASSERT_TRUE(renderer.render(root.node));
  ASSERT_EQ(probe.found.size(), pairs.size());
  for (size_t i = 0; i < pairs.size(); ++i) EXPECT_EQ(probe.found[i], pairs[i].gl);
  probe.found.clear();
  SoCallbackAction other;
  other.apply(root.node);
  ASSERT_EQ(probe.found.size(), pairs.size());
  for (size_t i = 0; i < pairs.size(); ++i) EXPECT_EQ(probe.found[i], pairs[i].plain);
}

// Pixels (x, y) for y in [y0, y1) whose red channel is lit.
int litInColumn(const SoOffscreenRenderer& r, int x, int y0, int y1) {
  int n = 0;
  for (int y = y0; y < y1; ++y) n += pixel(r, x, y)[0] > 127;
  return n;
}

// A horizontal line from x0 to x1 at height y.
void addLine(SoSeparator* root, float x0, float x1, float y) {
  auto* coords = new SoCoordinate3;
  const float pts[2][3] = {{x0, y, 0.0f}, {x1, y, 0.0f}};
  coords->point.setValues(0, 2, pts);
  root->addChild(coords);
  auto* line = new SoLineSet;
  line->numVertices.setValue(2);
  root->addChild(line);
}

TEST(GLElements, SeparatorEndRestoresDrawStyleAndLineWidth) {
  // Inside a separator: points drawn style and lines 5 pixels wide. After
  // it: a line of the default width, and a filled quad.
  const int size = 40;  // 4 units: 10 pixels a unit
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(diffuse(1.0f, 0.0f, 0.0f));
  auto* inside = new SoSeparator;
  auto* style = new SoDrawStyle;
  style->style = SoDrawStyle::POINTS;
  style->lineWidth = 5.0f;
  inside->addChild(style);
  addLine(inside, -1.5f, -0.5f, 0.55f);  // through pixel centres of row 25
  root->addChild(inside);
  addLine(root.node, 0.5f, 1.5f, 0.55f);
  addQuad(root.node, -1.5f, -1.5f, -0.5f, -0.5f, 0.0f);  // lower left
  SoOffscreenRenderer renderer(SbViewportRegion(size, size));
  ASSERT_TRUE(renderer.render(root.node));

  // A vertical cut through each line (upper half: the quad is below):
  // 5 rows thick inside the separator, 1 after it.
  EXPECT_EQ(litInColumn(renderer, 10, size / 2, size), 5);
  EXPECT_EQ(litInColumn(renderer, 30, size / 2, size), 1);
  // The quad after the separator is filled again, not drawn as its 4
  // corner points: 10 x 10 pixels.
  int filled = 0;
  for (int y = 0; y < size / 2; ++y)
    for (int x = 0; x < size / 2; ++x) filled += pixel(renderer, x, y)[0] > 127;
  EXPECT_EQ(filled, 100);

  // Without the separator's end the points style would have stayed: the
  // same scene with the style outside any separator draws no filled quad.
  Root flat;
  flat->addChild(orthoCamera(4.0f));
  flat->addChild(baseColor());
  auto* points = new SoDrawStyle;
  points->style = SoDrawStyle::POINTS;
  flat->addChild(points);
  addQuad(flat.node, -1.5f, -1.5f, -0.5f, -0.5f, 0.0f);
  ASSERT_TRUE(renderer.render(flat.node));
  EXPECT_LE(gltest::countLit(renderer, 100), 4);
}

TEST(GLElements, LinePatternStipplesLinesUntilTheSeparatorEnds) {
  // Two horizontal lines 32 pixels long through pixel centres: the first,
  // in a separator, with the pattern 0x0F0F (4 pixels on, 4 off), the
  // second with the default solid pattern.
  const int size = 40;  // 4 units: 10 pixels a unit
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  root->addChild(diffuse(1.0f, 0.0f, 0.0f));
  auto* inside = new SoSeparator;
  auto* dashed = new SoDrawStyle;
  dashed->linePattern = 0x0F0F;
  inside->addChild(dashed);
  addLine(inside, -1.6f, 1.6f, 1.05f);  // row 30, columns 4 to 35
  root->addChild(inside);
  addLine(root.node, -1.6f, 1.6f, -0.95f);  // row 10
  SoOffscreenRenderer renderer(SbViewportRegion(size, size));
  ASSERT_TRUE(renderer.render(root.node));
  int dashedLit = 0, solidLit = 0;
  for (int x = 0; x < size; ++x) {
    dashedLit += pixel(renderer, x, 30)[0] > 127;
    solidLit += pixel(renderer, x, 10)[0] > 127;
  }
  // 32 pixels, or 33 where the rasteriser also takes the pixel the line
  // ends on.
  EXPECT_GE(solidLit, 32);
  EXPECT_LE(solidLit, 33);
  // Pixel i along the line is drawn when bit i mod 16 of the pattern is.
  int expected = 0;
  for (int i = 0; i < solidLit; ++i) expected += (0x0F0F >> (i % 16)) & 1;
  EXPECT_EQ(dashedLit, expected);
}

TEST(GLElements, SeparatorEndRestoresShapeHintsAndDepth) {
  // Inside a separator: solid clockwise hints (the camera sees the quad's
  // back: culled) and a depth test that lets everything through. After
  // it: the same quad drawn again with the default hints, and a far quad
  // that the depth test must hide behind a near one.
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  auto* inside = new SoSeparator;
  auto* hints = new SoShapeHints;
  hints->vertexOrdering = SoShapeHints::CLOCKWISE;
  hints->shapeType = SoShapeHints::SOLID;
  inside->addChild(hints);
  auto* noTest = new SoDepthBuffer;
  noTest->test = false;
  inside->addChild(noTest);
  inside->addChild(diffuse(0.0f, 0.0f, 1.0f));
  addQuad(inside, -2.0f, 0.0f, 0.0f, 2.0f, 0.0f);  // upper left: culled
  root->addChild(inside);
  root->addChild(diffuse(1.0f, 0.0f, 0.0f));
  addQuad(root.node, -2.0f, 0.0f, 0.0f, 2.0f, 0.0f);  // upper left again: drawn
  addQuad(root.node, 0.0f, -2.0f, 2.0f, 0.0f, 1.0f);  // lower right, near
  auto* far = new SoSeparator;
  far->addChild(diffuse(0.0f, 1.0f, 0.0f));
  addQuad(far, 0.0f, -2.0f, 2.0f, 0.0f, -1.0f);  // lower right, far: hidden
  root->addChild(far);
  SoOffscreenRenderer renderer(SbViewportRegion(20, 20));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(pixel(renderer, 5, 15), (std::array<int, 4>{255, 0, 0, 255}));
  EXPECT_EQ(pixel(renderer, 15, 5), (std::array<int, 4>{255, 0, 0, 255}));
}

TEST(GLElements, ViewportFollowsTheRegionAndIsRestored) {
  // 20 x 20 pixels, 4 units: 5 pixels a unit. Inside a separator a
  // callback narrows the viewport to the left half, where a quad filling
  // the view turns red. After the separator a green quad from -1 to 1
  // must land in columns 5 to 14 of the whole window again.
  struct Narrow {
    static void callback(void*, SoAction* action) {
      SbViewportRegion left(20, 20);
      left.setViewportPixels(0, 0, 10, 20);
      SoViewportRegionElement::set(action->getState(), left);
    }
  };
  Root root;
  root->addChild(orthoCamera(4.0f));
  root->addChild(baseColor());
  auto* inside = new SoSeparator;
  auto* narrow = new SoCallback;
  narrow->setCallback(&Narrow::callback, nullptr);
  inside->addChild(narrow);
  inside->addChild(diffuse(1, 0, 0));
  addQuad(inside, -2.0f, -2.0f, 2.0f, 2.0f, 0.0f);
  root->addChild(inside);
  root->addChild(diffuse(0, 1, 0));
  addQuad(root.node, -1.0f, -1.0f, 1.0f, 1.0f, 1.0f);
  for (const bool tiled : {false, true}) {
    SoOffscreenRenderer renderer(SbViewportRegion(20, 20));
    if (tiled) renderer.setMaxTileSize(SbVec2s(7, 6));
    ASSERT_TRUE(renderer.render(root.node));
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < 20; ++x) {
        const bool green = x >= 5 && x < 15 && y >= 5 && y < 15;
        const bool red = !green && x < 10;
        const std::array<int, 4> expected{red ? 255 : 0, green ? 255 : 0, 0, 255};
        EXPECT_EQ(pixel(renderer, x, y), expected) << x << ", " << y << (tiled ? " tiled" : "");
      }
    }
  }
}

TEST(GLElements, PassAndUpdateAreaAsTheActionSetsThem) {
  struct Seen {
    std::vector<int> passes;
    SbVec2f origin, size;
    bool partial = false;
    static void callback(void* data, SoAction* action) {
      auto* self = static_cast<Seen*>(data);
      self->passes.push_back(SoGLRenderPassElement::get(action->getState()));
      self->partial = SoGLUpdateAreaElement::get(action->getState(), self->origin, self->size);
    }
  } seen;
  Root root;
  auto* node = new SoCallback;
  node->setCallback(&Seen::callback, &seen);
  root->addChild(node);
  SoOffscreenRenderer renderer(SbViewportRegion(8, 8));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(seen.passes, std::vector<int>{0});
  EXPECT_FALSE(seen.partial);
  EXPECT_EQ(seen.size, SbVec2f(1.0f, 1.0f));

  seen.passes.clear();
  SoGLRenderAction* action = renderer.getGLRenderAction();
  action->setNumPasses(3);
  action->setUpdateArea(SbVec2f(0.25f, 0.0f), SbVec2f(0.5f, 1.0f));
  ASSERT_TRUE(renderer.render(root.node));
  EXPECT_EQ(seen.passes, (std::vector<int>{0, 1, 2}));
  EXPECT_TRUE(seen.partial);
  EXPECT_EQ(seen.origin, SbVec2f(0.25f, 0.0f));
  EXPECT_EQ(seen.size, SbVec2f(0.5f, 1.0f));
}

}  // namespace
