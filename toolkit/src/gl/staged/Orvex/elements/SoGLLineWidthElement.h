#pragma once
#include <Orvex/elements/SoLineWidthElement.h>

// The line width in an OpenGL render traversal, sent to OpenGL when set
// and when a separator's end restores an earlier width (0, the default,
// draws 1-pixel lines).
class SoGLLineWidthElement : public SoLineWidthElement {
  SO_ELEMENT_HEADER(SoGLLineWidthElement);

 public:
  void init(SoState* state) override;
  void pop(SoState* state, const SoElement* prevTopElement) override;
  void setElt(float value) override;

 protected:
  ~SoGLLineWidthElement() override;

 private:
  void send() const;
};
