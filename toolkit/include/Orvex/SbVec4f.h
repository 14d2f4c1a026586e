#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

class SbVec4d;
class SbVec3f;

// A 4D vector of floats, laid out x, y, z, w (16 bytes, no padding).
class SbVec4f {
 public:
  // All components zero.
  SbVec4f() = default;
  explicit SbVec4f(const float v[4]) { setValue(v); }
  SbVec4f(float x, float y, float z, float w) { setValue(x, y, z, w); }

  SbVec4f& setValue(const float v[4]) {
    for (int i = 0; i < 4; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec4f& setValue(float x, float y, float z, float w) {
    m_vec[0] = x; m_vec[1] = y; m_vec[2] = z; m_vec[3] = w;
    return *this;
  }
  // Converts from the other precision.
  SbVec4f& setValue(const SbVec4d& v);

  const float* getValue() const { return m_vec; }
  void getValue(float& x, float& y, float& z, float& w) const {
    x = m_vec[0]; y = m_vec[1]; z = m_vec[2]; w = m_vec[3];
  }
  float& operator[](int i) { return m_vec[i]; }
  const float& operator[](int i) const { return m_vec[i]; }

  // Arithmetic.
  SbVec4f& operator*=(float d) {
    for (float& c : m_vec) c = static_cast<float>(c * d);
    return *this;
  }
  // Component-wise product.
  SbVec4f& operator*=(const SbVec4f& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] *= v.m_vec[i];
    return *this;
  }
  SbVec4f& operator/=(float d) {
    for (float& c : m_vec) c = static_cast<float>(c / d);
    return *this;
  }
  SbVec4f& operator+=(const SbVec4f& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<float>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec4f& operator-=(const SbVec4f& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<float>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec4f operator-() const {
    SbVec4f r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec4f& a, const SbVec4f& b) {
    for (int i = 0; i < 4; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec4f& a, const SbVec4f& b) { return !(a == b); }
  // Component-wise product.
  SbVec4f operator*(const SbVec4f& v) const { return SbVec4f(*this) *= v; }
  friend SbVec4f operator*(const SbVec4f& v, float d) { return SbVec4f(v) *= d; }
  friend SbVec4f operator*(float d, const SbVec4f& v) { return SbVec4f(v) *= d; }
  friend SbVec4f operator/(const SbVec4f& v, float d) { return SbVec4f(v) /= d; }
  friend SbVec4f operator+(const SbVec4f& a, const SbVec4f& b) { return SbVec4f(a) += b; }
  friend SbVec4f operator-(const SbVec4f& a, const SbVec4f& b) { return SbVec4f(a) -= b; }

  float dot(const SbVec4f& v) const {
    float s = 0;
    for (int i = 0; i < 4; ++i) s += static_cast<float>(m_vec[i]) * static_cast<float>(v.m_vec[i]);
    return s;
  }
  float length() const { return std::sqrt(lengthSquared()); }
  float lengthSquared() const { return dot(*this); }
  // Scales to unit length and returns the previous length; a zero vector stays zero.
  float normalize();
  void negate() {
    for (float& c : m_vec) c = static_cast<float>(-c);
  }
  // The 3D point this homogeneous vector stands for (x, y, z divided by w).
  SbVec3f getReal() const;
  // True when the squared distance to `v` is at most `tolerance`.
  bool equals(const SbVec4f& v, float tolerance) const { return (SbVec4f(*this) -= v).lengthSquared() <= tolerance; }

 private:
  float m_vec[4] = {};
};
static_assert(sizeof(SbVec4f) == 16, "SbVec4f must be exactly its 4 components");
