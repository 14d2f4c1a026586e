#pragma once
#include <Orvex/SbVec3f.h>
#include <limits>

class SbMatrix;

// An axis-aligned box given by its minimum and maximum corners, laid out
// min then max. It is empty while any minimum component exceeds its maximum.
class SbBox3f {
 public:
  SbBox3f() { makeEmpty(); }
  SbBox3f(const SbVec3f& min, const SbVec3f& max) : m_min(min), m_max(max) {}
  SbBox3f(float xmin, float ymin, float zmin, float xmax, float ymax, float zmax)
      : m_min(xmin, ymin, zmin), m_max(xmax, ymax, zmax) {}

  const SbVec3f& getMin() const { return m_min; }
  const SbVec3f& getMax() const { return m_max; }
  void getBounds(SbVec3f& min, SbVec3f& max) const { min = m_min; max = m_max; }
  void setBounds(const SbVec3f& min, const SbVec3f& max) { m_min = min; m_max = max; }
  // Middle of the box; the origin when empty.
  SbVec3f getCenter() const;
  // max - min per axis; zero when empty.
  SbVec3f getSize() const;

  void makeEmpty() {
    float hi = std::numeric_limits<float>::max();
    float lo = std::numeric_limits<float>::lowest();
    m_min.setValue(hi, hi, hi);
    m_max.setValue(lo, lo, lo);
  }
  bool isEmpty() const;
  // True when every extent is positive.
  bool hasVolume() const;
  // Grows to contain the point or the box (an empty box adds nothing).
  void extendBy(const SbVec3f& pt);
  void extendBy(const SbBox3f& box);
  // True when the point lies inside or on the boundary.
  bool intersect(const SbVec3f& pt) const;
  // True when the two boxes overlap (touching counts).
  bool intersect(const SbBox3f& box) const;
  // The point of the box (surface or inside) nearest to `pt`.
  SbVec3f getClosestPoint(const SbVec3f& pt) const;
  float getVolume() const;
  // Width / height of the box; 0 when empty.
  // Grows every side by `amount` (shrinks for a negative one).
  void enlarge(float amount);
  // Replaces the box by the axis-aligned box around its eight transformed corners.
  void transform(const SbMatrix& m);

  friend bool operator==(const SbBox3f& a, const SbBox3f& b) { return a.m_min == b.m_min && a.m_max == b.m_max; }
  friend bool operator!=(const SbBox3f& a, const SbBox3f& b) { return !(a == b); }

 protected:
  SbVec3f m_min;
  SbVec3f m_max;
};
static_assert(sizeof(SbBox3f) == 2 * sizeof(SbVec3f), "SbBox3f must be exactly its two corners");
