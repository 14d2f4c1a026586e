#pragma once
#include <Orvex/elements/SoDepthBufferElement.h>

// The depth-buffer settings in an OpenGL render traversal: test, writes,
// comparison and range, sent to OpenGL when set and when a separator's end
// restores earlier ones.
class SoGLDepthBufferElement : public SoDepthBufferElement {
  SO_ELEMENT_HEADER(SoGLDepthBufferElement);

 public:
  void init(SoState* state) override;
  void pop(SoState* state, const SoElement* prevTopElement) override;

 protected:
  ~SoGLDepthBufferElement() override;
  void setElt(bool test, bool write, DepthWriteFunctions function, const SbVec2f& range) override;

 private:
  void send() const;
};
