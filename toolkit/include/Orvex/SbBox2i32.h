#pragma once
#include <Orvex/SbVec2i32.h>
#include <limits>

// An axis-aligned rectangle given by its minimum and maximum corners, laid out
// min then max. It is empty while any minimum component exceeds its maximum.
class SbBox2i32 {
 public:
  SbBox2i32() { makeEmpty(); }
  SbBox2i32(const SbVec2i32& min, const SbVec2i32& max) : m_min(min), m_max(max) {}
  SbBox2i32(int32_t xmin, int32_t ymin, int32_t xmax, int32_t ymax)
      : m_min(xmin, ymin), m_max(xmax, ymax) {}

  const SbVec2i32& getMin() const { return m_min; }
  const SbVec2i32& getMax() const { return m_max; }
  void getBounds(SbVec2i32& min, SbVec2i32& max) const { min = m_min; max = m_max; }
  void setBounds(const SbVec2i32& min, const SbVec2i32& max) { m_min = min; m_max = max; }
  // Middle of the box (rounded towards zero); the origin when empty.
  SbVec2i32 getCenter() const;
  // max - min per axis; zero when empty.
  SbVec2i32 getSize() const;

  void makeEmpty() {
    int32_t hi = std::numeric_limits<int32_t>::max();
    int32_t lo = std::numeric_limits<int32_t>::lowest();
    m_min.setValue(hi, hi);
    m_max.setValue(lo, lo);
  }
  bool isEmpty() const;
  // True when every extent is positive.
  bool hasArea() const;
  // Grows to contain the point or the box (an empty box adds nothing).
  void extendBy(const SbVec2i32& pt);
  void extendBy(const SbBox2i32& box);
  // True when the point lies inside or on the boundary.
  bool intersect(const SbVec2i32& pt) const;
  // True when the two boxes overlap (touching counts).
  bool intersect(const SbBox2i32& box) const;

  friend bool operator==(const SbBox2i32& a, const SbBox2i32& b) { return a.m_min == b.m_min && a.m_max == b.m_max; }
  friend bool operator!=(const SbBox2i32& a, const SbBox2i32& b) { return !(a == b); }

 protected:
  SbVec2i32 m_min;
  SbVec2i32 m_max;
};
static_assert(sizeof(SbBox2i32) == 2 * sizeof(SbVec2i32), "SbBox2i32 must be exactly its two corners");
