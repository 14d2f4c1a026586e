#pragma once
// The vertex arrays of one shape, built from the primitives it generates:
// positions, normals, texture coordinates and material indices of its
// triangles, line segments and points, ready for glDrawArrays.

#include <Orvex/SbVec3f.h>
#include <Orvex/SoPrimitiveVertex.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "GLBufferObject.h"

#include "nodes/ShapePrimitives.h"

namespace orvex {

// One kind of primitive, vertex after vertex (3 per triangle, 2 per
// segment, 1 per point).
struct GLVertexArray {
  std::vector<float> positions;     // x y z
  std::vector<float> normals;       // x y z
  std::vector<float> texCoords;     // s t r q
  std::vector<int32_t> materials;   // material index of each vertex
  // Whether any vertex came with a non-zero normal.
  bool hasNormals = false;
  // Copies of positions and normals in the drawing context, made when
  // first drawn (the arrays do not change once collected).
  std::unique_ptr<GLBufferObject> positionBuffer = std::make_unique<GLBufferObject>();
  std::unique_ptr<GLBufferObject> normalBuffer = std::make_unique<GLBufferObject>();

  size_t size() const { return materials.size(); }
  void add(const SoPrimitiveVertex* v);
};

struct GLShapeArrays {
  GLVertexArray triangles;
  GLVertexArray lines;
  GLVertexArray points;
  // The centre of the box around all the positions (object coordinates);
  // the origin when there are none.
  SbVec3f boundsCenter() const;
};

// Fills arrays with the primitives a shape hands over.
class GLArrayCollector : public PrimitiveCollector {
 public:
  explicit GLArrayCollector(GLShapeArrays& arrays) : m_arrays(arrays) {}
  void triangle(const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2, const SoPrimitiveVertex* v3) override;
  void lineSegment(const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2) override;
  void point(const SoPrimitiveVertex* v) override;

 private:
  GLShapeArrays& m_arrays;
};

}  // namespace orvex
