#pragma once
// The identity of a set of contexts sharing lists and objects: contexts
// sharing with each other hold the same group, and with it what is kept of
// the objects they share.

#include "render/GLTextureCache.h"

namespace orvex {

struct GLShareGroup {
  GLTextureCache textures;
};

// The group of the context current on the calling thread through
// SoGLContext::bind(), or null.
GLShareGroup* currentShareGroup();

}  // namespace orvex
