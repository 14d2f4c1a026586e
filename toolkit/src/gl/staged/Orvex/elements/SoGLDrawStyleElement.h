#pragma once
#include <Orvex/elements/SoDrawStyleElement.h>

// The draw style in an OpenGL render traversal: polygons are filled,
// outlined or drawn as points (glPolygonMode) from when the style is set,
// and again when a separator's end restores an earlier style.
class SoGLDrawStyleElement : public SoDrawStyleElement {
  SO_ELEMENT_HEADER(SoGLDrawStyleElement);

 public:
  void init(SoState* state) override;
  void pop(SoState* state, const SoElement* prevTopElement) override;
  void setElt(int32_t value) override;

 protected:
  ~SoGLDrawStyleElement() override;

 private:
  void send() const;
};
