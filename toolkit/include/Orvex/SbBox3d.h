#pragma once
#include <Orvex/SbVec3d.h>
#include <limits>

class SbMatrixd;

// An axis-aligned box given by its minimum and maximum corners, laid out
// min then max. It is empty while any minimum component exceeds its maximum.
class SbBox3d {
 public:
  SbBox3d() { makeEmpty(); }
  SbBox3d(const SbVec3d& min, const SbVec3d& max) : m_min(min), m_max(max) {}
  SbBox3d(double xmin, double ymin, double zmin, double xmax, double ymax, double zmax)
      : m_min(xmin, ymin, zmin), m_max(xmax, ymax, zmax) {}

  const SbVec3d& getMin() const { return m_min; }
  const SbVec3d& getMax() const { return m_max; }
  void getBounds(SbVec3d& min, SbVec3d& max) const { min = m_min; max = m_max; }
  void setBounds(const SbVec3d& min, const SbVec3d& max) { m_min = min; m_max = max; }
  // Middle of the box; the origin when empty.
  SbVec3d getCenter() const;
  // max - min per axis; zero when empty.
  SbVec3d getSize() const;

  void makeEmpty() {
    double hi = std::numeric_limits<double>::max();
    double lo = std::numeric_limits<double>::lowest();
    m_min.setValue(hi, hi, hi);
    m_max.setValue(lo, lo, lo);
  }
  bool isEmpty() const;
  // True when every extent is positive.
  bool hasVolume() const;
  // Grows to contain the point or the box (an empty box adds nothing).
  void extendBy(const SbVec3d& pt);
  void extendBy(const SbBox3d& box);
  // True when the point lies inside or on the boundary.
  bool intersect(const SbVec3d& pt) const;
  // True when the two boxes overlap (touching counts).
  bool intersect(const SbBox3d& box) const;
  // The point of the box (surface or inside) nearest to `pt`.
  SbVec3d getClosestPoint(const SbVec3d& pt) const;
  double getVolume() const;
  // Width / height of the box; 0 when empty.
  // Grows every side by `amount` (shrinks for a negative one).
  void enlarge(double amount);
  // Replaces the box by the axis-aligned box around its eight transformed corners.
  void transform(const SbMatrixd& m);

  friend bool operator==(const SbBox3d& a, const SbBox3d& b) { return a.m_min == b.m_min && a.m_max == b.m_max; }
  friend bool operator!=(const SbBox3d& a, const SbBox3d& b) { return !(a == b); }

 protected:
  SbVec3d m_min;
  SbVec3d m_max;
};
static_assert(sizeof(SbBox3d) == 2 * sizeof(SbVec3d), "SbBox3d must be exactly its two corners");
