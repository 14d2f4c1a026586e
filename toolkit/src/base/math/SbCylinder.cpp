#include <Orvex/SbCylinder.h>

#include <cmath>

// Removes the axis component from positions and directions, which reduces the
// problem to a circle in the plane perpendicular to the axis.
bool SbCylinder::intersect(const SbLine& line, SbVec3f& enter, SbVec3f& exit) const {
  const SbVec3f& a = m_axis.getDirection();
  const SbVec3f rel = line.getPosition() - m_axis.getPosition();
  const SbVec3f d = line.getDirection() - a * line.getDirection().dot(a);
  const SbVec3f o = rel - a * rel.dot(a);
  const float A = d.lengthSquared();
  if (A < 1e-12f) return false;  // parallel to the axis: never crosses the surface
  const float B = 2 * o.dot(d);
  const float C = o.lengthSquared() - m_radius * m_radius;
  const float disc = B * B - 4 * A * C;
  if (disc < 0) return false;
  const float root = std::sqrt(disc);
  enter = line.getPosition() + line.getDirection() * ((-B - root) / (2 * A));
  exit = line.getPosition() + line.getDirection() * ((-B + root) / (2 * A));
  return true;
}

bool SbCylinder::intersect(const SbLine& line, SbVec3f& intersection) const {
  SbVec3f enter, exit;
  if (!intersect(line, enter, exit)) return false;
  intersection = isInside(line.getPosition()) ? exit : enter;
  return true;
}

bool SbCylinder::isInside(const SbVec3f& point) const {
  return (m_axis.getClosestPoint(point) - point).lengthSquared() < m_radius * m_radius;
}
