#pragma once
#include <Orvex/SbVec2s.h>
#include <limits>

// An axis-aligned rectangle given by its minimum and maximum corners, laid out
// min then max. It is empty while any minimum component exceeds its maximum.
class SbBox2s {
 public:
  SbBox2s() { makeEmpty(); }
  SbBox2s(const SbVec2s& min, const SbVec2s& max) : m_min(min), m_max(max) {}
  SbBox2s(short xmin, short ymin, short xmax, short ymax)
      : m_min(xmin, ymin), m_max(xmax, ymax) {}

  const SbVec2s& getMin() const { return m_min; }
  const SbVec2s& getMax() const { return m_max; }
  void getBounds(SbVec2s& min, SbVec2s& max) const { min = m_min; max = m_max; }
  void setBounds(const SbVec2s& min, const SbVec2s& max) { m_min = min; m_max = max; }
  // Middle of the box (rounded towards zero); the origin when empty.
  SbVec2s getCenter() const;
  // max - min per axis; zero when empty.
  SbVec2s getSize() const;

  void makeEmpty() {
    short hi = std::numeric_limits<short>::max();
    short lo = std::numeric_limits<short>::lowest();
    m_min.setValue(hi, hi);
    m_max.setValue(lo, lo);
  }
  bool isEmpty() const;
  // True when every extent is positive.
  bool hasArea() const;
  // Grows to contain the point or the box (an empty box adds nothing).
  void extendBy(const SbVec2s& pt);
  void extendBy(const SbBox2s& box);
  // True when the point lies inside or on the boundary.
  bool intersect(const SbVec2s& pt) const;
  // True when the two boxes overlap (touching counts).
  bool intersect(const SbBox2s& box) const;

  friend bool operator==(const SbBox2s& a, const SbBox2s& b) { return a.m_min == b.m_min && a.m_max == b.m_max; }
  friend bool operator!=(const SbBox2s& a, const SbBox2s& b) { return !(a == b); }

 protected:
  SbVec2s m_min;
  SbVec2s m_max;
};
static_assert(sizeof(SbBox2s) == 2 * sizeof(SbVec2s), "SbBox2s must be exactly its two corners");
