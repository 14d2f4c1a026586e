#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

class SbVec2f;

// A 2D vector of doubles, laid out x, y (16 bytes, no padding).
class SbVec2d {
 public:
  // All components zero.
  SbVec2d() = default;
  explicit SbVec2d(const double v[2]) { setValue(v); }
  SbVec2d(double x, double y) { setValue(x, y); }

  SbVec2d& setValue(const double v[2]) {
    for (int i = 0; i < 2; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec2d& setValue(double x, double y) {
    m_vec[0] = x; m_vec[1] = y;
    return *this;
  }
  // Converts from the other precision.
  SbVec2d& setValue(const SbVec2f& v);

  const double* getValue() const { return m_vec; }
  void getValue(double& x, double& y) const {
    x = m_vec[0]; y = m_vec[1];
  }
  double& operator[](int i) { return m_vec[i]; }
  const double& operator[](int i) const { return m_vec[i]; }

  // Arithmetic.
  SbVec2d& operator*=(double d) {
    for (double& c : m_vec) c = static_cast<double>(c * d);
    return *this;
  }
  // Component-wise product.
  SbVec2d& operator*=(const SbVec2d& v) {
    for (int i = 0; i < 2; ++i) m_vec[i] *= v.m_vec[i];
    return *this;
  }
  SbVec2d& operator/=(double d) {
    for (double& c : m_vec) c = static_cast<double>(c / d);
    return *this;
  }
  SbVec2d& operator+=(const SbVec2d& v) {
    for (int i = 0; i < 2; ++i) m_vec[i] = static_cast<double>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec2d& operator-=(const SbVec2d& v) {
    for (int i = 0; i < 2; ++i) m_vec[i] = static_cast<double>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec2d operator-() const {
    SbVec2d r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec2d& a, const SbVec2d& b) {
    for (int i = 0; i < 2; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec2d& a, const SbVec2d& b) { return !(a == b); }
  // Component-wise product.
  SbVec2d operator*(const SbVec2d& v) const { return SbVec2d(*this) *= v; }
  friend SbVec2d operator*(const SbVec2d& v, double d) { return SbVec2d(v) *= d; }
  friend SbVec2d operator*(double d, const SbVec2d& v) { return SbVec2d(v) *= d; }
  friend SbVec2d operator/(const SbVec2d& v, double d) { return SbVec2d(v) /= d; }
  friend SbVec2d operator+(const SbVec2d& a, const SbVec2d& b) { return SbVec2d(a) += b; }
  friend SbVec2d operator-(const SbVec2d& a, const SbVec2d& b) { return SbVec2d(a) -= b; }

  double dot(const SbVec2d& v) const {
    double s = 0;
    for (int i = 0; i < 2; ++i) s += static_cast<double>(m_vec[i]) * static_cast<double>(v.m_vec[i]);
    return s;
  }
  double length() const { return std::sqrt(lengthSquared()); }
  double lengthSquared() const { return dot(*this); }
  // Scales to unit length and returns the previous length; a zero vector stays zero.
  double normalize();
  void negate() {
    for (double& c : m_vec) c = static_cast<double>(-c);
  }
  // True when the squared distance to `v` is at most `tolerance`.
  bool equals(const SbVec2d& v, double tolerance) const { return (SbVec2d(*this) -= v).lengthSquared() <= tolerance; }

 private:
  double m_vec[2] = {};
};
static_assert(sizeof(SbVec2d) == 16, "SbVec2d must be exactly its 2 components");
