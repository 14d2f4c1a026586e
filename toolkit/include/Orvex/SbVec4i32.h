#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

// A 4D vector of 32-bit integers, laid out x, y, z, w (16 bytes, no padding).
class SbVec4i32 {
 public:
  // All components zero.
  SbVec4i32() = default;
  explicit SbVec4i32(const int32_t v[4]) { setValue(v); }
  SbVec4i32(int32_t x, int32_t y, int32_t z, int32_t w) { setValue(x, y, z, w); }

  SbVec4i32& setValue(const int32_t v[4]) {
    for (int i = 0; i < 4; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec4i32& setValue(int32_t x, int32_t y, int32_t z, int32_t w) {
    m_vec[0] = x; m_vec[1] = y; m_vec[2] = z; m_vec[3] = w;
    return *this;
  }

  const int32_t* getValue() const { return m_vec; }
  void getValue(int32_t& x, int32_t& y, int32_t& z, int32_t& w) const {
    x = m_vec[0]; y = m_vec[1]; z = m_vec[2]; w = m_vec[3];
  }
  int32_t& operator[](int i) { return m_vec[i]; }
  const int32_t& operator[](int i) const { return m_vec[i]; }

  // Arithmetic; integer results are rounded to the nearest value.
  SbVec4i32& operator*=(double d) {
    for (int32_t& c : m_vec) c = static_cast<int32_t>(std::lround(c * d));
    return *this;
  }
  SbVec4i32& operator/=(double d) {
    for (int32_t& c : m_vec) c = static_cast<int32_t>(std::lround(c / d));
    return *this;
  }
  SbVec4i32& operator+=(const SbVec4i32& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<int32_t>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec4i32& operator-=(const SbVec4i32& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<int32_t>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec4i32 operator-() const {
    SbVec4i32 r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec4i32& a, const SbVec4i32& b) {
    for (int i = 0; i < 4; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec4i32& a, const SbVec4i32& b) { return !(a == b); }
  friend SbVec4i32 operator*(const SbVec4i32& v, double d) { return SbVec4i32(v) *= d; }
  friend SbVec4i32 operator*(double d, const SbVec4i32& v) { return SbVec4i32(v) *= d; }
  friend SbVec4i32 operator/(const SbVec4i32& v, double d) { return SbVec4i32(v) /= d; }
  friend SbVec4i32 operator+(const SbVec4i32& a, const SbVec4i32& b) { return SbVec4i32(a) += b; }
  friend SbVec4i32 operator-(const SbVec4i32& a, const SbVec4i32& b) { return SbVec4i32(a) -= b; }

  int32_t dot(const SbVec4i32& v) const {
    int32_t s = 0;
    for (int i = 0; i < 4; ++i) s += static_cast<int32_t>(m_vec[i]) * static_cast<int32_t>(v.m_vec[i]);
    return s;
  }
  void negate() {
    for (int32_t& c : m_vec) c = static_cast<int32_t>(-c);
  }

 private:
  int32_t m_vec[4] = {};
};
static_assert(sizeof(SbVec4i32) == 16, "SbVec4i32 must be exactly its 4 components");
