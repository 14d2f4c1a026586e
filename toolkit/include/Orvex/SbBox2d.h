#pragma once
#include <Orvex/SbVec2d.h>
#include <limits>

// An axis-aligned rectangle given by its minimum and maximum corners, laid out
// min then max. It is empty while any minimum component exceeds its maximum.
class SbBox2d {
 public:
  SbBox2d() { makeEmpty(); }
  SbBox2d(const SbVec2d& min, const SbVec2d& max) : m_min(min), m_max(max) {}
  SbBox2d(double xmin, double ymin, double xmax, double ymax)
      : m_min(xmin, ymin), m_max(xmax, ymax) {}

  const SbVec2d& getMin() const { return m_min; }
  const SbVec2d& getMax() const { return m_max; }
  void getBounds(SbVec2d& min, SbVec2d& max) const { min = m_min; max = m_max; }
  void setBounds(const SbVec2d& min, const SbVec2d& max) { m_min = min; m_max = max; }
  // Middle of the box; the origin when empty.
  SbVec2d getCenter() const;
  // max - min per axis; zero when empty.
  SbVec2d getSize() const;

  void makeEmpty() {
    double hi = std::numeric_limits<double>::max();
    double lo = std::numeric_limits<double>::lowest();
    m_min.setValue(hi, hi);
    m_max.setValue(lo, lo);
  }
  bool isEmpty() const;
  // True when every extent is positive.
  bool hasArea() const;
  // Grows to contain the point or the box (an empty box adds nothing).
  void extendBy(const SbVec2d& pt);
  void extendBy(const SbBox2d& box);
  // True when the point lies inside or on the boundary.
  bool intersect(const SbVec2d& pt) const;
  // True when the two boxes overlap (touching counts).
  bool intersect(const SbBox2d& box) const;
  // The point of the box (surface or inside) nearest to `pt`.
  SbVec2d getClosestPoint(const SbVec2d& pt) const;
  double getArea() const;
  // Width / height of the box; 0 when empty.
  double getAspectRatio() const;

  friend bool operator==(const SbBox2d& a, const SbBox2d& b) { return a.m_min == b.m_min && a.m_max == b.m_max; }
  friend bool operator!=(const SbBox2d& a, const SbBox2d& b) { return !(a == b); }

 protected:
  SbVec2d m_min;
  SbVec2d m_max;
};
static_assert(sizeof(SbBox2d) == 2 * sizeof(SbVec2d), "SbBox2d must be exactly its two corners");
