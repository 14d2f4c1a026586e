#pragma once
#include <Orvex/elements/SoViewportRegionElement.h>

// The viewport region in an OpenGL render traversal: the OpenGL viewport
// (and the scissor box of the render action's update area, or of the tile
// being drawn) follows it when it is set and when a separator's end
// restores an earlier region.
class SoGLViewportRegionElement : public SoViewportRegionElement {
  SO_ELEMENT_HEADER(SoGLViewportRegionElement);

 public:
  void init(SoState* state) override;
  void push(SoState* state) override;
  void pop(SoState* state, const SoElement* prevTopElement) override;

 protected:
  ~SoGLViewportRegionElement() override;
  void setElt(const SbViewportRegion& region) override;

 private:
  void send() const;
  SoState* m_state = nullptr;  // the state holding the element
};
