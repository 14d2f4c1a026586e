#pragma once
#include <Orvex/SbVec3s.h>
#include <limits>

// An axis-aligned box given by its minimum and maximum corners, laid out
// min then max. It is empty while any minimum component exceeds its maximum.
class SbBox3s {
 public:
  SbBox3s() { makeEmpty(); }
  SbBox3s(const SbVec3s& min, const SbVec3s& max) : m_min(min), m_max(max) {}
  SbBox3s(short xmin, short ymin, short zmin, short xmax, short ymax, short zmax)
      : m_min(xmin, ymin, zmin), m_max(xmax, ymax, zmax) {}

  const SbVec3s& getMin() const { return m_min; }
  const SbVec3s& getMax() const { return m_max; }
  void getBounds(SbVec3s& min, SbVec3s& max) const { min = m_min; max = m_max; }
  void setBounds(const SbVec3s& min, const SbVec3s& max) { m_min = min; m_max = max; }
  // Middle of the box (rounded towards zero); the origin when empty.
  SbVec3s getCenter() const;
  // max - min per axis; zero when empty.
  SbVec3s getSize() const;

  void makeEmpty() {
    short hi = std::numeric_limits<short>::max();
    short lo = std::numeric_limits<short>::lowest();
    m_min.setValue(hi, hi, hi);
    m_max.setValue(lo, lo, lo);
  }
  bool isEmpty() const;
  // True when every extent is positive.
  bool hasVolume() const;
  // Grows to contain the point or the box (an empty box adds nothing).
  void extendBy(const SbVec3s& pt);
  void extendBy(const SbBox3s& box);
  // True when the point lies inside or on the boundary.
  bool intersect(const SbVec3s& pt) const;
  // True when the two boxes overlap (touching counts).
  bool intersect(const SbBox3s& box) const;

  friend bool operator==(const SbBox3s& a, const SbBox3s& b) { return a.m_min == b.m_min && a.m_max == b.m_max; }
  friend bool operator!=(const SbBox3s& a, const SbBox3s& b) { return !(a == b); }

 protected:
  SbVec3s m_min;
  SbVec3s m_max;
};
static_assert(sizeof(SbBox3s) == 2 * sizeof(SbVec3s), "SbBox3s must be exactly its two corners");
