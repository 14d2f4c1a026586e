#pragma once
// A framebuffer object with an RGBA colour renderbuffer (8 bits per
// channel unless another format is asked for) and a combined 24-bit depth
// / 8-bit stencil renderbuffer, multisampled when samples > 1, in the
// context current when it is made; that context (or one sharing with it)
// must be current when it is bound or destroyed.

#include <GL/gl.h>

namespace orvex {

class GLFramebuffer {
 public:
  GLFramebuffer(int width, int height, int samples = 0, GLenum colorFormat = GL_RGBA8);
  ~GLFramebuffer();
  GLFramebuffer(const GLFramebuffer&) = delete;
  GLFramebuffer& operator=(const GLFramebuffer&) = delete;

  // Whether the framebuffer is complete (usable).
  bool isComplete() const { return m_complete; }
  int width() const { return m_width; }
  int height() const { return m_height; }
  int samples() const { return m_samples; }
  GLenum colorFormat() const { return m_colorFormat; }
  // Makes it the target of drawing and reading.
  void bind() const;
  // Forgets its OpenGL objects without deleting them, for when their
  // context is gone or not current (their names may then be another's).
  void abandon();
  // Goes back to the context's own drawable.
  static void unbind();

 private:
  int m_width;
  int m_height;
  int m_samples;
  GLenum m_colorFormat;
  GLuint m_framebuffer = 0;
  GLuint m_color = 0;
  GLuint m_depthStencil = 0;
  bool m_complete = false;
};

}  // namespace orvex
