#include "GLShapeArrays.h"

#include <algorithm>
#include <limits>

namespace orvex {

void GLVertexArray::add(const SoPrimitiveVertex* v) {
  const SbVec3f& p = v->getPoint();
  const SbVec3f& n = v->getNormal();
  const SbVec4f& t = v->getTextureCoords();
  positions.insert(positions.end(), {p[0], p[1], p[2]});
  normals.insert(normals.end(), {n[0], n[1], n[2]});
  texCoords.insert(texCoords.end(), {t[0], t[1], t[2], t[3]});
  materials.push_back(v->getMaterialIndex());
  if (n[0] != 0.0f || n[1] != 0.0f || n[2] != 0.0f) hasNormals = true;
}

void GLArrayCollector::triangle(const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2,
                                const SoPrimitiveVertex* v3) {
  m_arrays.triangles.add(v1);
  m_arrays.triangles.add(v2);
  m_arrays.triangles.add(v3);
}

void GLArrayCollector::lineSegment(const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2) {
  m_arrays.lines.add(v1);
  m_arrays.lines.add(v2);
}

SbVec3f GLShapeArrays::boundsCenter() const {
  float lo[3], hi[3];
  std::fill(lo, lo + 3, std::numeric_limits<float>::max());
  std::fill(hi, hi + 3, std::numeric_limits<float>::lowest());
  bool any = false;
  for (const GLVertexArray* array : {&triangles, &lines, &points}) {
    const std::vector<float>& p = array->positions;
    for (size_t i = 0; i + 2 < p.size(); i += 3) {
      for (size_t c = 0; c < 3; ++c) {
        lo[c] = std::min(lo[c], p[i + c]);
        hi[c] = std::max(hi[c], p[i + c]);
      }
      any = true;
    }
  }
  if (!any) return SbVec3f(0.0f, 0.0f, 0.0f);
  return SbVec3f((lo[0] + hi[0]) * 0.5f, (lo[1] + hi[1]) * 0.5f, (lo[2] + hi[2]) * 0.5f);
}

void GLArrayCollector::point(const SoPrimitiveVertex* v) { m_arrays.points.add(v); }

}  // namespace orvex
