#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

// A 4D vector of unsigned 32-bit integers, laid out x, y, z, w (16 bytes, no padding).
class SbVec4ui32 {
 public:
  // All components zero.
  SbVec4ui32() = default;
  explicit SbVec4ui32(const uint32_t v[4]) { setValue(v); }
  SbVec4ui32(uint32_t x, uint32_t y, uint32_t z, uint32_t w) { setValue(x, y, z, w); }

  SbVec4ui32& setValue(const uint32_t v[4]) {
    for (int i = 0; i < 4; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec4ui32& setValue(uint32_t x, uint32_t y, uint32_t z, uint32_t w) {
    m_vec[0] = x; m_vec[1] = y; m_vec[2] = z; m_vec[3] = w;
    return *this;
  }

  const uint32_t* getValue() const { return m_vec; }
  void getValue(uint32_t& x, uint32_t& y, uint32_t& z, uint32_t& w) const {
    x = m_vec[0]; y = m_vec[1]; z = m_vec[2]; w = m_vec[3];
  }
  uint32_t& operator[](int i) { return m_vec[i]; }
  const uint32_t& operator[](int i) const { return m_vec[i]; }

  // Arithmetic; integer results are rounded to the nearest value.
  SbVec4ui32& operator*=(double d) {
    for (uint32_t& c : m_vec) c = static_cast<uint32_t>(std::lround(c * d));
    return *this;
  }
  SbVec4ui32& operator/=(double d) {
    for (uint32_t& c : m_vec) c = static_cast<uint32_t>(std::lround(c / d));
    return *this;
  }
  SbVec4ui32& operator+=(const SbVec4ui32& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<uint32_t>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec4ui32& operator-=(const SbVec4ui32& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<uint32_t>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  friend bool operator==(const SbVec4ui32& a, const SbVec4ui32& b) {
    for (int i = 0; i < 4; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec4ui32& a, const SbVec4ui32& b) { return !(a == b); }
  friend SbVec4ui32 operator*(const SbVec4ui32& v, double d) { return SbVec4ui32(v) *= d; }
  friend SbVec4ui32 operator*(double d, const SbVec4ui32& v) { return SbVec4ui32(v) *= d; }
  friend SbVec4ui32 operator/(const SbVec4ui32& v, double d) { return SbVec4ui32(v) /= d; }
  friend SbVec4ui32 operator+(const SbVec4ui32& a, const SbVec4ui32& b) { return SbVec4ui32(a) += b; }
  friend SbVec4ui32 operator-(const SbVec4ui32& a, const SbVec4ui32& b) { return SbVec4ui32(a) -= b; }

  uint32_t dot(const SbVec4ui32& v) const {
    uint32_t s = 0;
    for (int i = 0; i < 4; ++i) s += static_cast<uint32_t>(m_vec[i]) * static_cast<uint32_t>(v.m_vec[i]);
    return s;
  }

 private:
  uint32_t m_vec[4] = {};
};
static_assert(sizeof(SbVec4ui32) == 16, "SbVec4ui32 must be exactly its 4 components");
