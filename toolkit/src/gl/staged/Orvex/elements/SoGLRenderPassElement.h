#pragma once
#include <Orvex/elements/SoInt32Element.h>

// The rendering pass an SoGLRenderAction is drawing (0 for the first; see
// SoGLRenderAction::setNumPasses()), for nodes that draw differently in
// some passes.
class SoGLRenderPassElement : public SoInt32Element {
  SO_ELEMENT_HEADER(SoGLRenderPassElement);

 public:
  void init(SoState* state) override;
  static void set(SoState* state, int32_t pass);
  static int32_t get(SoState* state);
  static int32_t getDefault() { return 0; }

 protected:
  ~SoGLRenderPassElement() override;
};
