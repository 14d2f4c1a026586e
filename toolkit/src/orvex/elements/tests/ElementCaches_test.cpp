// Caches record the elements they depend on and are valid where those
// match; separators keep their bounding box in such a cache.

#include <Orvex/SbViewportRegion.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/caches/SoCache.h>
#include <Orvex/elements/SoCacheElement.h>
#include <Orvex/elements/SoComplexityElement.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/nodes/SoCallback.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoCube.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoSeparator.h>
#include <Orvex/nodes/SoTranslation.h>

#include <gtest/gtest.h>

#include "ElementTestSupport.h"

namespace {

class Caches : public ::testing::Test {
 protected:
  void SetUp() override { state = elementtest::makeState(); }
  std::unique_ptr<SoState> state;
};

SoCache* openCache(SoState* state) {
  state->push();
  auto* cache = new SoCache(state);
  cache->ref();
  SoCacheElement::set(state, cache);
  return cache;
}

TEST_F(Caches, ElementsSetOutsideAreDependenciesAndDecideValidity) {
  SoComplexityElement::set(state.get(), 0.3f);
  SoCache* cache = openCache(state.get());
  EXPECT_TRUE(state->isCacheOpen());
  EXPECT_EQ(SoCacheElement::getCurrentCache(state.get()), cache);
  EXPECT_FLOAT_EQ(SoComplexityElement::get(state.get()), 0.3f);  // read: set outside
  SoDrawStyleElement::set(state.get(), SoDrawStyleElement::LINES);
  EXPECT_EQ(SoDrawStyleElement::get(state.get()), SoDrawStyleElement::LINES);  // set inside: not a dependency
  EXPECT_EQ(cache->getNumDependencies(), 1);
  state->pop();
  EXPECT_FALSE(state->isCacheOpen());

  EXPECT_TRUE(cache->isValid(state.get()));
  SoComplexityElement::set(state.get(), 0.8f);
  EXPECT_FALSE(cache->isValid(state.get()));
  ASSERT_NE(cache->getInvalidElement(state.get()), nullptr);
  EXPECT_EQ(cache->getInvalidElement(state.get())->getTypeId(), SoComplexityElement::getClassTypeId());
  SoComplexityElement::set(state.get(), 0.3f);  // the same value again
  EXPECT_TRUE(cache->isValid(state.get()));
  cache->invalidate();
  EXPECT_FALSE(cache->isValid(state.get()));
  cache->unref();
}

TEST_F(Caches, NestedCachesTakeWhatLiesOutsideEach) {
  SoComplexityElement::set(state.get(), 0.1f);
  SoCache* outer = openCache(state.get());
  SoDrawStyleElement::set(state.get(), SoDrawStyleElement::POINTS);  // inside the outer only
  SoCache* inner = openCache(state.get());
  SoComplexityElement::get(state.get());
  SoDrawStyleElement::get(state.get());
  EXPECT_EQ(inner->getNumDependencies(), 2);
  EXPECT_EQ(outer->getNumDependencies(), 1);
  state->pop();
  // A reused inner cache hands on what the outer one needs, nothing more.
  SoCache* outer2 = openCache(state.get());
  SoCacheElement::addCacheDependency(state.get(), inner);
  EXPECT_EQ(outer2->getNumDependencies(), 2);  // opened at the inner one's depth: both lie outside
  state->pop();
  state->pop();
  inner->unref();
  outer->unref();
  outer2->unref();
}

TEST_F(Caches, InvalidatingReachesEveryOpenCache) {
  SoCache* outer = openCache(state.get());
  SoCache* inner = openCache(state.get());
  SoCacheElement::invalidate(state.get());
  state->pop();
  state->pop();
  EXPECT_FALSE(inner->isValid(state.get()));
  EXPECT_FALSE(outer->isValid(state.get()));
  inner->unref();
  outer->unref();
}

// ---- separators -------------------------------------------------------------------------

class SeparatorCache : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
  SbBox3f boxOf(SoNode* root) {
    SoGetBoundingBoxAction action(SbViewportRegion(100, 100));
    action.apply(root);
    return action.getBoundingBox();
  }
  // Changes a field without telling anyone: only a cache that is not used
  // shows the new value.
  static void silently(SoField& field, const char* value) {
    field.enableNotify(false);
    field.set(value);
    field.enableNotify(true);
  }
};

TEST_F(SeparatorCache, TheBoxIsKeptUntilTheChildrenChange) {
  auto* root = new SoSeparator;
  root->ref();
  auto* move = new SoTranslation;
  auto* sep = new SoSeparator;
  auto* cube = new SoCube;
  root->addChild(move);
  root->addChild(sep);
  sep->addChild(cube);
  EXPECT_EQ(boxOf(root), SbBox3f(-1, -1, -1, 1, 1, 1));
  silently(cube->width, "10");
  EXPECT_EQ(boxOf(root), SbBox3f(-1, -1, -1, 1, 1, 1));  // from the cache
  // The cache is kept in the separator's space: moving it moves the box.
  move->translation.setValue(3, 0, 0);
  const SbBox3f moved = boxOf(root);
  EXPECT_NEAR(moved.getMin()[0], 2.0f, 1e-5f);
  EXPECT_NEAR(moved.getMax()[0], 4.0f, 1e-5f);
  cube->width.touch();  // now the separator hears of it
  const SbBox3f wide = boxOf(root);
  EXPECT_NEAR(wide.getMin()[0], -2.0f, 1e-5f);
  EXPECT_NEAR(wide.getMax()[0], 8.0f, 1e-5f);

  sep->boundingBoxCaching.setValue(SoSeparator::OFF);
  silently(cube->width, "2");
  EXPECT_NEAR(boxOf(root).getMax()[0], 4.0f, 1e-5f);  // no cache: the new width at once
  root->unref();
}

TEST_F(SeparatorCache, CoordinatesSetOutsideAreADependency) {
  auto* root = new SoSeparator;
  root->ref();
  auto* coords = new SoCoordinate3;
  const SbVec3f points[3] = {SbVec3f(0, 0, 0), SbVec3f(1, 0, 0), SbVec3f(0, 1, 0)};
  coords->point.setValues(0, 3, points);
  auto* sep = new SoSeparator;
  auto* faces = new SoIndexedFaceSet;
  const int32_t index[4] = {0, 1, 2, -1};
  faces->coordIndex.setValues(0, 4, index);
  root->addChild(coords);
  root->addChild(sep);
  sep->addChild(faces);
  EXPECT_EQ(boxOf(root), SbBox3f(0, 0, 0, 1, 1, 0));
  coords->point.set1Value(1, SbVec3f(5, 0, 2));  // the separator itself is not told
  EXPECT_EQ(boxOf(root), SbBox3f(0, 0, 0, 5, 1, 2));
  root->unref();
}

TEST_F(SeparatorCache, NodesThatCannotBeCachedKeepNoCache) {
  auto* root = new SoSeparator;
  root->ref();
  auto* sep = new SoSeparator;
  auto* cube = new SoCube;
  sep->addChild(new SoCallback);
  sep->addChild(cube);
  root->addChild(sep);
  EXPECT_EQ(boxOf(root), SbBox3f(-1, -1, -1, 1, 1, 1));
  silently(cube->height, "6");
  EXPECT_EQ(boxOf(root), SbBox3f(-1, -3, -1, 1, 3, 1));
  root->unref();
}

}  // namespace
