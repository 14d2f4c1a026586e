#include "GLShapeArrays.h"

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

void GLArrayCollector::point(const SoPrimitiveVertex* v) { m_arrays.points.add(v); }

}  // namespace orvex
