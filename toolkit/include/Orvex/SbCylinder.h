#pragma once
#include <Orvex/SbLine.h>

// An infinite cylinder: an axis line and a radius (28 bytes).
class SbCylinder {
 public:
  // Radius 1 around the y axis.
  SbCylinder() : m_axis(SbVec3f(0, 0, 0), SbVec3f(0, 1, 0)), m_radius(1) {}
  SbCylinder(const SbLine& axis, float radius) : m_axis(axis), m_radius(radius) {}

  void setValue(const SbLine& axis, float radius) { m_axis = axis; m_radius = radius; }
  void setAxis(const SbLine& axis) { m_axis = axis; }
  void setRadius(float radius) { m_radius = radius; }
  const SbLine& getAxis() const { return m_axis; }
  float getRadius() const { return m_radius; }

  // The first point where the line meets the surface; false when it misses.
  bool intersect(const SbLine& line, SbVec3f& intersection) const;
  bool intersect(const SbLine& line, SbVec3f& enter, SbVec3f& exit) const;
  bool isInside(const SbVec3f& point) const;

 private:
  SbLine m_axis;
  float m_radius;
};
static_assert(sizeof(SbCylinder) == 28, "SbCylinder must be exactly 7 floats");
