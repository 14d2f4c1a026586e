#include "GLShapeCache.h"

#include <Orvex/caches/SoCache.h>
#include <Orvex/elements/SoComplexityElement.h>
#include <Orvex/elements/SoComplexityTypeElement.h>
#include <Orvex/elements/SoCoordinateElement.h>
#include <Orvex/elements/SoCreaseAngleElement.h>
#include <Orvex/elements/SoFontNameElement.h>
#include <Orvex/elements/SoFontSizeElement.h>
#include <Orvex/elements/SoMaterialBindingElement.h>
#include <Orvex/elements/SoNormalBindingElement.h>
#include <Orvex/elements/SoNormalElement.h>
#include <Orvex/elements/SoShapeHintsElement.h>
#include <Orvex/elements/SoTextureCoordinateBindingElement.h>
#include <Orvex/elements/SoTextureCoordinateElement.h>
#include <Orvex/misc/SoState.h>

namespace orvex {

namespace {
// The stacks whose elements shapes read while generating primitives.
const int* dependencyStacks(int& count) {
  static const int stacks[] = {
      SoCoordinateElement::getClassStackIndex(),      SoNormalElement::getClassStackIndex(),
      SoNormalBindingElement::getClassStackIndex(),   SoMaterialBindingElement::getClassStackIndex(),
      SoTextureCoordinateElement::getClassStackIndex(), SoTextureCoordinateBindingElement::getClassStackIndex(),
      SoShapeHintsElement::getClassStackIndex(),      SoCreaseAngleElement::getClassStackIndex(),
      SoComplexityElement::getClassStackIndex(),      SoComplexityTypeElement::getClassStackIndex(),
      // Text takes its glyphs from the font.
      SoFontNameElement::getClassStackIndex(),        SoFontSizeElement::getClassStackIndex(),
  };
  count = static_cast<int>(sizeof(stacks) / sizeof(stacks[0]));
  return stacks;
}
}  // namespace

GLShapeCache::GLShapeCache(SoState* state, uint64_t nodeId) : m_nodeId(nodeId), m_dependencies(new SoCache(state)) {
  m_dependencies->ref();
  int count = 0;
  const int* stacks = dependencyStacks(count);
  for (int i = 0; i < count; ++i) {
    if (stacks[i] < 0 || !state->isElementEnabled(stacks[i])) continue;
    if (const SoElement* elt = state->getConstElement(stacks[i])) m_dependencies->addElement(elt);
  }
}

GLShapeCache::~GLShapeCache() { m_dependencies->unref(); }

bool GLShapeCache::isValid(const SoState* state, uint64_t nodeId) const {
  return nodeId == m_nodeId && m_dependencies->isValid(state);
}

}  // namespace orvex
