#pragma once
#include <Orvex/SbLine.h>

class SbMatrix;

// An oriented plane: the points p with dot(normal, p) == distance; the
// normal has unit length (16 bytes: normal then distance).
class SbPlane {
 public:
  // The plane z = 0.
  SbPlane() : m_normal(0, 0, 1), m_distance(0) {}
  // The plane through three points; the normal follows the right-hand rule.
  SbPlane(const SbVec3f& p0, const SbVec3f& p1, const SbVec3f& p2);
  SbPlane(const SbVec3f& normal, float distance);
  SbPlane(const SbVec3f& normal, const SbVec3f& point);

  // Moves the plane along its normal.
  void offset(float d) { m_distance += d; }
  // Where the line crosses the plane; false when they are parallel.
  bool intersect(const SbLine& line, SbVec3f& intersection) const;
  // The line common to both planes; false when they are parallel.
  bool intersect(const SbPlane& plane, SbLine& line) const;
  // Transforms the plane as its points are transformed by `matrix`.
  void transform(const SbMatrix& matrix);
  // True when the point is on the side the normal points to (or on the plane).
  bool isInHalfSpace(const SbVec3f& point) const;
  // Signed distance of the point (positive on the normal's side).
  float getDistance(const SbVec3f& point) const;
  const SbVec3f& getNormal() const { return m_normal; }
  float getDistanceFromOrigin() const { return m_distance; }

  friend bool operator==(const SbPlane& a, const SbPlane& b) {
    return a.m_normal == b.m_normal && a.m_distance == b.m_distance;
  }
  friend bool operator!=(const SbPlane& a, const SbPlane& b) { return !(a == b); }

 private:
  SbVec3f m_normal;
  float m_distance;
};
static_assert(sizeof(SbPlane) == 16, "SbPlane must be exactly 4 floats");
