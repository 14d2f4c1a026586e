// Element classes register by being declared, each gets its stack, and
// derived classes share their parent's.

#include <Orvex/SoDB.h>
#include <Orvex/elements/SoBBoxModelMatrixElement.h>
#include <Orvex/elements/SoCacheElement.h>
#include <Orvex/elements/SoComplexityElement.h>
#include <Orvex/elements/SoCoordinateElement.h>
#include <Orvex/elements/SoDepthBufferElement.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoFontNameElement.h>
#include <Orvex/elements/SoFontSizeElement.h>
#include <Orvex/elements/SoLazyElement.h>
#include <Orvex/elements/SoLineWidthElement.h>
#include <Orvex/elements/SoLocalBBoxMatrixElement.h>
#include <Orvex/elements/SoMaterialBindingElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoNormalBindingElement.h>
#include <Orvex/elements/SoNormalElement.h>
#include <Orvex/elements/SoOverrideElement.h>
#include <Orvex/elements/SoPickRayElement.h>
#include <Orvex/elements/SoPickStyleElement.h>
#include <Orvex/elements/SoPointSizeElement.h>
#include <Orvex/elements/SoProjectionMatrixElement.h>
#include <Orvex/elements/SoShapeHintsElement.h>
#include <Orvex/elements/SoSwitchElement.h>
#include <Orvex/elements/SoTextureCoordinateElement.h>
#include <Orvex/elements/SoTextureMatrixElement.h>
#include <Orvex/elements/SoUnitsElement.h>
#include <Orvex/elements/SoViewVolumeElement.h>
#include <Orvex/elements/SoViewingMatrixElement.h>
#include <Orvex/elements/SoViewportRegionElement.h>

#include <gtest/gtest.h>

#include <set>

// An element class that only this test declares: declaring it is all it
// takes to have it set up by SoDB::init().
class TestOnlyElement : public SoInt32Element {
  SO_ELEMENT_HEADER(TestOnlyElement);

 public:
  void init(SoState*) override { data = 42; }

 protected:
  ~TestOnlyElement() override = default;
};

SO_ELEMENT_SOURCE(TestOnlyElement)
TestOnlyElement::TestOnlyElement() { SO_ELEMENT_CONSTRUCTOR(TestOnlyElement); }
void TestOnlyElement::initClass() { SO_ELEMENT_INIT_CLASS(TestOnlyElement, SoInt32Element); }

namespace {

class ElementRegistry : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { SoDB::init(); }
};

TEST_F(ElementRegistry, ADeclaredClassIsSetUpByTheDatabase) {
  ASSERT_FALSE(TestOnlyElement::getClassTypeId().isBad());
  EXPECT_EQ(TestOnlyElement::getClassTypeId().getName(), SbName("TestOnlyElement"));
  EXPECT_EQ(TestOnlyElement::getClassTypeId().getParent(), SoInt32Element::getClassTypeId());
  EXPECT_GE(TestOnlyElement::getClassStackIndex(), 0);
  EXPECT_EQ(SoType::fromName("TestOnlyElement"), TestOnlyElement::getClassTypeId());
  std::unique_ptr<SoElement> instance(
      static_cast<SoElement*>(TestOnlyElement::getClassTypeId().createInstance()));
  ASSERT_TRUE(instance);
  EXPECT_EQ(instance->getStackIndex(), TestOnlyElement::getClassStackIndex());
}

TEST_F(ElementRegistry, EveryStackStartingClassHasItsOwnIndex) {
  const std::vector<SoType> starters = {
      SoModelMatrixElement::getClassTypeId(),      SoLocalBBoxMatrixElement::getClassTypeId(),
      SoTextureMatrixElement::getClassTypeId(),    SoViewingMatrixElement::getClassTypeId(),
      SoProjectionMatrixElement::getClassTypeId(), SoViewVolumeElement::getClassTypeId(),
      SoViewportRegionElement::getClassTypeId(),   SoCoordinateElement::getClassTypeId(),
      SoNormalElement::getClassTypeId(),           SoTextureCoordinateElement::getClassTypeId(),
      SoMaterialBindingElement::getClassTypeId(),  SoNormalBindingElement::getClassTypeId(),
      SoShapeHintsElement::getClassTypeId(),       SoComplexityElement::getClassTypeId(),
      SoDrawStyleElement::getClassTypeId(),        SoLineWidthElement::getClassTypeId(),
      SoPointSizeElement::getClassTypeId(),        SoPickStyleElement::getClassTypeId(),
      SoPickRayElement::getClassTypeId(),          SoSwitchElement::getClassTypeId(),
      SoOverrideElement::getClassTypeId(),         SoUnitsElement::getClassTypeId(),
      SoFontNameElement::getClassTypeId(),         SoFontSizeElement::getClassTypeId(),
      SoDepthBufferElement::getClassTypeId(),      SoLazyElement::getClassTypeId(),
      SoCacheElement::getClassTypeId()};
  std::set<int> indices;
  for (SoType t : starters) {
    ASSERT_FALSE(t.isBad());
    // The class at the index is the class itself.
    bool found = false;
    for (int i = 0; i < SoElement::getNumStackIndices(); ++i)
      if (SoElement::getIdFromStackIndex(i) == t) {
        found = true;
        EXPECT_TRUE(indices.insert(i).second) << t.getName().getString();
      }
    EXPECT_TRUE(found) << t.getName().getString();
  }
  EXPECT_EQ(indices.size(), starters.size());
}

TEST_F(ElementRegistry, ADerivedClassSharesItsParentsStack) {
  EXPECT_EQ(SoBBoxModelMatrixElement::getClassStackIndex(), SoModelMatrixElement::getClassStackIndex());
  EXPECT_TRUE(SoBBoxModelMatrixElement::getClassTypeId().isDerivedFrom(SoModelMatrixElement::getClassTypeId()));
  EXPECT_TRUE(SoModelMatrixElement::getClassTypeId().isDerivedFrom(SoAccumulatedElement::getClassTypeId()));
  EXPECT_TRUE(SoCoordinateElement::getClassTypeId().isDerivedFrom(SoReplacedElement::getClassTypeId()));
  EXPECT_TRUE(SoComplexityElement::getClassTypeId().isDerivedFrom(SoFloatElement::getClassTypeId()));
  EXPECT_TRUE(SoDrawStyleElement::getClassTypeId().isDerivedFrom(SoInt32Element::getClassTypeId()));
  // Abstract bases start no stack and cannot be made.
  EXPECT_LT(SoReplacedElement::getClassStackIndex(), 0);
  EXPECT_FALSE(SoReplacedElement::getClassTypeId().canCreateInstance());
  EXPECT_TRUE(SoCoordinateElement::getClassTypeId().canCreateInstance());
}

}  // namespace
