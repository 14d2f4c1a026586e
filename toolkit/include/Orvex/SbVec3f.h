#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

class SbVec3d;
class SbPlane;

// A 3D vector of floats, laid out x, y, z (12 bytes, no padding).
class SbVec3f {
 public:
  // All components zero.
  SbVec3f() = default;
  explicit SbVec3f(const float v[3]) { setValue(v); }
  SbVec3f(float x, float y, float z) { setValue(x, y, z); }
  // The point common to three planes; the origin when two of them are parallel.
  SbVec3f(const SbPlane& p0, const SbPlane& p1, const SbPlane& p2);

  SbVec3f& setValue(const float v[3]) {
    for (int i = 0; i < 3; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec3f& setValue(float x, float y, float z) {
    m_vec[0] = x; m_vec[1] = y; m_vec[2] = z;
    return *this;
  }
  // The point whose barycentric coordinates in the triangle v0 v1 v2 are `barycentric`.
  SbVec3f& setValue(const SbVec3f& barycentric, const SbVec3f& v0, const SbVec3f& v1, const SbVec3f& v2);
  // Converts from the other precision.
  SbVec3f& setValue(const SbVec3d& v);

  const float* getValue() const { return m_vec; }
  void getValue(float& x, float& y, float& z) const {
    x = m_vec[0]; y = m_vec[1]; z = m_vec[2];
  }
  float& operator[](int i) { return m_vec[i]; }
  const float& operator[](int i) const { return m_vec[i]; }

  // Arithmetic.
  SbVec3f& operator*=(float d) {
    for (float& c : m_vec) c = static_cast<float>(c * d);
    return *this;
  }
  // Component-wise product.
  SbVec3f& operator*=(const SbVec3f& v) {
    for (int i = 0; i < 3; ++i) m_vec[i] *= v.m_vec[i];
    return *this;
  }
  SbVec3f& operator/=(float d) {
    for (float& c : m_vec) c = static_cast<float>(c / d);
    return *this;
  }
  SbVec3f& operator+=(const SbVec3f& v) {
    for (int i = 0; i < 3; ++i) m_vec[i] = static_cast<float>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec3f& operator-=(const SbVec3f& v) {
    for (int i = 0; i < 3; ++i) m_vec[i] = static_cast<float>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec3f operator-() const {
    SbVec3f r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec3f& a, const SbVec3f& b) {
    for (int i = 0; i < 3; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec3f& a, const SbVec3f& b) { return !(a == b); }
  // Component-wise product.
  SbVec3f operator*(const SbVec3f& v) const { return SbVec3f(*this) *= v; }
  friend SbVec3f operator*(const SbVec3f& v, float d) { return SbVec3f(v) *= d; }
  friend SbVec3f operator*(float d, const SbVec3f& v) { return SbVec3f(v) *= d; }
  friend SbVec3f operator/(const SbVec3f& v, float d) { return SbVec3f(v) /= d; }
  friend SbVec3f operator+(const SbVec3f& a, const SbVec3f& b) { return SbVec3f(a) += b; }
  friend SbVec3f operator-(const SbVec3f& a, const SbVec3f& b) { return SbVec3f(a) -= b; }

  float dot(const SbVec3f& v) const {
    float s = 0;
    for (int i = 0; i < 3; ++i) s += static_cast<float>(m_vec[i]) * static_cast<float>(v.m_vec[i]);
    return s;
  }
  SbVec3f cross(const SbVec3f& v) const {
    return SbVec3f(m_vec[1] * v.m_vec[2] - m_vec[2] * v.m_vec[1],
                 m_vec[2] * v.m_vec[0] - m_vec[0] * v.m_vec[2],
                 m_vec[0] * v.m_vec[1] - m_vec[1] * v.m_vec[0]);
  }
  float length() const { return std::sqrt(lengthSquared()); }
  float lengthSquared() const { return dot(*this); }
  // Scales to unit length and returns the previous length; a zero vector stays zero.
  float normalize();
  void negate() {
    for (float& c : m_vec) c = static_cast<float>(-c);
  }
  // The principal axis (+-x, +-y or +-z) nearest to this direction.
  SbVec3f getClosestAxis() const;
  // True when the squared distance to `v` is at most `tolerance`.
  bool equals(const SbVec3f& v, float tolerance) const { return (SbVec3f(*this) -= v).lengthSquared() <= tolerance; }

 private:
  float m_vec[3] = {};
};
static_assert(sizeof(SbVec3f) == 12, "SbVec3f must be exactly its 3 components");
