#include "GLFramebuffer.h"

#include <GL/glext.h>

namespace orvex {

GLFramebuffer::GLFramebuffer(int width, int height, int samples, GLenum colorFormat)
    : m_width(width), m_height(height), m_samples(samples > 1 ? samples : 0), m_colorFormat(colorFormat) {
  glGenFramebuffers(1, &m_framebuffer);
  glGenRenderbuffers(1, &m_color);
  glGenRenderbuffers(1, &m_depthStencil);
  glBindRenderbuffer(GL_RENDERBUFFER, m_color);
  glRenderbufferStorageMultisample(GL_RENDERBUFFER, m_samples, colorFormat, width, height);
  glBindRenderbuffer(GL_RENDERBUFFER, m_depthStencil);
  glRenderbufferStorageMultisample(GL_RENDERBUFFER, m_samples, GL_DEPTH24_STENCIL8, width, height);
  glBindRenderbuffer(GL_RENDERBUFFER, 0);
  glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, m_color);
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER, m_depthStencil);
  m_complete = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
  glBindFramebuffer(GL_FRAMEBUFFER, 0);
}

GLFramebuffer::~GLFramebuffer() {
  if (m_framebuffer) glDeleteFramebuffers(1, &m_framebuffer);
  if (m_color) glDeleteRenderbuffers(1, &m_color);
  if (m_depthStencil) glDeleteRenderbuffers(1, &m_depthStencil);
}

void GLFramebuffer::abandon() {
  m_framebuffer = m_color = m_depthStencil = 0;
  m_complete = false;
}

void GLFramebuffer::bind() const {
  glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
  glDrawBuffer(GL_COLOR_ATTACHMENT0);
  glReadBuffer(GL_COLOR_ATTACHMENT0);
}

void GLFramebuffer::unbind() { glBindFramebuffer(GL_FRAMEBUFFER, 0); }

}  // namespace orvex
