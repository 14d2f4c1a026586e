#pragma once
// Draws the vertex arrays of a shape with the OpenGL state the traversal
// state asks for: matrices, lights, material, shape hints, draw style,
// depth buffer and transparency.

#include <Orvex/actions/SoGLRenderAction.h>

#include <vector>

#include "GLRenderCaches.h"

class SoState;

namespace orvex {

struct GLDrawSettings {
  SoGLRenderAction::TransparencyType transparency = SoGLRenderAction::BLEND;
  const std::vector<GLLightSource>* lights = nullptr;
  int numLights = 0;
  // Applied after the projection: a tile's part of the picture, a pass's
  // sub-pixel shift.
  SbMatrix pictureTransform = SbMatrix::identity();
  // Transparent vertices leave the depth buffer as it is (the delayed
  // transparent shapes).
  bool keepDepthForTransparent = false;
};

// Whether the current material has any transparency above 0.
bool materialIsTransparent(SoState* state);

void drawShapeArrays(SoState* state, GLShapeArrays& arrays, const GLDrawSettings& settings);

}  // namespace orvex
