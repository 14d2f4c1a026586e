#pragma once
// The window-system side of an OpenGL context: creating it, making it
// current and showing its drawable. SoGLContext owns one; each platform
// (EGL offscreen now; an X11 window surface or WGL can come beside it)
// implements this interface, and createPlatformContext() picks one.

#include <Orvex/devices/SoGLFormat.h>

#include <memory>

namespace orvex {

class GLPlatformContext {
 public:
  virtual ~GLPlatformContext() = default;
  // Whether creation succeeded; the other members need a valid context.
  virtual bool isValid() const = 0;
  // Makes the context current on the calling thread (true on success).
  virtual bool makeCurrent() = 0;
  // Leaves the calling thread with no current context.
  virtual void doneCurrent() = 0;
  // Shows the back buffer, or finishes the commands for an offscreen
  // drawable.
  virtual void swapBuffers() = 0;
};

// The platform context for `format`, sharing objects with `shareWith`
// (null: none), which must come from the same platform. Never null; check
// isValid().
std::unique_ptr<GLPlatformContext> createPlatformContext(const SoGLFormat& format,
                                                         GLPlatformContext* shareWith);

}  // namespace orvex
