#include <Orvex/SoOffscreenRenderer.h>

#include <Orvex/SoOffscreenTileObserver.h>
#include <Orvex/SoPath.h>
#include <Orvex/actions/SoGLRenderAction.h>
#include <Orvex/devices/SoGLContext.h>
#include <Orvex/nodes/SoNode.h>

#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>
#include <new>
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

const unsigned char* SoOffscreenRenderer::getBuffer() const {
  const std::vector<unsigned char>& bytes = m_bufferType == JPEGBUFFER ? m_jpeg : m_buffer;
  return bytes.empty() ? nullptr : bytes.data();
}

size_t SoOffscreenRenderer::getBufferSize() const {
  return m_bufferType == JPEGBUFFER ? m_jpeg.size() : m_buffer.size();
}

bool SoOffscreenRenderer::prepare() {
  if (!m_context) {
    m_context = new SoGLContext(SoGLFormat());
    m_context->ref();
  }
  return m_context->isValid();
}

int SoOffscreenRenderer::getNumComponents(Components components) {
  switch (components) {
    case LUMINANCE: return 1;
    case LUMINANCETRANSPARENCY: return 2;
    case RGB: return 3;
    case RGBTRANSPARENCY:
    case RGBA: return 4;
  }
  return 3;
}

SbVec2s SoOffscreenRenderer::getMaxTileSize() const {
  const SbVec2s maximum = getMaximumResolution();
  SbVec2s size;
  for (int i = 0; i < 2; ++i)
    size[i] = m_maxTileSize[i] > 0 && m_maxTileSize[i] < maximum[i] ? m_maxTileSize[i] : maximum[i];
  return size;
}

bool SoOffscreenRenderer::renderGraph(SoNode* node, SoPath* path) {
  m_buffer.clear();
  m_buffer.shrink_to_fit();
  m_jpeg.clear();
  const SbVec2s window = m_viewport.getWindowSize();
  const SbVec2i32 picture(window[0], window[1]);
  const SbVec2s maxTile = getMaxTileSize();
  if (picture[0] <= 0 || picture[1] <= 0 || maxTile[0] <= 0 || maxTile[1] <= 0) return false;
  if (!prepare()) return false;
  ContextBinding binding(m_context);
  if (!binding.isBound()) return false;

  const SbVec2i32 tile(std::min<int32_t>(picture[0], maxTile[0]), std::min<int32_t>(picture[1], maxTile[1]));
  if (!m_framebuffer || m_framebuffer->width() != tile[0] || m_framebuffer->height() != tile[1]) {
    m_framebuffer.reset();
    m_framebuffer = std::make_unique<orvex::GLFramebuffer>(tile[0], tile[1]);
  }
  if (!m_framebuffer->isComplete()) return false;
  const size_t bytes = static_cast<size_t>(picture[0]) * static_cast<size_t>(picture[1]) *
                       static_cast<size_t>(getNumComponents(m_components));
  try {
    m_buffer.resize(bytes);
    m_tilePixels.resize(static_cast<size_t>(tile[0]) * static_cast<size_t>(tile[1]) * 4);
  } catch (const std::bad_alloc&) {
    m_buffer.clear();
    m_buffer.shrink_to_fit();
    return false;
  }
  m_bufferWidth = picture[0];
  m_bufferHeight = picture[1];

  const SbVec2i32 numTiles((picture[0] + tile[0] - 1) / tile[0], (picture[1] + tile[1] - 1) / tile[1]);
  SoGLRenderAction* action = getGLRenderAction();
  action->setViewportRegion(m_viewport);
  bool complete = true;
  for (int32_t row = 0; row < numTiles[1] && complete; ++row) {
    for (int32_t column = 0; column < numTiles[0] && complete; ++column) {
      const SbVec2i32 origin(column * tile[0], row * tile[1]);
      const SbVec2i32 size(std::min(tile[0], picture[0] - origin[0]), std::min(tile[1], picture[1] - origin[1]));
      complete = renderTile(node, path, origin, size, SbVec2i32(column, row), numTiles);
    }
  }
  action->setTile(0, 0, 0, 0);
  orvex::GLFramebuffer::unbind();
  m_context->swapBuffers();
  if (!complete || !finishBuffer()) {
    m_buffer.clear();
    m_jpeg.clear();
    return false;
  }
  return true;
}

bool SoOffscreenRenderer::renderTile(SoNode* node, SoPath* path, const SbVec2i32& origin, const SbVec2i32& size,
                                     const SbVec2i32& index, const SbVec2i32& numTiles) {
  m_framebuffer->bind();
  glDisable(GL_SCISSOR_TEST);
  glViewport(0, 0, size[0], size[1]);
  glClearColor(m_background[0], m_background[1], m_background[2], 0.0f);
  glClearDepth(1.0);
  glClearStencil(0);
  glDepthMask(GL_TRUE);
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);

  // A single tile is the picture itself: drawn as an ordinary viewport.
  SoGLRenderAction* action = getGLRenderAction();
  if (numTiles[0] * numTiles[1] > 1)
    action->setTile(origin[0], origin[1], size[0], size[1]);
  else
    action->setTile(0, 0, 0, 0);
  if (node)
    action->apply(node);
  else
    action->apply(path);

  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, size[0], size[1], GL_RGBA, GL_UNSIGNED_BYTE, m_tilePixels.data());
  // Row by row into its place in the picture, converted to the components.
  const int components = getNumComponents(m_components);
  const size_t tileRowBytes = static_cast<size_t>(size[0]) * static_cast<size_t>(components);
  for (int32_t y = 0; y < size[1]; ++y) {
    const unsigned char* from = m_tilePixels.data() + static_cast<size_t>(y) * static_cast<size_t>(size[0]) * 4;
    unsigned char* to = m_buffer.data() + ((static_cast<size_t>(origin[1] + y) * static_cast<size_t>(m_bufferWidth)) +
                                           static_cast<size_t>(origin[0])) * static_cast<size_t>(components);
    orvex::convertRGBA(from, static_cast<size_t>(size[0]), components, to);
  }
  if (!m_tileObserver) return true;
  // The observer sees the tile's own pixels, converted in place of the
  // RGBA ones (which are no longer needed).
  for (int32_t y = 0; y < size[1]; ++y) {
    const unsigned char* from = m_buffer.data() + ((static_cast<size_t>(origin[1] + y) * static_cast<size_t>(m_bufferWidth)) +
                                                   static_cast<size_t>(origin[0])) * static_cast<size_t>(components);
    std::copy(from, from + tileRowBytes, m_tilePixels.data() + static_cast<size_t>(y) * tileRowBytes);
  }
  SoOffscreenTileProperty property;
  property.setOrigin(origin);
  property.setSize(size);
  property.setIndex(index);
  property.setNumTiles(numTiles);
  property.setPictureSize(SbVec2i32(m_bufferWidth, m_bufferHeight));
  property.setBuffer(m_tilePixels.data(), tileRowBytes * static_cast<size_t>(size[1]), components);
  return m_tileObserver->tileRendered(property) != ABORT;
}

bool SoOffscreenRenderer::finishBuffer() {
  if (m_bufferType != JPEGBUFFER) return true;
  return orvex::encodeJPEG(m_jpeg, m_buffer.data(), m_bufferWidth, m_bufferHeight, getNumComponents(m_components),
                           m_jpegQuality);
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
