#pragma once
#include <Orvex/elements/SoPointSizeElement.h>

// The point size in an OpenGL render traversal, sent to OpenGL when set
// and when a separator's end restores an earlier size (0, the default,
// draws 1-pixel points).
class SoGLPointSizeElement : public SoPointSizeElement {
  SO_ELEMENT_HEADER(SoGLPointSizeElement);

 public:
  void init(SoState* state) override;
  void pop(SoState* state, const SoElement* prevTopElement) override;
  void setElt(float value) override;

 protected:
  ~SoGLPointSizeElement() override;

 private:
  void send() const;
};
