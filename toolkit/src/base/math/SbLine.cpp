// Lines of both precisions, and their intersections with boxes and triangles.
#include <Orvex/SbBox3f.h>
#include <Orvex/SbLine.h>

#include <cmath>
#include <utility>

namespace {
template <typename L, typename V>
void setPosDirOf(V& pos, V& dir, const V& p, const V& d) {
  pos = p;
  dir = d;
  dir.normalize();
}

template <typename V, typename T>
V closestPointOf(const V& pos, const V& dir, const V& point) {
  return pos + dir * (point - pos).dot(dir);
}

// Closest points of two lines (unit directions d1, d2).
template <typename V, typename T>
bool closestPointsOf(const V& p1, const V& d1, const V& p2, const V& d2, V& on1, V& on2) {
  const T b = d1.dot(d2);
  const T denom = 1 - b * b;
  if (std::fabs(denom) < T(1e-12)) return false;
  const V r = p1 - p2;
  const T d = d1.dot(r), e = d2.dot(r);
  const T s = (b * e - d) / denom;
  const T t = (e - b * d) / denom;
  on1 = p1 + d1 * s;
  on2 = p2 + d2 * t;
  return true;
}
}  // namespace

void SbLine::setValue(const SbVec3f& p0, const SbVec3f& p1) { setPosDir(p0, p1 - p0); }
void SbLine::setPosDir(const SbVec3f& position, const SbVec3f& direction) {
  setPosDirOf<SbLine>(m_pos, m_dir, position, direction);
}
SbVec3f SbLine::getClosestPoint(const SbVec3f& point) const {
  return closestPointOf<SbVec3f, float>(m_pos, m_dir, point);
}
bool SbLine::getClosestPoints(const SbLine& line, SbVec3f& ptOnThis, SbVec3f& ptOnLine) const {
  return closestPointsOf<SbVec3f, float>(m_pos, m_dir, line.m_pos, line.m_dir, ptOnThis, ptOnLine);
}

// Slab method: the parameter interval inside all three slabs.
bool SbLine::intersect(const SbBox3f& box, SbVec3f& enter, SbVec3f& exit) const {
  if (box.isEmpty()) return false;
  float tmin = -INFINITY, tmax = INFINITY;
  for (int i = 0; i < 3; ++i) {
    const float lo = box.getMin()[i], hi = box.getMax()[i];
    if (std::fabs(m_dir[i]) < 1e-12f) {
      if (m_pos[i] < lo || m_pos[i] > hi) return false;
      continue;
    }
    float t0 = (lo - m_pos[i]) / m_dir[i], t1 = (hi - m_pos[i]) / m_dir[i];
    if (t0 > t1) std::swap(t0, t1);
    tmin = std::fmax(tmin, t0);
    tmax = std::fmin(tmax, t1);
    if (tmin > tmax) return false;
  }
  enter = m_pos + m_dir * tmin;
  exit = m_pos + m_dir * tmax;
  return true;
}

// Moeller-Trumbore; barycentric = weights of v0, v1, v2.
bool SbLine::intersect(const SbVec3f& v0, const SbVec3f& v1, const SbVec3f& v2, SbVec3f& intersection,
                       SbVec3f& barycentric, bool& front) const {
  const SbVec3f e1 = v1 - v0, e2 = v2 - v0;
  const SbVec3f p = m_dir.cross(e2);
  const float det = e1.dot(p);
  if (std::fabs(det) < 1e-12f) return false;
  const float inv = 1.0f / det;
  const SbVec3f s = m_pos - v0;
  const float u = s.dot(p) * inv;
  if (u < 0 || u > 1) return false;
  const SbVec3f q = s.cross(e1);
  const float v = m_dir.dot(q) * inv;
  if (v < 0 || u + v > 1) return false;
  const float t = e2.dot(q) * inv;
  intersection = m_pos + m_dir * t;
  barycentric.setValue(1 - u - v, u, v);
  front = e1.cross(e2).dot(m_dir) < 0;  // the normal faces the incoming line
  return true;
}

void SbLined::setValue(const SbVec3d& p0, const SbVec3d& p1) { setPosDir(p0, p1 - p0); }
void SbLined::setPosDir(const SbVec3d& position, const SbVec3d& direction) {
  setPosDirOf<SbLined>(m_pos, m_dir, position, direction);
}
SbVec3d SbLined::getClosestPoint(const SbVec3d& point) const {
  return closestPointOf<SbVec3d, double>(m_pos, m_dir, point);
}
bool SbLined::getClosestPoints(const SbLined& line, SbVec3d& ptOnThis, SbVec3d& ptOnLine) const {
  return closestPointsOf<SbVec3d, double>(m_pos, m_dir, line.m_pos, line.m_dir, ptOnThis, ptOnLine);
}
