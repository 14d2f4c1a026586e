#pragma once
// Light nodes turned into fixed-function light sources: the light's
// position and direction are taken to eye coordinates when the light is
// traversed, so that the transformations in force there place it.

#include "GLRenderCaches.h"

class SoLight;
class SoState;

namespace orvex {

// The source a light node gives in the state (its model and viewing
// matrices); false for a light that is off or of an unknown kind.
bool makeLightSource(SoState* state, const SoLight* light, GLLightSource& source);

// Sets the OpenGL sources 0 to count - 1 from `sources` and turns the
// others off. Leaves the model-view matrix the identity.
void sendLightSources(const std::vector<GLLightSource>& sources, int count);

}  // namespace orvex
