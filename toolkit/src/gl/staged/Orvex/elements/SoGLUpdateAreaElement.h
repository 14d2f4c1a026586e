#pragma once
#include <Orvex/SbVec2f.h>
#include <Orvex/elements/SoSubElement.h>

// The part of the viewport an SoGLRenderAction draws (see
// SoGLRenderAction::setUpdateArea()), as fractions of the viewport: nodes
// can skip what lies outside it.
class SoGLUpdateAreaElement : public SoElement {
  SO_ELEMENT_HEADER(SoGLUpdateAreaElement);

 public:
  void init(SoState* state) override;
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;

  static void set(SoState* state, const SbVec2f& origin, const SbVec2f& size);
  // False when the area is the whole viewport.
  static bool get(SoState* state, SbVec2f& origin, SbVec2f& size);
  static SbVec2f getDefaultOrigin() { return SbVec2f(0.0f, 0.0f); }
  static SbVec2f getDefaultSize() { return SbVec2f(1.0f, 1.0f); }

 protected:
  ~SoGLUpdateAreaElement() override;

 private:
  SbVec2f m_origin{0.0f, 0.0f};
  SbVec2f m_size{1.0f, 1.0f};
};
