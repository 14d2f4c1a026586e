#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

// A 2D vector of 32-bit integers, laid out x, y (8 bytes, no padding).
class SbVec2i32 {
 public:
  // All components zero.
  SbVec2i32() = default;
  explicit SbVec2i32(const int32_t v[2]) { setValue(v); }
  SbVec2i32(int32_t x, int32_t y) { setValue(x, y); }

  SbVec2i32& setValue(const int32_t v[2]) {
    for (int i = 0; i < 2; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec2i32& setValue(int32_t x, int32_t y) {
    m_vec[0] = x; m_vec[1] = y;
    return *this;
  }

  const int32_t* getValue() const { return m_vec; }
  void getValue(int32_t& x, int32_t& y) const {
    x = m_vec[0]; y = m_vec[1];
  }
  int32_t& operator[](int i) { return m_vec[i]; }
  const int32_t& operator[](int i) const { return m_vec[i]; }

  // Arithmetic; integer results are rounded to the nearest value.
  SbVec2i32& operator*=(double d) {
    for (int32_t& c : m_vec) c = static_cast<int32_t>(std::lround(c * d));
    return *this;
  }
  SbVec2i32& operator/=(double d) {
    for (int32_t& c : m_vec) c = static_cast<int32_t>(std::lround(c / d));
    return *this;
  }
  SbVec2i32& operator+=(const SbVec2i32& v) {
    for (int i = 0; i < 2; ++i) m_vec[i] = static_cast<int32_t>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec2i32& operator-=(const SbVec2i32& v) {
    for (int i = 0; i < 2; ++i) m_vec[i] = static_cast<int32_t>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec2i32 operator-() const {
    SbVec2i32 r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec2i32& a, const SbVec2i32& b) {
    for (int i = 0; i < 2; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec2i32& a, const SbVec2i32& b) { return !(a == b); }
  friend SbVec2i32 operator*(const SbVec2i32& v, double d) { return SbVec2i32(v) *= d; }
  friend SbVec2i32 operator*(double d, const SbVec2i32& v) { return SbVec2i32(v) *= d; }
  friend SbVec2i32 operator/(const SbVec2i32& v, double d) { return SbVec2i32(v) /= d; }
  friend SbVec2i32 operator+(const SbVec2i32& a, const SbVec2i32& b) { return SbVec2i32(a) += b; }
  friend SbVec2i32 operator-(const SbVec2i32& a, const SbVec2i32& b) { return SbVec2i32(a) -= b; }

  int32_t dot(const SbVec2i32& v) const {
    int32_t s = 0;
    for (int i = 0; i < 2; ++i) s += static_cast<int32_t>(m_vec[i]) * static_cast<int32_t>(v.m_vec[i]);
    return s;
  }
  void negate() {
    for (int32_t& c : m_vec) c = static_cast<int32_t>(-c);
  }

 private:
  int32_t m_vec[2] = {};
};
static_assert(sizeof(SbVec2i32) == 8, "SbVec2i32 must be exactly its 2 components");
