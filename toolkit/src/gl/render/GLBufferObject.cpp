#include "GLBufferObject.h"

#include <Orvex/devices/SoGLContext.h>

#include <GL/glext.h>

namespace orvex {

GLBufferObject::~GLBufferObject() {
  if (!m_context) return;
  // Deleted where the name means this buffer; elsewhere it goes with its
  // context.
  SoGLContext* current = SoGLContext::getCurrent();
  if (m_name && current && current->isSharedWith(m_context)) glDeleteBuffers(1, &m_name);
  m_context->unref();
}

bool GLBufferObject::bind(const void* data, size_t bytes) {
  SoGLContext* current = SoGLContext::getCurrent();
  if (!current || bytes == 0) return false;
  if (m_context) {
    if (!current->isSharedWith(m_context)) return false;
    glBindBuffer(GL_ARRAY_BUFFER, m_name);
    return true;
  }
  glGenBuffers(1, &m_name);
  glBindBuffer(GL_ARRAY_BUFFER, m_name);
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(bytes), data, GL_STATIC_DRAW);
  m_context = current;
  m_context->ref();
  return true;
}

}  // namespace orvex
