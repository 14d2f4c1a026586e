#pragma once
#include <Orvex/SbLine.h>

class SbBox3f;

// A sphere: centre and radius (16 bytes).
class SbSphere {
 public:
  // The unit sphere at the origin.
  SbSphere() : m_radius(1) {}
  SbSphere(const SbVec3f& center, float radius) : m_center(center), m_radius(radius) {}

  void setValue(const SbVec3f& center, float radius) { m_center = center; m_radius = radius; }
  void setCenter(const SbVec3f& center) { m_center = center; }
  void setRadius(float radius) { m_radius = radius; }
  const SbVec3f& getCenter() const { return m_center; }
  float getRadius() const { return m_radius; }

  // The smallest sphere around the box (centred on the box).
  void circumscribe(const SbBox3f& box);
  // The first point where the line enters the sphere (or where it leaves it
  // when the line starts inside); false when it misses.
  bool intersect(const SbLine& line, SbVec3f& intersection) const;
  bool intersect(const SbLine& line, SbVec3f& enter, SbVec3f& exit) const;
  bool pointInside(const SbVec3f& p) const;

 private:
  SbVec3f m_center;
  float m_radius;
};
static_assert(sizeof(SbSphere) == 16, "SbSphere must be exactly 4 floats");
