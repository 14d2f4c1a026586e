#pragma once
#include <Orvex/SbBase.h>

// Queries about what the OpenGL implementation of the current context
// offers.
class SoGLExtension {
 public:
  // Whether the context current on the calling thread (see
  // SoGLContext::bind()) offers the OpenGL extension `name` (for example
  // "GL_ARB_framebuffer_object"). False when no context is current or
  // `name` is null or empty.
  static bool isAvailable(const char* name);
};
