#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

class SbVec3f;

// A 3D vector of doubles, laid out x, y, z (24 bytes, no padding).
class SbVec3d {
 public:
  // All components zero.
  SbVec3d() = default;
  explicit SbVec3d(const double v[3]) { setValue(v); }
  SbVec3d(double x, double y, double z) { setValue(x, y, z); }

  SbVec3d& setValue(const double v[3]) {
    for (int i = 0; i < 3; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec3d& setValue(double x, double y, double z) {
    m_vec[0] = x; m_vec[1] = y; m_vec[2] = z;
    return *this;
  }
  // Converts from the other precision.
  SbVec3d& setValue(const SbVec3f& v);

  const double* getValue() const { return m_vec; }
  void getValue(double& x, double& y, double& z) const {
    x = m_vec[0]; y = m_vec[1]; z = m_vec[2];
  }
  double& operator[](int i) { return m_vec[i]; }
  const double& operator[](int i) const { return m_vec[i]; }

  // Arithmetic.
  SbVec3d& operator*=(double d) {
    for (double& c : m_vec) c = static_cast<double>(c * d);
    return *this;
  }
  // Component-wise product.
  SbVec3d& operator*=(const SbVec3d& v) {
    for (int i = 0; i < 3; ++i) m_vec[i] *= v.m_vec[i];
    return *this;
  }
  SbVec3d& operator/=(double d) {
    for (double& c : m_vec) c = static_cast<double>(c / d);
    return *this;
  }
  SbVec3d& operator+=(const SbVec3d& v) {
    for (int i = 0; i < 3; ++i) m_vec[i] = static_cast<double>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec3d& operator-=(const SbVec3d& v) {
    for (int i = 0; i < 3; ++i) m_vec[i] = static_cast<double>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec3d operator-() const {
    SbVec3d r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec3d& a, const SbVec3d& b) {
    for (int i = 0; i < 3; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec3d& a, const SbVec3d& b) { return !(a == b); }
  // Component-wise product.
  SbVec3d operator*(const SbVec3d& v) const { return SbVec3d(*this) *= v; }
  friend SbVec3d operator*(const SbVec3d& v, double d) { return SbVec3d(v) *= d; }
  friend SbVec3d operator*(double d, const SbVec3d& v) { return SbVec3d(v) *= d; }
  friend SbVec3d operator/(const SbVec3d& v, double d) { return SbVec3d(v) /= d; }
  friend SbVec3d operator+(const SbVec3d& a, const SbVec3d& b) { return SbVec3d(a) += b; }
  friend SbVec3d operator-(const SbVec3d& a, const SbVec3d& b) { return SbVec3d(a) -= b; }

  double dot(const SbVec3d& v) const {
    double s = 0;
    for (int i = 0; i < 3; ++i) s += static_cast<double>(m_vec[i]) * static_cast<double>(v.m_vec[i]);
    return s;
  }
  SbVec3d cross(const SbVec3d& v) const {
    return SbVec3d(m_vec[1] * v.m_vec[2] - m_vec[2] * v.m_vec[1],
                 m_vec[2] * v.m_vec[0] - m_vec[0] * v.m_vec[2],
                 m_vec[0] * v.m_vec[1] - m_vec[1] * v.m_vec[0]);
  }
  double length() const { return std::sqrt(lengthSquared()); }
  double lengthSquared() const { return dot(*this); }
  // Scales to unit length and returns the previous length; a zero vector stays zero.
  double normalize();
  void negate() {
    for (double& c : m_vec) c = static_cast<double>(-c);
  }
  // The principal axis (+-x, +-y or +-z) nearest to this direction.
  SbVec3d getClosestAxis() const;
  // True when the squared distance to `v` is at most `tolerance`.
  bool equals(const SbVec3d& v, double tolerance) const { return (SbVec3d(*this) -= v).lengthSquared() <= tolerance; }

 private:
  double m_vec[3] = {};
};
static_assert(sizeof(SbVec3d) == 24, "SbVec3d must be exactly its 3 components");
