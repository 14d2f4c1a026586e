#pragma once
// An offscreen desktop-OpenGL context on EGL without a display server:
// Mesa's surfaceless platform (or the device platform), a 1x1 pbuffer when
// the configuration offers one, otherwise no surface at all. Renderings go
// to framebuffer objects.

#include <EGL/egl.h>

#include <memory>

#include "GLPlatformContext.h"

namespace orvex {

class EglDisplay;

class EglOffscreenContext : public GLPlatformContext {
 public:
  EglOffscreenContext(const SoGLFormat& format, EglOffscreenContext* shareWith);
  ~EglOffscreenContext() override;
  EglOffscreenContext(const EglOffscreenContext&) = delete;
  EglOffscreenContext& operator=(const EglOffscreenContext&) = delete;

  bool isValid() const override { return m_context != EGL_NO_CONTEXT; }
  bool makeCurrent() override;
  void doneCurrent() override;
  void swapBuffers() override;

 private:
  // The display stays initialised while a context uses it.
  std::shared_ptr<EglDisplay> m_display;
  EGLContext m_context = EGL_NO_CONTEXT;
  EGLSurface m_surface = EGL_NO_SURFACE;
};

}  // namespace orvex
