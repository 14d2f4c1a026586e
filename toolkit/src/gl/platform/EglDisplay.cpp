#include "EglDisplay.h"

#include <EGL/eglext.h>

#include <cstring>
#include <mutex>

namespace orvex {

namespace {
std::mutex s_mutex;
std::weak_ptr<EglDisplay> s_display;

// A display of the platform, or EGL_NO_DISPLAY. eglGetPlatformDisplay is
// EGL 1.5; the EXT entry point covers older client libraries.
EGLDisplay platformDisplay(EGLenum platform, void* nativeDisplay) {
  EGLDisplay display = eglGetPlatformDisplay(platform, nativeDisplay, nullptr);
  if (display != EGL_NO_DISPLAY) return display;
  auto getDisplayExt =
      reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT"));
  return getDisplayExt ? getDisplayExt(platform, nativeDisplay, nullptr) : EGL_NO_DISPLAY;
}

// Whether the space-separated list holds the name as a whole word.
bool listHas(const char* list, const char* name) {
  if (!list || !name || !*name) return false;
  const size_t len = std::strlen(name);
  for (const char* p = std::strstr(list, name); p; p = std::strstr(p + 1, name)) {
    const bool startOk = p == list || p[-1] == ' ';
    const bool endOk = p[len] == ' ' || p[len] == '\0';
    if (startOk && endOk) return true;
  }
  return false;
}

bool clientHasExtension(const char* name) { return listHas(eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS), name); }

bool initialise(EGLDisplay display) {
  if (display == EGL_NO_DISPLAY) return false;
  EGLint major = 0, minor = 0;
  if (!eglInitialize(display, &major, &minor)) return false;
  return true;
}

// The first device that initialises (for drivers without the surfaceless
// platform).
EGLDisplay deviceDisplay() {
  if (!clientHasExtension("EGL_EXT_platform_device")) return EGL_NO_DISPLAY;
  auto queryDevices = reinterpret_cast<PFNEGLQUERYDEVICESEXTPROC>(eglGetProcAddress("eglQueryDevicesEXT"));
  if (!queryDevices) return EGL_NO_DISPLAY;
  EGLDeviceEXT devices[16];
  EGLint count = 0;
  if (!queryDevices(16, devices, &count)) return EGL_NO_DISPLAY;
  for (EGLint i = 0; i < count; ++i) {
    EGLDisplay display = platformDisplay(EGL_PLATFORM_DEVICE_EXT, devices[i]);
    if (initialise(display)) return display;
  }
  return EGL_NO_DISPLAY;
}
}  // namespace

std::shared_ptr<EglDisplay> EglDisplay::acquire() {
  std::lock_guard<std::mutex> lock(s_mutex);
  if (auto existing = s_display.lock()) return existing;
  EGLDisplay display = EGL_NO_DISPLAY;
  if (clientHasExtension("EGL_MESA_platform_surfaceless")) {
    display = platformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY);
    if (!initialise(display)) display = EGL_NO_DISPLAY;
  }
  if (display == EGL_NO_DISPLAY) display = deviceDisplay();
  if (display == EGL_NO_DISPLAY) return nullptr;
  // Checks that desktop OpenGL is there; the binding is per thread, so each
  // context binds it again before creation.
  if (!eglBindAPI(EGL_OPENGL_API)) {
    eglTerminate(display);
    return nullptr;
  }
  std::shared_ptr<EglDisplay> created(new EglDisplay(display));
  s_display = created;
  return created;
}

EglDisplay::~EglDisplay() {
  // Another thread may be acquiring the same display handle again; the
  // mutex orders the termination before its initialisation.
  std::lock_guard<std::mutex> lock(s_mutex);
  eglTerminate(m_display);
}

bool EglDisplay::hasExtension(const char* name) const {
  return listHas(eglQueryString(m_display, EGL_EXTENSIONS), name);
}

}  // namespace orvex
