#pragma once
// The process's EGL display without a window system, initialised while
// anything holds it and terminated when the last holder lets go.

#include <EGL/egl.h>

#include <memory>

namespace orvex {

class EglDisplay {
 public:
  // The initialised display, with the desktop OpenGL API available, or null
  // when no EGL platform without a window system works here.
  static std::shared_ptr<EglDisplay> acquire();
  ~EglDisplay();
  EglDisplay(const EglDisplay&) = delete;
  EglDisplay& operator=(const EglDisplay&) = delete;

  EGLDisplay handle() const { return m_display; }
  // Whether the display offers the EGL extension.
  bool hasExtension(const char* name) const;

 private:
  explicit EglDisplay(EGLDisplay display) : m_display(display) {}
  EGLDisplay m_display;
};

}  // namespace orvex
