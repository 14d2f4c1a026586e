#include "EglOffscreenContext.h"

#include <EGL/eglext.h>
#include <GL/gl.h>

#include <vector>

#include "EglDisplay.h"

namespace orvex {

namespace {
// The configuration closest to the format among those rendering desktop
// OpenGL, or null (then the context is made without one, when the display
// allows it). Samples are not asked of the configuration: multisampling
// happens in framebuffer objects.
EGLConfig chooseConfig(EGLDisplay display, const SoGLFormat& format, bool wantPbuffer) {
  const EGLint attribs[] = {EGL_SURFACE_TYPE,
                            wantPbuffer ? EGL_PBUFFER_BIT : 0,
                            EGL_RENDERABLE_TYPE,
                            EGL_OPENGL_BIT,
                            EGL_RED_SIZE,
                            format.getColorBits(),
                            EGL_GREEN_SIZE,
                            format.getColorBits(),
                            EGL_BLUE_SIZE,
                            format.getColorBits(),
                            EGL_ALPHA_SIZE,
                            format.getAlphaBits(),
                            EGL_DEPTH_SIZE,
                            format.getDepthBits(),
                            EGL_STENCIL_SIZE,
                            format.getStencilBits(),
                            EGL_NONE};
  EGLConfig config = nullptr;
  EGLint count = 0;
  if (!eglChooseConfig(display, attribs, &config, 1, &count) || count < 1) return nullptr;
  return config;
}
}  // namespace

EglOffscreenContext::EglOffscreenContext(const SoGLFormat& format, EglOffscreenContext* shareWith)
    : m_display(EglDisplay::acquire()) {
  if (!m_display || !eglBindAPI(EGL_OPENGL_API)) return;
  const EGLDisplay display = m_display->handle();
  EGLConfig config = chooseConfig(display, format, true);
  const bool pbuffer = config != nullptr;
  if (!config) config = chooseConfig(display, format, false);
  if (!config && !m_display->hasExtension("EGL_KHR_no_config_context")) return;
  const EGLContext share = shareWith && shareWith->isValid() ? shareWith->m_context : EGL_NO_CONTEXT;
  // No version asked: the implementation gives its compatibility profile,
  // with the fixed-function pipeline the renderer uses.
  m_context = eglCreateContext(display, config ? config : EGL_NO_CONFIG_KHR, share, nullptr);
  if (m_context == EGL_NO_CONTEXT) return;
  if (pbuffer) {
    const EGLint surfaceAttribs[] = {EGL_WIDTH, 1, EGL_HEIGHT, 1, EGL_NONE};
    m_surface = eglCreatePbufferSurface(display, config, surfaceAttribs);
  }
  if (m_surface == EGL_NO_SURFACE && !m_display->hasExtension("EGL_KHR_surfaceless_context")) {
    eglDestroyContext(display, m_context);
    m_context = EGL_NO_CONTEXT;
  }
}

EglOffscreenContext::~EglOffscreenContext() {
  if (!m_display) return;
  const EGLDisplay display = m_display->handle();
  if (eglGetCurrentContext() == m_context && m_context != EGL_NO_CONTEXT)
    eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  if (m_surface != EGL_NO_SURFACE) eglDestroySurface(display, m_surface);
  if (m_context != EGL_NO_CONTEXT) eglDestroyContext(display, m_context);
}

bool EglOffscreenContext::makeCurrent() {
  if (!isValid()) return false;
  return eglMakeCurrent(m_display->handle(), m_surface, m_surface, m_context) == EGL_TRUE;
}

void EglOffscreenContext::doneCurrent() {
  if (m_display) eglMakeCurrent(m_display->handle(), EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
}

void EglOffscreenContext::swapBuffers() {
  // A pbuffer has no front buffer to show; what matters offscreen is that
  // the commands are done.
  glFinish();
}

}  // namespace orvex
