#include "GLPlatformContext.h"

#include "EglOffscreenContext.h"

namespace orvex {

std::unique_ptr<GLPlatformContext> createPlatformContext(const SoGLFormat& format, GLPlatformContext* shareWith) {
  // EGL offscreen is the only platform so far; a window-system platform
  // would be chosen here when a display server is there. Sharing works
  // between contexts of one platform only.
  return std::make_unique<EglOffscreenContext>(format, dynamic_cast<EglOffscreenContext*>(shareWith));
}

}  // namespace orvex
