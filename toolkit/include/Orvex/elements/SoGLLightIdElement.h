#pragma once
#include <Orvex/elements/SoInt32Element.h>

// The OpenGL light source used by the last light traversed: -1 before any,
// then 0, 1... for each light in turn. It is pushed and popped with the
// state, so the lights of a separator end with it: the shapes that follow
// are lit by the sources 0 to get() only.
class SoGLLightIdElement : public SoInt32Element {
  SO_ELEMENT_HEADER(SoGLLightIdElement);

 public:
  void init(SoState* state) override;

  // Takes the next source for a new light: answers its number, or -1 when
  // all getMaxGLSources() sources are in use (the light is then ignored).
  static int32_t increment(SoState* state);
  // The source of the last light traversed, or -1 when there is none.
  static int32_t get(SoState* state);
  // The value of a fresh state: -1.
  static int32_t getDefault() { return -1; }
  // The number of light sources of the fixed-function pipeline (8).
  static int32_t getMaxGLSources() { return 8; }

 protected:
  ~SoGLLightIdElement() override;
};
