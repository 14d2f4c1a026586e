#pragma once
// The vertex arrays of one shape with what they were built from: the
// shape's node id (which changes when the shape is edited) and the
// elements its primitives depend on (coordinates, normals, bindings, shape
// hints, complexity...), compared with the state before each reuse.

#include <cstdint>

#include "GLShapeArrays.h"

class SoCache;
class SoState;

namespace orvex {

class GLShapeCache {
 public:
  // Records the dependencies in the current state; fill arrays after.
  GLShapeCache(SoState* state, uint64_t nodeId);
  ~GLShapeCache();
  GLShapeCache(const GLShapeCache&) = delete;
  GLShapeCache& operator=(const GLShapeCache&) = delete;

  // Whether the arrays still describe the shape with that id in `state`.
  bool isValid(const SoState* state, uint64_t nodeId) const;

  GLShapeArrays arrays;
  // The traversal that last used the cache.
  uint64_t lastUse = 0;

 private:
  uint64_t m_nodeId;
  SoCache* m_dependencies;  // referenced
};

}  // namespace orvex
