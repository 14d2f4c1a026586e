#pragma once
// A framebuffer object with an RGBA8 colour renderbuffer and a combined
// 24-bit depth / 8-bit stencil renderbuffer, in the context current when
// it is made; that context (or one sharing with it) must be current when
// it is bound or destroyed.

#include <GL/gl.h>

namespace orvex {

class GLFramebuffer {
 public:
  GLFramebuffer(int width, int height);
  ~GLFramebuffer();
  GLFramebuffer(const GLFramebuffer&) = delete;
  GLFramebuffer& operator=(const GLFramebuffer&) = delete;

  // Whether the framebuffer is complete (usable).
  bool isComplete() const { return m_complete; }
  int width() const { return m_width; }
  int height() const { return m_height; }
  // Makes it the target of drawing and reading.
  void bind() const;
  // Goes back to the context's own drawable.
  static void unbind();

 private:
  int m_width;
  int m_height;
  GLuint m_framebuffer = 0;
  GLuint m_color = 0;
  GLuint m_depthStencil = 0;
  bool m_complete = false;
};

}  // namespace orvex
