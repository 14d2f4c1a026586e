// Members of the vector classes that are not inline: normalisation, axis
// snapping, homogeneous division and precision conversions.
#include <Orvex/SbPlane.h>
#include <Orvex/SbVec2d.h>
#include <Orvex/SbVec2f.h>
#include <Orvex/SbVec3d.h>
#include <Orvex/SbVec3f.h>
#include <Orvex/SbVec4d.h>
#include <Orvex/SbVec4f.h>

#include <cmath>

namespace {
// Scales v to unit length; returns the old length (zero vectors stay zero).
template <typename V, typename T>
T normalizeVec(V& v) {
  const T len = v.length();
  if (len > T(0)) v /= len;
  return len;
}

// The signed principal axis with the largest component of v.
template <typename V>
V closestAxis(const V& v) {
  int best = 0;
  for (int i = 1; i < 3; ++i)
    if (std::fabs(v[i]) > std::fabs(v[best])) best = i;
  V axis;
  axis[best] = v[best] < 0 ? -1 : 1;
  return axis;
}
}  // namespace

float SbVec2f::normalize() { return normalizeVec<SbVec2f, float>(*this); }
float SbVec3f::normalize() { return normalizeVec<SbVec3f, float>(*this); }
float SbVec4f::normalize() { return normalizeVec<SbVec4f, float>(*this); }
double SbVec2d::normalize() { return normalizeVec<SbVec2d, double>(*this); }
double SbVec3d::normalize() { return normalizeVec<SbVec3d, double>(*this); }
double SbVec4d::normalize() { return normalizeVec<SbVec4d, double>(*this); }

SbVec3f SbVec3f::getClosestAxis() const { return closestAxis(*this); }
SbVec3d SbVec3d::getClosestAxis() const { return closestAxis(*this); }

SbVec3f SbVec4f::getReal() const {
  const float w = m_vec[3] != 0 ? m_vec[3] : 1.0f;
  return SbVec3f(m_vec[0] / w, m_vec[1] / w, m_vec[2] / w);
}
SbVec3d SbVec4d::getReal() const {
  const double w = m_vec[3] != 0 ? m_vec[3] : 1.0;
  return SbVec3d(m_vec[0] / w, m_vec[1] / w, m_vec[2] / w);
}

SbVec2f& SbVec2f::setValue(const SbVec2d& v) {
  return setValue(static_cast<float>(v[0]), static_cast<float>(v[1]));
}
SbVec3f& SbVec3f::setValue(const SbVec3d& v) {
  return setValue(static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2]));
}
SbVec4f& SbVec4f::setValue(const SbVec4d& v) {
  return setValue(static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2]),
                  static_cast<float>(v[3]));
}
SbVec2d& SbVec2d::setValue(const SbVec2f& v) { return setValue(v[0], v[1]); }
SbVec3d& SbVec3d::setValue(const SbVec3f& v) { return setValue(v[0], v[1], v[2]); }
SbVec4d& SbVec4d::setValue(const SbVec4f& v) { return setValue(v[0], v[1], v[2], v[3]); }

SbVec3f& SbVec3f::setValue(const SbVec3f& barycentric, const SbVec3f& v0, const SbVec3f& v1,
                           const SbVec3f& v2) {
  *this = v0 * barycentric[0] + v1 * barycentric[1] + v2 * barycentric[2];
  return *this;
}

// Solves n_i . p = d_i by Cramer's rule:
// p = (d0 (n1 x n2) + d1 (n2 x n0) + d2 (n0 x n1)) / (n0 . (n1 x n2)).
SbVec3f::SbVec3f(const SbPlane& p0, const SbPlane& p1, const SbPlane& p2) {
  const SbVec3f& n0 = p0.getNormal();
  const SbVec3f& n1 = p1.getNormal();
  const SbVec3f& n2 = p2.getNormal();
  const float det = n0.dot(n1.cross(n2));
  if (std::fabs(det) < 1e-12f) return;  // parallel planes: stays the origin
  *this = (n1.cross(n2) * p0.getDistanceFromOrigin() + n2.cross(n0) * p1.getDistanceFromOrigin() +
           n0.cross(n1) * p2.getDistanceFromOrigin()) /
          det;
}
