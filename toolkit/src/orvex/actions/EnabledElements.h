#pragma once
// The elements that the actions traversing shapes enable: everything the
// property, transformation and camera nodes set and the shapes read.

#include <Orvex/actions/SoSubAction.h>
#include <Orvex/elements/SoCacheElement.h>
#include <Orvex/elements/SoComplexityElement.h>
#include <Orvex/elements/SoComplexityTypeElement.h>
#include <Orvex/elements/SoCoordinateElement.h>
#include <Orvex/elements/SoCreaseAngleElement.h>
#include <Orvex/elements/SoDepthBufferElement.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoFocalDistanceElement.h>
#include <Orvex/elements/SoFontNameElement.h>
#include <Orvex/elements/SoFontSizeElement.h>
#include <Orvex/elements/SoLazyElement.h>
#include <Orvex/elements/SoLinePatternElement.h>
#include <Orvex/elements/SoLineWidthElement.h>
#include <Orvex/elements/SoMaterialBindingElement.h>
#include <Orvex/elements/SoMaterialElement.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoNormalBindingElement.h>
#include <Orvex/elements/SoNormalElement.h>
#include <Orvex/elements/SoOverrideElement.h>
#include <Orvex/elements/SoPickStyleElement.h>
#include <Orvex/elements/SoPointSizeElement.h>
#include <Orvex/elements/SoProjectionMatrixElement.h>
#include <Orvex/elements/SoShapeHintsElement.h>
#include <Orvex/elements/SoTextureCoordinateBindingElement.h>
#include <Orvex/elements/SoTextureCoordinateElement.h>
#include <Orvex/elements/SoTextureImageElement.h>
#include <Orvex/elements/SoTextureMatrixElement.h>
#include <Orvex/elements/SoTextureQualityElement.h>
#include <Orvex/elements/SoUnitsElement.h>
#include <Orvex/elements/SoViewVolumeElement.h>
#include <Orvex/elements/SoViewingMatrixElement.h>
#include <Orvex/elements/SoViewportRegionElement.h>

namespace orvex {

template <class Action>
void enableShapeElements() {
  SO_ENABLE(Action, SoModelMatrixElement);
  SO_ENABLE(Action, SoTextureMatrixElement);
  SO_ENABLE(Action, SoViewingMatrixElement);
  SO_ENABLE(Action, SoProjectionMatrixElement);
  SO_ENABLE(Action, SoViewVolumeElement);
  SO_ENABLE(Action, SoViewportRegionElement);
  SO_ENABLE(Action, SoFocalDistanceElement);
  SO_ENABLE(Action, SoCoordinateElement);
  SO_ENABLE(Action, SoNormalElement);
  SO_ENABLE(Action, SoNormalBindingElement);
  SO_ENABLE(Action, SoMaterialBindingElement);
  SO_ENABLE(Action, SoTextureCoordinateElement);
  SO_ENABLE(Action, SoTextureCoordinateBindingElement);
  SO_ENABLE(Action, SoTextureImageElement);
  SO_ENABLE(Action, SoShapeHintsElement);
  SO_ENABLE(Action, SoCreaseAngleElement);
  SO_ENABLE(Action, SoComplexityElement);
  SO_ENABLE(Action, SoComplexityTypeElement);
  SO_ENABLE(Action, SoTextureQualityElement);
  SO_ENABLE(Action, SoDrawStyleElement);
  SO_ENABLE(Action, SoLineWidthElement);
  SO_ENABLE(Action, SoPointSizeElement);
  SO_ENABLE(Action, SoLinePatternElement);
  SO_ENABLE(Action, SoPickStyleElement);
  SO_ENABLE(Action, SoOverrideElement);
  SO_ENABLE(Action, SoUnitsElement);
  SO_ENABLE(Action, SoFontNameElement);
  SO_ENABLE(Action, SoFontSizeElement);
  SO_ENABLE(Action, SoLazyElement);
  SO_ENABLE(Action, SoMaterialElement);
  SO_ENABLE(Action, SoDepthBufferElement);
  SO_ENABLE(Action, SoCacheElement);
}

}  // namespace orvex
