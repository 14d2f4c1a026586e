#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

class SbVec2d;

// A 2D vector of floats, laid out x, y (8 bytes, no padding).
class SbVec2f {
 public:
  // All components zero.
  SbVec2f() = default;
  explicit SbVec2f(const float v[2]) { setValue(v); }
  SbVec2f(float x, float y) { setValue(x, y); }

  SbVec2f& setValue(const float v[2]) {
    for (int i = 0; i < 2; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec2f& setValue(float x, float y) {
    m_vec[0] = x; m_vec[1] = y;
    return *this;
  }
  // Converts from the other precision.
  SbVec2f& setValue(const SbVec2d& v);

  const float* getValue() const { return m_vec; }
  void getValue(float& x, float& y) const {
    x = m_vec[0]; y = m_vec[1];
  }
  float& operator[](int i) { return m_vec[i]; }
  const float& operator[](int i) const { return m_vec[i]; }

  // Arithmetic.
  SbVec2f& operator*=(float d) {
    for (float& c : m_vec) c = static_cast<float>(c * d);
    return *this;
  }
  // Component-wise product.
  SbVec2f& operator*=(const SbVec2f& v) {
    for (int i = 0; i < 2; ++i) m_vec[i] *= v.m_vec[i];
    return *this;
  }
  SbVec2f& operator/=(float d) {
    for (float& c : m_vec) c = static_cast<float>(c / d);
    return *this;
  }
  SbVec2f& operator+=(const SbVec2f& v) {
    for (int i = 0; i < 2; ++i) m_vec[i] = static_cast<float>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec2f& operator-=(const SbVec2f& v) {
    for (int i = 0; i < 2; ++i) m_vec[i] = static_cast<float>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec2f operator-() const {
    SbVec2f r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec2f& a, const SbVec2f& b) {
    for (int i = 0; i < 2; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec2f& a, const SbVec2f& b) { return !(a == b); }
  // Component-wise product.
  SbVec2f operator*(const SbVec2f& v) const { return SbVec2f(*this) *= v; }
  friend SbVec2f operator*(const SbVec2f& v, float d) { return SbVec2f(v) *= d; }
  friend SbVec2f operator*(float d, const SbVec2f& v) { return SbVec2f(v) *= d; }
  friend SbVec2f operator/(const SbVec2f& v, float d) { return SbVec2f(v) /= d; }
  friend SbVec2f operator+(const SbVec2f& a, const SbVec2f& b) { return SbVec2f(a) += b; }
  friend SbVec2f operator-(const SbVec2f& a, const SbVec2f& b) { return SbVec2f(a) -= b; }

  float dot(const SbVec2f& v) const {
    float s = 0;
    for (int i = 0; i < 2; ++i) s += static_cast<float>(m_vec[i]) * static_cast<float>(v.m_vec[i]);
    return s;
  }
  float length() const { return std::sqrt(lengthSquared()); }
  float lengthSquared() const { return dot(*this); }
  // Scales to unit length and returns the previous length; a zero vector stays zero.
  float normalize();
  void negate() {
    for (float& c : m_vec) c = static_cast<float>(-c);
  }
  // True when the squared distance to `v` is at most `tolerance`.
  bool equals(const SbVec2f& v, float tolerance) const { return (SbVec2f(*this) -= v).lengthSquared() <= tolerance; }

 private:
  float m_vec[2] = {};
};
static_assert(sizeof(SbVec2f) == 8, "SbVec2f must be exactly its 2 components");
