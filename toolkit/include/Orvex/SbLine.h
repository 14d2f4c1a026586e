#pragma once
#include <Orvex/SbVec3f.h>
#include <Orvex/SbVec3d.h>

class SbBox3f;

// An infinite directed line: a position and a unit direction (24 bytes).
class SbLine {
 public:
  // The z axis.
  SbLine() : m_dir(0, 0, 1) {}
  // The line through p0 and p1, directed from p0 to p1.
  SbLine(const SbVec3f& p0, const SbVec3f& p1) { setValue(p0, p1); }

  void setValue(const SbVec3f& p0, const SbVec3f& p1);
  void setPosDir(const SbVec3f& position, const SbVec3f& direction);
  const SbVec3f& getPosition() const { return m_pos; }
  const SbVec3f& getDirection() const { return m_dir; }

  // The point of the line nearest to `point`.
  SbVec3f getClosestPoint(const SbVec3f& point) const;
  // The points of closest approach on this line and on `line`; false when
  // the lines are parallel.
  bool getClosestPoints(const SbLine& line, SbVec3f& ptOnThis, SbVec3f& ptOnLine) const;
  // Where the line enters and leaves the box; false when it misses it.
  bool intersect(const SbBox3f& box, SbVec3f& enter, SbVec3f& exit) const;
  // Intersection with the triangle v0 v1 v2: the point, its barycentric
  // coordinates and whether the triangle faces the line (counter-clockwise
  // seen against the direction).
  bool intersect(const SbVec3f& v0, const SbVec3f& v1, const SbVec3f& v2,
                 SbVec3f& intersection, SbVec3f& barycentric, bool& front) const;

  friend bool operator==(const SbLine& a, const SbLine& b) { return a.m_pos == b.m_pos && a.m_dir == b.m_dir; }
  friend bool operator!=(const SbLine& a, const SbLine& b) { return !(a == b); }

 private:
  SbVec3f m_pos;
  SbVec3f m_dir;
};
static_assert(sizeof(SbLine) == 24, "SbLine must be exactly 6 floats");

// The double-precision line (48 bytes).
class SbLined {
 public:
  SbLined() : m_dir(0, 0, 1) {}
  SbLined(const SbVec3d& p0, const SbVec3d& p1) { setValue(p0, p1); }

  void setValue(const SbVec3d& p0, const SbVec3d& p1);
  void setPosDir(const SbVec3d& position, const SbVec3d& direction);
  const SbVec3d& getPosition() const { return m_pos; }
  const SbVec3d& getDirection() const { return m_dir; }

  SbVec3d getClosestPoint(const SbVec3d& point) const;
  bool getClosestPoints(const SbLined& line, SbVec3d& ptOnThis, SbVec3d& ptOnLine) const;

  friend bool operator==(const SbLined& a, const SbLined& b) { return a.m_pos == b.m_pos && a.m_dir == b.m_dir; }
  friend bool operator!=(const SbLined& a, const SbLined& b) { return !(a == b); }

 private:
  SbVec3d m_pos;
  SbVec3d m_dir;
};
static_assert(sizeof(SbLined) == 48, "SbLined must be exactly 6 doubles");
