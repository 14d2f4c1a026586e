#pragma once
#include <Orvex/SbVec2f.h>
#include <limits>

// An axis-aligned rectangle given by its minimum and maximum corners, laid out
// min then max. It is empty while any minimum component exceeds its maximum.
class SbBox2f {
 public:
  SbBox2f() { makeEmpty(); }
  SbBox2f(const SbVec2f& min, const SbVec2f& max) : m_min(min), m_max(max) {}
  SbBox2f(float xmin, float ymin, float xmax, float ymax)
      : m_min(xmin, ymin), m_max(xmax, ymax) {}

  const SbVec2f& getMin() const { return m_min; }
  const SbVec2f& getMax() const { return m_max; }
  void getBounds(SbVec2f& min, SbVec2f& max) const { min = m_min; max = m_max; }
  void setBounds(const SbVec2f& min, const SbVec2f& max) { m_min = min; m_max = max; }
  // Middle of the box; the origin when empty.
  SbVec2f getCenter() const;
  // max - min per axis; zero when empty.
  SbVec2f getSize() const;

  void makeEmpty() {
    float hi = std::numeric_limits<float>::max();
    float lo = std::numeric_limits<float>::lowest();
    m_min.setValue(hi, hi);
    m_max.setValue(lo, lo);
  }
  bool isEmpty() const;
  // True when every extent is positive.
  bool hasArea() const;
  // Grows to contain the point or the box (an empty box adds nothing).
  void extendBy(const SbVec2f& pt);
  void extendBy(const SbBox2f& box);
  // True when the point lies inside or on the boundary.
  bool intersect(const SbVec2f& pt) const;
  // True when the two boxes overlap (touching counts).
  bool intersect(const SbBox2f& box) const;
  // The point of the box (surface or inside) nearest to `pt`.
  SbVec2f getClosestPoint(const SbVec2f& pt) const;
  float getArea() const;
  // Width / height of the box; 0 when empty.
  float getAspectRatio() const;

  friend bool operator==(const SbBox2f& a, const SbBox2f& b) { return a.m_min == b.m_min && a.m_max == b.m_max; }
  friend bool operator!=(const SbBox2f& a, const SbBox2f& b) { return !(a == b); }

 protected:
  SbVec2f m_min;
  SbVec2f m_max;
};
static_assert(sizeof(SbBox2f) == 2 * sizeof(SbVec2f), "SbBox2f must be exactly its two corners");
