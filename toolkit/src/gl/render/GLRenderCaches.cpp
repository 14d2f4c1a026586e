#include "GLRenderCaches.h"

#include <Orvex/elements/SoGLLightIdElement.h>

namespace orvex {

namespace {
// Frames a shape's arrays survive without being drawn.
constexpr uint64_t kKeepFrames = 8;
}  // namespace

void GLRenderCaches::beginFrame() { ++m_frame; }

void GLRenderCaches::resetLights() {
  m_lights.assign(static_cast<size_t>(SoGLLightIdElement::getMaxGLSources()), GLLightSource());
}

void GLRenderCaches::endFrame() {
  for (auto it = m_shapes.begin(); it != m_shapes.end();) {
    if (m_frame - it->second->lastUse > kKeepFrames)
      it = m_shapes.erase(it);
    else
      ++it;
  }
}

GLShapeCache* GLRenderCaches::find(const SoShape* shape, const SoState* state, uint64_t nodeId) {
  auto it = m_shapes.find(shape);
  if (it == m_shapes.end() || !it->second->isValid(state, nodeId)) return nullptr;
  it->second->lastUse = m_frame;
  return it->second.get();
}

GLShapeCache* GLRenderCaches::store(const SoShape* shape, std::unique_ptr<GLShapeCache> cache) {
  cache->lastUse = m_frame;
  auto& slot = m_shapes[shape];
  slot = std::move(cache);
  return slot.get();
}

}  // namespace orvex
