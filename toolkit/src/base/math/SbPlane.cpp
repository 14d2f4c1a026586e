#include <Orvex/SbMatrix.h>
#include <Orvex/SbPlane.h>

#include <cmath>

SbPlane::SbPlane(const SbVec3f& p0, const SbVec3f& p1, const SbVec3f& p2) {
  m_normal = (p1 - p0).cross(p2 - p0);
  m_normal.normalize();
  m_distance = m_normal.dot(p0);
}
SbPlane::SbPlane(const SbVec3f& normal, float distance) : m_normal(normal), m_distance(distance) {
  m_normal.normalize();
}
SbPlane::SbPlane(const SbVec3f& normal, const SbVec3f& point) : m_normal(normal) {
  m_normal.normalize();
  m_distance = m_normal.dot(point);
}

bool SbPlane::intersect(const SbLine& line, SbVec3f& intersection) const {
  const float denom = m_normal.dot(line.getDirection());
  if (std::fabs(denom) < 1e-12f) return false;
  const float t = (m_distance - m_normal.dot(line.getPosition())) / denom;
  intersection = line.getPosition() + line.getDirection() * t;
  return true;
}

bool SbPlane::intersect(const SbPlane& plane, SbLine& line) const {
  const SbVec3f dir = m_normal.cross(plane.m_normal);
  if (dir.lengthSquared() < 1e-12f) return false;
  // The point on both planes nearest to the origin lies in the plane spanned
  // by the two normals: p = a n1 + b n2.
  const float n1n2 = m_normal.dot(plane.m_normal);
  const float det = 1 - n1n2 * n1n2;
  const float a = (m_distance - plane.m_distance * n1n2) / det;
  const float b = (plane.m_distance - m_distance * n1n2) / det;
  line.setPosDir(m_normal * a + plane.m_normal * b, dir);
  return true;
}

// Normals transform with the inverse transpose; a point of the plane moves
// with the matrix.
void SbPlane::transform(const SbMatrix& matrix) {
  SbVec3f point = m_normal * m_distance;
  matrix.multVecMatrix(point, point);
  // n' = M^-1 n with n as a column vector keeps (p M) . n' == p . n.
  const SbMatrix inv = matrix.inverse();
  SbVec3f n(inv[0][0] * m_normal[0] + inv[0][1] * m_normal[1] + inv[0][2] * m_normal[2],
             inv[1][0] * m_normal[0] + inv[1][1] * m_normal[1] + inv[1][2] * m_normal[2],
             inv[2][0] * m_normal[0] + inv[2][1] * m_normal[1] + inv[2][2] * m_normal[2]);
  n.normalize();
  m_normal = n;
  m_distance = m_normal.dot(point);
}

bool SbPlane::isInHalfSpace(const SbVec3f& point) const { return getDistance(point) >= 0; }
float SbPlane::getDistance(const SbVec3f& point) const { return m_normal.dot(point) - m_distance; }
