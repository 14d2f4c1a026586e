#include <Orvex/SoOffscreenRenderer.h>

#include <Orvex/SoPath.h>
#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/devices/SoGLContext.h>
#include <Orvex/nodes/SoNode.h>

#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>
#include <mutex>

#include "image/ImageWriters.h"
#include "image/PixelConversion.h"
#include "render/GLFramebuffer.h"

namespace {
// Binds a context for the scope of a call.
class ContextBinding {
 public:
  explicit ContextBinding(SoGLContext* context) : m_context(context), m_bound(context && context->bind()) {}
  ~ContextBinding() {
    if (m_bound) m_context->unbind();
  }
  ContextBinding(const ContextBinding&) = delete;
  ContextBinding& operator=(const ContextBinding&) = delete;
  bool isBound() const { return m_bound; }

 private:
  SoGLContext* m_context;
  bool m_bound;
};
}  // namespace

SoOffscreenRenderer::SoOffscreenRenderer(const SbViewportRegion& viewportRegion)
    : m_viewport(viewportRegion), m_ownAction(std::make_unique<SoGLRenderAction>(viewportRegion)) {}

SoOffscreenRenderer::SoOffscreenRenderer(SoGLRenderAction* action)
    : m_viewport(action ? action->getViewportRegion() : SbViewportRegion()), m_userAction(action) {
  if (!action) m_ownAction = std::make_unique<SoGLRenderAction>(m_viewport);
}

SoOffscreenRenderer::~SoOffscreenRenderer() {
  if (!m_context) return;
  {
    // The framebuffer's objects belong to the context.
    ContextBinding binding(m_context);
    if (binding.isBound()) m_framebuffer.reset();
  }
  m_context->unref();
}

void SoOffscreenRenderer::setViewportRegion(const SbViewportRegion& region) { m_viewport = region; }

void SoOffscreenRenderer::setGLRenderAction(SoGLRenderAction* action) {
  m_userAction = action;
  if (!action && !m_ownAction) m_ownAction = std::make_unique<SoGLRenderAction>(m_viewport);
}

SoGLRenderAction* SoOffscreenRenderer::getGLRenderAction() const {
  return m_userAction ? m_userAction : m_ownAction.get();
}

bool SoOffscreenRenderer::render(SoNode* scene) { return scene && renderGraph(scene, nullptr); }

bool SoOffscreenRenderer::render(SoPath* scene) { return scene && scene->getLength() > 0 && renderGraph(nullptr, scene); }

const unsigned char* SoOffscreenRenderer::getBuffer() const { return m_buffer.empty() ? nullptr : m_buffer.data(); }

bool SoOffscreenRenderer::prepare() {
  if (!m_context) {
    m_context = new SoGLContext(SoGLFormat());
    m_context->ref();
  }
  return m_context->isValid();
}

bool SoOffscreenRenderer::renderGraph(SoNode* node, SoPath* path) {
  m_buffer.clear();
  const SbVec2s size = m_viewport.getWindowSize();
  const SbVec2s maximum = getMaximumResolution();
  if (size[0] <= 0 || size[1] <= 0 || size[0] > maximum[0] || size[1] > maximum[1]) return false;
  if (!prepare()) return false;
  ContextBinding binding(m_context);
  if (!binding.isBound()) return false;
  if (!m_framebuffer || m_framebuffer->width() != size[0] || m_framebuffer->height() != size[1]) {
    m_framebuffer.reset();
    m_framebuffer = std::make_unique<orvex::GLFramebuffer>(size[0], size[1]);
  }
  if (!m_framebuffer->isComplete()) return false;
  m_framebuffer->bind();
  glViewport(0, 0, size[0], size[1]);
  glClearColor(m_background[0], m_background[1], m_background[2], 0.0f);
  glClearDepth(1.0);
  glClearStencil(0);
  glDepthMask(GL_TRUE);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);

  SoGLRenderAction* action = getGLRenderAction();
  action->setViewportRegion(m_viewport);
  if (node)
    action->apply(node);
  else
    action->apply(path);
  readPixels(size[0], size[1]);
  orvex::GLFramebuffer::unbind();
  m_context->swapBuffers();
  return true;
}

void SoOffscreenRenderer::readPixels(int width, int height) {
  const size_t pixels = static_cast<size_t>(width) * static_cast<size_t>(height);
  std::vector<unsigned char> rgba(pixels * 4);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
  m_buffer.resize(pixels * static_cast<size_t>(m_components));
  orvex::convertRGBA(rgba.data(), pixels, m_components, m_buffer.data());
  m_bufferWidth = width;
  m_bufferHeight = height;
}

bool SoOffscreenRenderer::writeToPNG(const char* filename) const {
  if (m_buffer.empty()) return false;
  const int components = static_cast<int>(m_buffer.size() / (static_cast<size_t>(m_bufferWidth) * m_bufferHeight));
  return orvex::writePNG(filename, m_buffer.data(), m_bufferWidth, m_bufferHeight, components);
}

bool SoOffscreenRenderer::writeToJPEG(const char* filename, float quality) const {
  if (m_buffer.empty()) return false;
  const int components = static_cast<int>(m_buffer.size() / (static_cast<size_t>(m_bufferWidth) * m_bufferHeight));
  return orvex::writeJPEG(filename, m_buffer.data(), m_bufferWidth, m_bufferHeight, components, quality);
}

SbVec2s SoOffscreenRenderer::getMaximumResolution() {
  // Asked once of a throw-away context: the limits are the driver's.
  static std::once_flag once;
  static SbVec2s maximum(0, 0);
  std::call_once(once, [] {
    SoGLContext* context = new SoGLContext(SoGLFormat());
    context->ref();
    {
      ContextBinding binding(context);
      if (binding.isBound()) {
        GLint renderbuffer = 0;
        GLint viewport[2] = {0, 0};
        glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &renderbuffer);
        glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
        const GLint limit = 32767;  // what an SbVec2s holds
        maximum.setValue(static_cast<short>(std::min({renderbuffer, viewport[0], limit})),
                         static_cast<short>(std::min({renderbuffer, viewport[1], limit})));
      }
    }
    context->unref();
  });
  return maximum;
}
