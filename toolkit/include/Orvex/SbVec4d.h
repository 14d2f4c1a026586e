#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

class SbVec4f;
class SbVec3d;

// A 4D vector of doubles, laid out x, y, z, w (32 bytes, no padding).
class SbVec4d {
 public:
  // All components zero.
  SbVec4d() = default;
  explicit SbVec4d(const double v[4]) { setValue(v); }
  SbVec4d(double x, double y, double z, double w) { setValue(x, y, z, w); }

  SbVec4d& setValue(const double v[4]) {
    for (int i = 0; i < 4; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec4d& setValue(double x, double y, double z, double w) {
    m_vec[0] = x; m_vec[1] = y; m_vec[2] = z; m_vec[3] = w;
    return *this;
  }
  // Converts from the other precision.
  SbVec4d& setValue(const SbVec4f& v);

  const double* getValue() const { return m_vec; }
  void getValue(double& x, double& y, double& z, double& w) const {
    x = m_vec[0]; y = m_vec[1]; z = m_vec[2]; w = m_vec[3];
  }
  double& operator[](int i) { return m_vec[i]; }
  const double& operator[](int i) const { return m_vec[i]; }

  // Arithmetic.
  SbVec4d& operator*=(double d) {
    for (double& c : m_vec) c = static_cast<double>(c * d);
    return *this;
  }
  // Component-wise product.
  SbVec4d& operator*=(const SbVec4d& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] *= v.m_vec[i];
    return *this;
  }
  SbVec4d& operator/=(double d) {
    for (double& c : m_vec) c = static_cast<double>(c / d);
    return *this;
  }
  SbVec4d& operator+=(const SbVec4d& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<double>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec4d& operator-=(const SbVec4d& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<double>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec4d operator-() const {
    SbVec4d r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec4d& a, const SbVec4d& b) {
    for (int i = 0; i < 4; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec4d& a, const SbVec4d& b) { return !(a == b); }
  // Component-wise product.
  SbVec4d operator*(const SbVec4d& v) const { return SbVec4d(*this) *= v; }
  friend SbVec4d operator*(const SbVec4d& v, double d) { return SbVec4d(v) *= d; }
  friend SbVec4d operator*(double d, const SbVec4d& v) { return SbVec4d(v) *= d; }
  friend SbVec4d operator/(const SbVec4d& v, double d) { return SbVec4d(v) /= d; }
  friend SbVec4d operator+(const SbVec4d& a, const SbVec4d& b) { return SbVec4d(a) += b; }
  friend SbVec4d operator-(const SbVec4d& a, const SbVec4d& b) { return SbVec4d(a) -= b; }

  double dot(const SbVec4d& v) const {
    double s = 0;
    for (int i = 0; i < 4; ++i) s += static_cast<double>(m_vec[i]) * static_cast<double>(v.m_vec[i]);
    return s;
  }
  double length() const { return std::sqrt(lengthSquared()); }
  double lengthSquared() const { return dot(*this); }
  // Scales to unit length and returns the previous length; a zero vector stays zero.
  double normalize();
  void negate() {
    for (double& c : m_vec) c = static_cast<double>(-c);
  }
  // The 3D point this homogeneous vector stands for (x, y, z divided by w).
  SbVec3d getReal() const;
  // True when the squared distance to `v` is at most `tolerance`.
  bool equals(const SbVec4d& v, double tolerance) const { return (SbVec4d(*this) -= v).lengthSquared() <= tolerance; }

 private:
  double m_vec[4] = {};
};
static_assert(sizeof(SbVec4d) == 32, "SbVec4d must be exactly its 4 components");
