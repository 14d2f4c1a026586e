#include <Orvex/devices/SoGLContext.h>
#include <Orvex/devices/SoGLExtension.h>

#include <GL/gl.h>
#include <GL/glext.h>

#include <cstring>

bool SoGLExtension::isAvailable(const char* name) {
  if (!name || !*name || !SoGLContext::getCurrent()) return false;
  // The indexed query works in every profile from OpenGL 3.0 on, the
  // single string in compatibility profiles of any version.
  GLint count = 0;
  glGetIntegerv(GL_NUM_EXTENSIONS, &count);
  if (glGetError() == GL_NO_ERROR && count > 0) {
    for (GLint i = 0; i < count; ++i) {
      const auto* ext = reinterpret_cast<const char*>(glGetStringi(GL_EXTENSIONS, static_cast<GLuint>(i)));
      if (ext && std::strcmp(ext, name) == 0) return true;
    }
    return false;
  }
  const auto* list = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
  if (!list) return false;
  const size_t len = std::strlen(name);
  for (const char* p = std::strstr(list, name); p; p = std::strstr(p + 1, name)) {
    if ((p == list || p[-1] == ' ') && (p[len] == ' ' || p[len] == '\0')) return true;
  }
  return false;
}
