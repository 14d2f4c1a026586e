// The elements holding one number or one enumerated value.

#include <Orvex/elements/SoComplexityElement.h>
#include <Orvex/elements/SoCreaseAngleElement.h>
#include <Orvex/elements/SoFocalDistanceElement.h>
#include <Orvex/elements/SoFontSizeElement.h>
#include <Orvex/elements/SoLineWidthElement.h>
#include <Orvex/elements/SoPointSizeElement.h>
#include <Orvex/elements/SoTextureQualityElement.h>
#include <Orvex/elements/SoComplexityTypeElement.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoLinePatternElement.h>
#include <Orvex/elements/SoMaterialBindingElement.h>
#include <Orvex/elements/SoNormalBindingElement.h>
#include <Orvex/elements/SoTextureCoordinateBindingElement.h>
#include <Orvex/elements/SoPickStyleElement.h>
#include <Orvex/elements/SoUnitsElement.h>

// Registration, construction and the typed static accessors of an element
// holding one value of its parent's kind (float or 32-bit integer).
#define ORVEX_VALUE_ELEMENT_SOURCE(className, parentClass, valueType)                    \
  SO_ELEMENT_SOURCE(className)                                                           \
  className::className() { SO_ELEMENT_CONSTRUCTOR(className); }                          \
  className::~className() = default;                                                     \
  void className::initClass() { SO_ELEMENT_INIT_CLASS(className, parentClass); }         \
  void className::init(SoState*) { data = getDefault(); }                                \
  void className::set(SoState* state, valueType value) {                                 \
    parentClass::set(s_classStackIndex, state, value);                                   \
  }                                                                                      \
  valueType className::get(SoState* state) {                                             \
    if (!state->isElementEnabled(s_classStackIndex)) return getDefault();                \
    return static_cast<valueType>(parentClass::get(s_classStackIndex, state));           \
  }

ORVEX_VALUE_ELEMENT_SOURCE(SoComplexityElement, SoFloatElement, float)
ORVEX_VALUE_ELEMENT_SOURCE(SoCreaseAngleElement, SoFloatElement, float)
ORVEX_VALUE_ELEMENT_SOURCE(SoFocalDistanceElement, SoFloatElement, float)
ORVEX_VALUE_ELEMENT_SOURCE(SoFontSizeElement, SoFloatElement, float)
ORVEX_VALUE_ELEMENT_SOURCE(SoLineWidthElement, SoFloatElement, float)
ORVEX_VALUE_ELEMENT_SOURCE(SoPointSizeElement, SoFloatElement, float)
ORVEX_VALUE_ELEMENT_SOURCE(SoTextureQualityElement, SoFloatElement, float)
ORVEX_VALUE_ELEMENT_SOURCE(SoComplexityTypeElement, SoInt32Element, SoComplexityTypeElement::Type)
ORVEX_VALUE_ELEMENT_SOURCE(SoDrawStyleElement, SoInt32Element, SoDrawStyleElement::Style)
ORVEX_VALUE_ELEMENT_SOURCE(SoLinePatternElement, SoInt32Element, int32_t)
ORVEX_VALUE_ELEMENT_SOURCE(SoMaterialBindingElement, SoInt32Element, SoMaterialBindingElement::Binding)
ORVEX_VALUE_ELEMENT_SOURCE(SoNormalBindingElement, SoInt32Element, SoNormalBindingElement::Binding)
ORVEX_VALUE_ELEMENT_SOURCE(SoTextureCoordinateBindingElement, SoInt32Element, SoTextureCoordinateBindingElement::Binding)
ORVEX_VALUE_ELEMENT_SOURCE(SoPickStyleElement, SoInt32Element, SoPickStyleElement::Style)
ORVEX_VALUE_ELEMENT_SOURCE(SoUnitsElement, SoInt32Element, SoUnitsElement::Units)
