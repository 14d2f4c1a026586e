#pragma once
#include <Orvex/SbVec4i32.h>
#include <limits>

// An axis-aligned 4D box given by its minimum and maximum corners, laid out
// min then max. It is empty while any minimum component exceeds its maximum.
class SbBox4i32 {
 public:
  SbBox4i32() { makeEmpty(); }
  SbBox4i32(const SbVec4i32& min, const SbVec4i32& max) : m_min(min), m_max(max) {}
  SbBox4i32(int32_t xmin, int32_t ymin, int32_t zmin, int32_t wmin, int32_t xmax, int32_t ymax, int32_t zmax, int32_t wmax)
      : m_min(xmin, ymin, zmin, wmin), m_max(xmax, ymax, zmax, wmax) {}

  const SbVec4i32& getMin() const { return m_min; }
  const SbVec4i32& getMax() const { return m_max; }
  void getBounds(SbVec4i32& min, SbVec4i32& max) const { min = m_min; max = m_max; }
  void setBounds(const SbVec4i32& min, const SbVec4i32& max) { m_min = min; m_max = max; }
  // Middle of the box (rounded towards zero); the origin when empty.
  SbVec4i32 getCenter() const;
  // max - min per axis; zero when empty.
  SbVec4i32 getSize() const;

  void makeEmpty() {
    int32_t hi = std::numeric_limits<int32_t>::max();
    int32_t lo = std::numeric_limits<int32_t>::lowest();
    m_min.setValue(hi, hi, hi, hi);
    m_max.setValue(lo, lo, lo, lo);
  }
  bool isEmpty() const;
  // True when every extent is positive.
  bool hasVolume() const;
  // Grows to contain the point or the box (an empty box adds nothing).
  void extendBy(const SbVec4i32& pt);
  void extendBy(const SbBox4i32& box);
  // True when the point lies inside or on the boundary.
  bool intersect(const SbVec4i32& pt) const;
  // True when the two boxes overlap (touching counts).
  bool intersect(const SbBox4i32& box) const;

  friend bool operator==(const SbBox4i32& a, const SbBox4i32& b) { return a.m_min == b.m_min && a.m_max == b.m_max; }
  friend bool operator!=(const SbBox4i32& a, const SbBox4i32& b) { return !(a == b); }

 protected:
  SbVec4i32 m_min;
  SbVec4i32 m_max;
};
static_assert(sizeof(SbBox4i32) == 2 * sizeof(SbVec4i32), "SbBox4i32 must be exactly its two corners");
