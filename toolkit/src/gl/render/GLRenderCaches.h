#pragma once
// What a render action keeps between traversals and within one: the
// vertex arrays of the shapes it drew, and the light sources set up in the
// current traversal.

#include <Orvex/SbVec4f.h>

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "GLShapeCache.h"

class SoShape;
class SoState;

namespace orvex {

// One OpenGL light source, in eye coordinates.
struct GLLightSource {
  SbVec4f position{0.0f, 0.0f, 1.0f, 0.0f};  // w = 0: a direction towards the light
  SbVec4f color{1.0f, 1.0f, 1.0f, 1.0f};     // colour times intensity (diffuse and specular)
  SbVec4f spotDirection{0.0f, 0.0f, -1.0f, 0.0f};
  float spotExponent = 0.0f;
  float spotCutoff = 180.0f;  // degrees; 180: not a spot light
};

class GLRenderCaches {
 public:
  // Starts a frame (one application of the action, all its passes and
  // delayed shapes): counts it.
  void beginFrame();
  // Drops the arrays of shapes not drawn in the last few frames (the
  // shape may be gone; its address may be reused).
  void endFrame();
  // Starts a traversal: no light source is set up yet.
  void resetLights();

  // The arrays of `shape` valid in `state`, or null.
  GLShapeCache* find(const SoShape* shape, const SoState* state, uint64_t nodeId);
  // Keeps a new cache for the shape (replacing the old one).
  GLShapeCache* store(const SoShape* shape, std::unique_ptr<GLShapeCache> cache);
  void clear() { m_shapes.clear(); }

  // The light sources of this traversal, by source number.
  std::vector<GLLightSource>& lights() { return m_lights; }

 private:
  std::unordered_map<const SoShape*, std::unique_ptr<GLShapeCache>> m_shapes;
  std::vector<GLLightSource> m_lights;
  uint64_t m_frame = 0;
};

}  // namespace orvex
