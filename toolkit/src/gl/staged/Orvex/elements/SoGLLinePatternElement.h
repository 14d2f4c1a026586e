#pragma once
#include <Orvex/elements/SoLinePatternElement.h>

// The line stipple pattern in an OpenGL render traversal, sent to OpenGL
// when set and when a separator's end restores an earlier pattern: bit i
// of the 16-bit pattern says whether pixel i (mod 16) along a line is
// drawn; 0xFFFF, the default, draws solid lines without stippling.
class SoGLLinePatternElement : public SoLinePatternElement {
  SO_ELEMENT_HEADER(SoGLLinePatternElement);

 public:
  void init(SoState* state) override;
  void pop(SoState* state, const SoElement* prevTopElement) override;
  void setElt(int32_t value) override;

 protected:
  ~SoGLLinePatternElement() override;

 private:
  void send() const;
};
