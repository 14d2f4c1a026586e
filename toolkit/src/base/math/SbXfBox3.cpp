// Transformed boxes: the box is kept in local space; everything handed in or
// out is in world space and crosses the transformation.
#include <Orvex/SbXfBox3f.h>

#include <cmath>

namespace {
template <typename X, typename B, typename V>
void extendByWorldBox(X& self, const B& box, const V&) {
  if (box.isEmpty()) return;
  const V lo = box.getMin(), hi = box.getMax();
  for (int c = 0; c < 8; ++c)
    self.extendBy(V((c & 1) ? hi[0] : lo[0], (c & 2) ? hi[1] : lo[1], (c & 4) ? hi[2] : lo[2]));
}

template <typename X, typename B, typename V>
B projectBox(const X& self, const B& local) {
  B world;
  if (local.isEmpty()) return world;
  const V lo = local.getMin(), hi = local.getMax();
  for (int c = 0; c < 8; ++c) {
    V p((c & 1) ? hi[0] : lo[0], (c & 2) ? hi[1] : lo[1], (c & 4) ? hi[2] : lo[2]);
    self.getTransform().multVecMatrix(p, p);
    world.extendBy(p);
  }
  return world;
}
}  // namespace

// ---- SbXfBox3f ----

void SbXfBox3f::setTransform(const SbMatrix& m) {
  m_xform = m;
  m_xformInv = m.inverse();
}
SbVec3f SbXfBox3f::getCenter() const {
  SbVec3f c = SbBox3f::getCenter();
  m_xform.multVecMatrix(c, c);
  return c;
}
void SbXfBox3f::extendBy(const SbVec3f& pt) {
  SbVec3f local;
  m_xformInv.multVecMatrix(pt, local);
  SbBox3f::extendBy(local);
}
void SbXfBox3f::extendBy(const SbBox3f& box) { extendByWorldBox(*this, box, SbVec3f()); }
void SbXfBox3f::extendBy(const SbXfBox3f& box) { extendBy(box.project()); }
bool SbXfBox3f::intersect(const SbVec3f& pt) const {
  SbVec3f local;
  m_xformInv.multVecMatrix(pt, local);
  return SbBox3f::intersect(local);
}
bool SbXfBox3f::intersect(const SbBox3f& box) const { return project().intersect(box); }
void SbXfBox3f::transform(const SbMatrix& m) { setTransform(m_xform * m); }
float SbXfBox3f::getVolume() const { return SbBox3f::getVolume() * std::fabs(m_xform.det3()); }
SbBox3f SbXfBox3f::project() const {
  return projectBox<SbXfBox3f, SbBox3f, SbVec3f>(*this, static_cast<const SbBox3f&>(*this));
}
bool operator==(const SbXfBox3f& a, const SbXfBox3f& b) {
  return static_cast<const SbBox3f&>(a) == static_cast<const SbBox3f&>(b) && a.m_xform == b.m_xform;
}

// ---- SbXfBox3d ----

void SbXfBox3d::setTransform(const SbMatrixd& m) {
  m_xform = m;
  m_xformInv = m.inverse();
}
SbVec3d SbXfBox3d::getCenter() const {
  SbVec3d c = SbBox3d::getCenter();
  m_xform.multVecMatrix(c, c);
  return c;
}
void SbXfBox3d::extendBy(const SbVec3d& pt) {
  SbVec3d local;
  m_xformInv.multVecMatrix(pt, local);
  SbBox3d::extendBy(local);
}
void SbXfBox3d::extendBy(const SbBox3d& box) { extendByWorldBox(*this, box, SbVec3d()); }
void SbXfBox3d::extendBy(const SbXfBox3d& box) { extendBy(box.project()); }
bool SbXfBox3d::intersect(const SbVec3d& pt) const {
  SbVec3d local;
  m_xformInv.multVecMatrix(pt, local);
  return SbBox3d::intersect(local);
}
bool SbXfBox3d::intersect(const SbBox3d& box) const { return project().intersect(box); }
void SbXfBox3d::transform(const SbMatrixd& m) { setTransform(m_xform * m); }
double SbXfBox3d::getVolume() const { return SbBox3d::getVolume() * std::fabs(m_xform.det3()); }
SbBox3d SbXfBox3d::project() const {
  return projectBox<SbXfBox3d, SbBox3d, SbVec3d>(*this, static_cast<const SbBox3d&>(*this));
}
bool operator==(const SbXfBox3d& a, const SbXfBox3d& b) {
  return static_cast<const SbBox3d&>(a) == static_cast<const SbBox3d&>(b) && a.m_xform == b.m_xform;
}
