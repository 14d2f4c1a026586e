#pragma once
// One OpenGL buffer object holding a copy of an array that does not
// change (a shape's positions or normals), uploaded the first time it is
// drawn in an SoGLContext. It remembers that context (referenced, so its
// address cannot be reused by another) and is used only where that
// context, or one sharing with it, is current.

#include <GL/gl.h>

#include <cstddef>

class SoGLContext;

namespace orvex {

class GLBufferObject {
 public:
  GLBufferObject() = default;
  ~GLBufferObject();
  GLBufferObject(const GLBufferObject&) = delete;
  GLBufferObject& operator=(const GLBufferObject&) = delete;

  // Binds the buffer holding `bytes` bytes at `data` as GL_ARRAY_BUFFER,
  // uploading them the first time. False, with no buffer bound, when no
  // SoGLContext is current or the current one does not share with the
  // buffer's: the caller then draws from `data` itself.
  bool bind(const void* data, size_t bytes);

 private:
  GLuint m_name = 0;
  SoGLContext* m_context = nullptr;  // referenced
};

}  // namespace orvex
