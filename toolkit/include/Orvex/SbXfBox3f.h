#pragma once
#include <Orvex/SbBox3f.h>
#include <Orvex/SbBox3d.h>
#include <Orvex/SbMatrix.h>

// A box in its own local space together with the transformation to world
// space (and its inverse, kept up to date). Points and boxes handed to it are
// in world space. Layout: the local box, the transformation, its inverse.
class SbXfBox3f : public SbBox3f {
 public:
  SbXfBox3f() = default;
  SbXfBox3f(const SbVec3f& min, const SbVec3f& max) : SbBox3f(min, max) {}
  explicit SbXfBox3f(const SbBox3f& box) : SbBox3f(box) {}

  void setTransform(const SbMatrix& m);
  const SbMatrix& getTransform() const { return m_xform; }
  const SbMatrix& getInverse() const { return m_xformInv; }

  // World-space centre.
  SbVec3f getCenter() const;
  void extendBy(const SbVec3f& pt);
  void extendBy(const SbBox3f& box);
  void extendBy(const SbXfBox3f& box);
  bool intersect(const SbVec3f& pt) const;
  bool intersect(const SbBox3f& box) const;
  // Appends `m` to the transformation (the box moves with it).
  void transform(const SbMatrix& m);
  // World-space volume.
  float getVolume() const;
  // The world-space axis-aligned box around this one.
  SbBox3f project() const;

  friend bool operator==(const SbXfBox3f& a, const SbXfBox3f& b);
  friend bool operator!=(const SbXfBox3f& a, const SbXfBox3f& b) { return !(a == b); }

 private:
  SbMatrix m_xform;
  SbMatrix m_xformInv;
};
static_assert(sizeof(SbXfBox3f) == 24 + 2 * 64, "SbXfBox3f layout: box, matrix, inverse");

// The double-precision transformed box.
class SbXfBox3d : public SbBox3d {
 public:
  SbXfBox3d() = default;
  SbXfBox3d(const SbVec3d& min, const SbVec3d& max) : SbBox3d(min, max) {}
  explicit SbXfBox3d(const SbBox3d& box) : SbBox3d(box) {}

  void setTransform(const SbMatrixd& m);
  const SbMatrixd& getTransform() const { return m_xform; }
  const SbMatrixd& getInverse() const { return m_xformInv; }

  SbVec3d getCenter() const;
  void extendBy(const SbVec3d& pt);
  void extendBy(const SbBox3d& box);
  void extendBy(const SbXfBox3d& box);
  bool intersect(const SbVec3d& pt) const;
  bool intersect(const SbBox3d& box) const;
  void transform(const SbMatrixd& m);
  double getVolume() const;
  SbBox3d project() const;

  friend bool operator==(const SbXfBox3d& a, const SbXfBox3d& b);
  friend bool operator!=(const SbXfBox3d& a, const SbXfBox3d& b) { return !(a == b); }

 private:
  SbMatrixd m_xform;
  SbMatrixd m_xformInv;
};
static_assert(sizeof(SbXfBox3d) == 48 + 2 * 128, "SbXfBox3d layout: box, matrix, inverse");
