#include <Orvex/SbBox3f.h>
#include <Orvex/SbSphere.h>

#include <cmath>

void SbSphere::circumscribe(const SbBox3f& box) {
  m_center = box.getCenter();
  m_radius = (box.getMax() - m_center).length();
}

// Solves |pos + t dir - c|^2 = r^2 for t (dir has unit length).
bool SbSphere::intersect(const SbLine& line, SbVec3f& enter, SbVec3f& exit) const {
  const SbVec3f oc = line.getPosition() - m_center;
  const float b = oc.dot(line.getDirection());
  const float c = oc.lengthSquared() - m_radius * m_radius;
  const float disc = b * b - c;
  if (disc < 0) return false;
  const float root = std::sqrt(disc);
  enter = line.getPosition() + line.getDirection() * (-b - root);
  exit = line.getPosition() + line.getDirection() * (-b + root);
  return true;
}

bool SbSphere::intersect(const SbLine& line, SbVec3f& intersection) const {
  SbVec3f enter, exit;
  if (!intersect(line, enter, exit)) return false;
  // From inside the sphere the line only leaves it.
  intersection = pointInside(line.getPosition()) ? exit : enter;
  return true;
}

bool SbSphere::pointInside(const SbVec3f& p) const {
  return (p - m_center).lengthSquared() < m_radius * m_radius;
}
