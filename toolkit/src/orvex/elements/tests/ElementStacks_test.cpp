// Elements on their stacks: defaults, set and get, push and pop, matching,
// and the element-specific operations.

#include <Orvex/elements/SoComplexityElement.h>
#include <Orvex/elements/SoCoordinateElement.h>
#include <Orvex/elements/SoDepthBufferElement.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoFontNameElement.h>
#include <Orvex/elements/SoLazyElement.h>
#include <Orvex/elements/SoMaterialBindingElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoNormalBindingElement.h>
#include <Orvex/elements/SoOverrideElement.h>
#include <Orvex/elements/SoShapeHintsElement.h>
#include <Orvex/elements/SoTextureCoordinateElement.h>
#include <Orvex/elements/SoTextureMatrixElement.h>
#include <Orvex/elements/SoUnitsElement.h>
#include <Orvex/elements/SoViewportRegionElement.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoSphere.h>

#include <gtest/gtest.h>

#include <cmath>

#include "ElementTestSupport.h"

namespace {

constexpr float kEps = 1e-5f;

// Independent transformation of a point: scaled, then turned about z,
// then moved.
SbVec3f scaleTurnMove(const SbVec3f& p, const SbVec3f& s, float angle, const SbVec3f& t) {
  const float x = p[0] * s[0], y = p[1] * s[1], z = p[2] * s[2];
  const float c = std::cos(angle), sn = std::sin(angle);
  return SbVec3f(c * x - sn * y + t[0], sn * x + c * y + t[1], z + t[2]);
}

void expectNear(const SbVec3f& a, const SbVec3f& b, float eps = kEps) {
  EXPECT_NEAR(a[0], b[0], eps);
  EXPECT_NEAR(a[1], b[1], eps);
  EXPECT_NEAR(a[2], b[2], eps);
}

class ElementStacks : public ::testing::Test {
 protected:
  void SetUp() override {
    state = elementtest::makeState();
    node = new SoCube;
    node->ref();
    other = new SoSphere;
    other->ref();
  }
  void TearDown() override {
    state.reset();
    node->unref();
    other->unref();
  }
  std::unique_ptr<SoState> state;
  SoNode* node = nullptr;
  SoNode* other = nullptr;
};

TEST_F(ElementStacks, ModelMatrixOperationsApplyInTraversalOrder) {
  bool identity = false;
  SoModelMatrixElement::get(state.get(), identity);
  EXPECT_TRUE(identity);
  const SbVec3f t(1.0f, -2.0f, 3.0f), s(2.0f, 0.5f, 3.0f);
  const float angle = 0.7f;
  // The node met first applies last to the points.
  SoModelMatrixElement::translateBy(state.get(), node, t);
  SoModelMatrixElement::rotateBy(state.get(), node, SbRotation(SbVec3f(0, 0, 1), angle));
  SoModelMatrixElement::scaleBy(state.get(), node, s);
  const SbMatrix& m = SoModelMatrixElement::get(state.get(), identity);
  EXPECT_FALSE(identity);
  for (const SbVec3f& p : {SbVec3f(1, 0, 0), SbVec3f(0.3f, -4, 2), SbVec3f(-1, 1, -1)}) {
    SbVec3f got;
    m.multVecMatrix(p, got);
    expectNear(got, scaleTurnMove(p, s, angle, t));
  }
}

TEST_F(ElementStacks, PopRestoresTheMatrixAndMatchingFollowsTheContributors) {
  SoModelMatrixElement::translateBy(state.get(), node, SbVec3f(5, 0, 0));
  const SbMatrix before = SoModelMatrixElement::get(state.get());
  const SoElement* outer = state->getConstElement(SoModelMatrixElement::getClassStackIndex());
  std::unique_ptr<SoElement> saved(outer->copyMatchInfo());
  EXPECT_TRUE(outer->matches(saved.get()));

  state->push();
  SoModelMatrixElement::mult(state.get(), other, SbMatrix(2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1));
  const SoElement* inner = state->getConstElement(SoModelMatrixElement::getClassStackIndex());
  EXPECT_NE(inner, outer);
  EXPECT_EQ(inner->getDepth(), 1);
  EXPECT_FALSE(inner->matches(saved.get()));
  SbVec3f p;
  SoModelMatrixElement::get(state.get()).multVecMatrix(SbVec3f(1, 1, 1), p);
  expectNear(p, SbVec3f(7, 2, 2));
  state->pop();

  EXPECT_EQ(SoModelMatrixElement::get(state.get()), before);
  EXPECT_TRUE(state->getConstElement(SoModelMatrixElement::getClassStackIndex())->matches(saved.get()));
  // The same change by another node is another value.
  state->push();
  SoModelMatrixElement::makeIdentity(state.get(), other);
  EXPECT_FALSE(state->getConstElement(SoModelMatrixElement::getClassStackIndex())->matches(saved.get()));
  state->pop();
}

TEST_F(ElementStacks, PushMatrixAndPopMatrixBracketChanges) {
  SoModelMatrixElement::translateBy(state.get(), node, SbVec3f(0, 1, 0));
  const SbMatrix saved = SoModelMatrixElement::pushMatrix(state.get());
  SoModelMatrixElement::scaleBy(state.get(), node, SbVec3f(3, 3, 3));
  EXPECT_NE(SoModelMatrixElement::get(state.get()), saved);
  SoModelMatrixElement::popMatrix(state.get(), saved);
  EXPECT_EQ(SoModelMatrixElement::get(state.get()), saved);
}

TEST_F(ElementStacks, TextureMatrixAccumulates) {
  SoTextureMatrixElement::translateBy(state.get(), node, SbVec3f(0.5f, 0, 0));
  SoTextureMatrixElement::scaleBy(state.get(), node, SbVec3f(2, 2, 1));
  SbVec3f p;
  SoTextureMatrixElement::get(state.get()).multVecMatrix(SbVec3f(1, 1, 0), p);
  expectNear(p, SbVec3f(2.5f, 2, 0));
  SoTextureMatrixElement::makeIdentity(state.get(), node);
  EXPECT_TRUE(SoTextureMatrixElement::get(state.get()).isIdentity());
}

TEST_F(ElementStacks, ValueElementsHaveDefaultsAndAreScopedBySeparators) {
  EXPECT_FLOAT_EQ(SoComplexityElement::get(state.get()), 0.5f);
  EXPECT_EQ(SoDrawStyleElement::get(state.get()), SoDrawStyleElement::FILLED);
  EXPECT_EQ(SoMaterialBindingElement::get(state.get()), SoMaterialBindingElement::OVERALL);
  EXPECT_EQ(SoNormalBindingElement::get(state.get()), SoNormalBindingElement::PER_VERTEX_INDEXED);
  EXPECT_EQ(SoUnitsElement::get(state.get()), SoUnitsElement::METERS);
  EXPECT_EQ(SoFontNameElement::get(state.get()), SbName("defaultFont"));
  state->push();
  SoComplexityElement::set(state.get(), 0.9f);
  SoDrawStyleElement::set(state.get(), SoDrawStyleElement::LINES);
  SoUnitsElement::set(state.get(), SoUnitsElement::INCHES);
  SoFontNameElement::set(state.get(), node, SbName("Courier"));
  EXPECT_FLOAT_EQ(SoComplexityElement::get(state.get()), 0.9f);
  EXPECT_EQ(SoDrawStyleElement::get(state.get()), SoDrawStyleElement::LINES);
  EXPECT_EQ(SoUnitsElement::get(state.get()), SoUnitsElement::INCHES);
  EXPECT_EQ(SoFontNameElement::get(state.get()), SbName("Courier"));
  state->push();  // a nested push inherits the values
  EXPECT_EQ(SoDrawStyleElement::get(state.get()), SoDrawStyleElement::LINES);
  state->pop();
  state->pop();
  EXPECT_FLOAT_EQ(SoComplexityElement::get(state.get()), 0.5f);
  EXPECT_EQ(SoDrawStyleElement::get(state.get()), SoDrawStyleElement::FILLED);
  EXPECT_EQ(SoFontNameElement::get(state.get()), SbName("defaultFont"));
}

TEST_F(ElementStacks, ShapeHintsKeepWhatIsGivenAsIs) {
  SoShapeHintsElement::VertexOrderings o;
  SoShapeHintsElement::ShapeTypes s;
  SoShapeHintsElement::FaceTypes f;
  SoShapeHintsElement::get(state.get(), o, s, f);
  EXPECT_EQ(o, SoShapeHintsElement::UNKNOWN_ORDERING);
  EXPECT_EQ(s, SoShapeHintsElement::UNKNOWN_SHAPE_TYPE);
  EXPECT_EQ(f, SoShapeHintsElement::CONVEX);
  SoShapeHintsElement::set(state.get(), SoShapeHintsElement::COUNTERCLOCKWISE, SoShapeHintsElement::SOLID,
                           SoShapeHintsElement::UNKNOWN_FACE_TYPE);
  SoShapeHintsElement::set(state.get(), SoShapeHintsElement::ORDERING_AS_IS, SoShapeHintsElement::SHAPE_TYPE_AS_IS,
                           SoShapeHintsElement::CONVEX);
  SoShapeHintsElement::get(state.get(), o, s, f);
  EXPECT_EQ(o, SoShapeHintsElement::COUNTERCLOCKWISE);
  EXPECT_EQ(s, SoShapeHintsElement::SOLID);
  EXPECT_EQ(f, SoShapeHintsElement::CONVEX);
  EXPECT_EQ(SoShapeHintsElement::getWindingType(state.get()), SoShapeHintsElement::ODD_TYPE);
  SoShapeHintsElement::set(state.get(), SoShapeHintsElement::NONZERO_TYPE);
  EXPECT_EQ(SoShapeHintsElement::getWindingType(state.get()), SoShapeHintsElement::NONZERO_TYPE);
  SoShapeHintsElement::get(state.get(), o, s, f);
  EXPECT_EQ(o, SoShapeHintsElement::COUNTERCLOCKWISE);  // the winding call leaves the rest
}

TEST_F(ElementStacks, LazyElementHoldsArraysAndValues) {
  EXPECT_EQ(SoLazyElement::getDiffuse(state.get(), 0), SoLazyElement::getDefaultDiffuse());
  EXPECT_EQ(SoLazyElement::getInstance(state.get())->getNumDiffuse(), 1);
  const SbColor colors[3] = {SbColor(1, 0, 0), SbColor(0, 1, 0), SbColor(0, 0, 1)};
  const float transparencies[2] = {0.25f, 0.5f};
  state->push();
  SoLazyElement::setDiffuse(state.get(), node, 3, colors);
  SoLazyElement::setTransparency(state.get(), node, 2, transparencies);
  SoLazyElement::setShininess(state.get(), 0.7f);
  SoLazyElement::setLightModel(state.get(), SoLazyElement::BASE_COLOR);
  EXPECT_EQ(SoLazyElement::getDiffuse(state.get(), 1), SbColor(0, 1, 0));
  EXPECT_EQ(SoLazyElement::getDiffuse(state.get(), 7), SbColor(0, 0, 1));  // past the end: the last
  EXPECT_FLOAT_EQ(SoLazyElement::getTransparency(state.get(), 1), 0.5f);
  EXPECT_FLOAT_EQ(SoLazyElement::getShininess(state.get()), 0.7f);
  EXPECT_EQ(SoLazyElement::getLightModel(state.get()), SoLazyElement::BASE_COLOR);
  // Setting a value to what it is counts as redundant.
  SoLazyElement::setShininess(state.get(), 0.7f);
  EXPECT_EQ(SoLazyElement::getInstance(state.get())->getRedundantSetMask() & SoLazyElement::SHININESS_MASK,
            static_cast<uint32_t>(SoLazyElement::SHININESS_MASK));
  std::unique_ptr<SoElement> saved(SoLazyElement::getInstance(state.get())->copyMatchInfo());
  state->pop();
  EXPECT_EQ(SoLazyElement::getDiffuse(state.get(), 1), SoLazyElement::getDefaultDiffuse());
  EXPECT_FLOAT_EQ(SoLazyElement::getShininess(state.get()), SoLazyElement::getDefaultShininess());
  EXPECT_FALSE(SoLazyElement::getInstance(state.get())->matches(saved.get()));
}

TEST_F(ElementStacks, HomogeneousCoordinatesReadAs3D) {
  const SbVec4f h[2] = {SbVec4f(2, 4, 6, 2), SbVec4f(1, 1, 1, 1)};
  SoCoordinateElement::set4(state.get(), node, 2, h);
  const SoCoordinateElement* c = SoCoordinateElement::getInstance(state.get());
  EXPECT_FALSE(c->is3D());
  EXPECT_EQ(c->getNum(), 2);
  expectNear(c->get3(0), SbVec3f(1, 2, 3));
  EXPECT_EQ(c->get4(1), SbVec4f(1, 1, 1, 1));
  EXPECT_EQ(c->getNodeId(), node->getNodeId());
  const SbVec3f p[1] = {SbVec3f(9, 8, 7)};
  SoCoordinateElement::set3(state.get(), other, 1, p);
  EXPECT_EQ(c->get4(0), SbVec4f(9, 8, 7, 1));
}

namespace {
SbVec4f g_functionResult;
const SbVec4f& planarMapping(void*, const SbVec3f& point, const SbVec3f&) {
  g_functionResult.setValue(point[0] * 2, point[2], 0, 1);
  return g_functionResult;
}
}  // namespace

TEST_F(ElementStacks, TextureCoordinatesComeFromArraysOrAFunction) {
  EXPECT_EQ(SoTextureCoordinateElement::getType(state.get()), SoTextureCoordinateElement::DEFAULT);
  const SbVec2f uv[2] = {SbVec2f(0.25f, 0.5f), SbVec2f(1, 1)};
  SoTextureCoordinateElement::set2(state.get(), node, 2, uv);
  const SoTextureCoordinateElement* t = SoTextureCoordinateElement::getInstance(state.get());
  EXPECT_EQ(t->getType(), SoTextureCoordinateElement::EXPLICIT);
  EXPECT_EQ(t->get4(0), SbVec4f(0.25f, 0.5f, 0, 1));
  SoTextureCoordinateElement::setFunction(state.get(), node, &planarMapping, nullptr);
  EXPECT_EQ(SoTextureCoordinateElement::getType(state.get()), SoTextureCoordinateElement::FUNCTION);
  EXPECT_EQ(t->get(SbVec3f(1, 2, 3), SbVec3f(0, 0, 1)), SbVec4f(2, 3, 0, 1));
}

TEST_F(ElementStacks, DepthBufferAndViewportRegion) {
  bool test, write;
  SoDepthBufferElement::DepthWriteFunctions f;
  SbVec2f range;
  SoDepthBufferElement::get(state.get(), test, write, f, range);
  EXPECT_TRUE(test);
  EXPECT_TRUE(write);
  EXPECT_EQ(f, SoDepthBufferElement::LESS);
  EXPECT_EQ(range, SbVec2f(0, 1));
  SoDepthBufferElement::set(state.get(), false, true, SoDepthBufferElement::GEQUAL, SbVec2f(0.2f, 0.8f));
  SoDepthBufferElement::get(state.get(), test, write, f, range);
  EXPECT_FALSE(test);
  EXPECT_EQ(f, SoDepthBufferElement::GEQUAL);
  EXPECT_EQ(range, SbVec2f(0.2f, 0.8f));

  SoViewportRegionElement::set(state.get(), SbViewportRegion(640, 480));
  EXPECT_EQ(SoViewportRegionElement::get(state.get()).getViewportSizePixels(), SbVec2s(640, 480));
}

TEST_F(ElementStacks, OverrideFlagsAreScoped) {
  EXPECT_FALSE(SoOverrideElement::getDiffuseColorOverride(state.get()));
  state->push();
  SoOverrideElement::setOverride(state.get(), node, SoOverrideElement::DIFFUSE_COLOR, true);
  EXPECT_TRUE(SoOverrideElement::getDiffuseColorOverride(state.get()));
  EXPECT_FALSE(SoOverrideElement::getDrawStyleOverride(state.get()));
  state->pop();
  EXPECT_FALSE(SoOverrideElement::getDiffuseColorOverride(state.get()));
}

}  // namespace
