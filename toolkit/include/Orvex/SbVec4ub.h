#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

// A 4D vector of unsigned 8-bit integers, laid out x, y, z, w (4 bytes, no padding).
class SbVec4ub {
 public:
  // All components zero.
  SbVec4ub() = default;
  explicit SbVec4ub(const uint8_t v[4]) { setValue(v); }
  SbVec4ub(uint8_t x, uint8_t y, uint8_t z, uint8_t w) { setValue(x, y, z, w); }

  SbVec4ub& setValue(const uint8_t v[4]) {
    for (int i = 0; i < 4; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec4ub& setValue(uint8_t x, uint8_t y, uint8_t z, uint8_t w) {
    m_vec[0] = x; m_vec[1] = y; m_vec[2] = z; m_vec[3] = w;
    return *this;
  }

  const uint8_t* getValue() const { return m_vec; }
  void getValue(uint8_t& x, uint8_t& y, uint8_t& z, uint8_t& w) const {
    x = m_vec[0]; y = m_vec[1]; z = m_vec[2]; w = m_vec[3];
  }
  uint8_t& operator[](int i) { return m_vec[i]; }
  const uint8_t& operator[](int i) const { return m_vec[i]; }

  // Arithmetic; integer results are rounded to the nearest value.
  SbVec4ub& operator*=(double d) {
    for (uint8_t& c : m_vec) c = static_cast<uint8_t>(std::lround(c * d));
    return *this;
  }
  SbVec4ub& operator/=(double d) {
    for (uint8_t& c : m_vec) c = static_cast<uint8_t>(std::lround(c / d));
    return *this;
  }
  SbVec4ub& operator+=(const SbVec4ub& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<uint8_t>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec4ub& operator-=(const SbVec4ub& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<uint8_t>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  friend bool operator==(const SbVec4ub& a, const SbVec4ub& b) {
    for (int i = 0; i < 4; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec4ub& a, const SbVec4ub& b) { return !(a == b); }
  friend SbVec4ub operator*(const SbVec4ub& v, double d) { return SbVec4ub(v) *= d; }
  friend SbVec4ub operator*(double d, const SbVec4ub& v) { return SbVec4ub(v) *= d; }
  friend SbVec4ub operator/(const SbVec4ub& v, double d) { return SbVec4ub(v) /= d; }
  friend SbVec4ub operator+(const SbVec4ub& a, const SbVec4ub& b) { return SbVec4ub(a) += b; }
  friend SbVec4ub operator-(const SbVec4ub& a, const SbVec4ub& b) { return SbVec4ub(a) -= b; }

  uint32_t dot(const SbVec4ub& v) const {
    uint32_t s = 0;
    for (int i = 0; i < 4; ++i) s += static_cast<uint32_t>(m_vec[i]) * static_cast<uint32_t>(v.m_vec[i]);
    return s;
  }

 private:
  uint8_t m_vec[4] = {};
};
static_assert(sizeof(SbVec4ub) == 4, "SbVec4ub must be exactly its 4 components");
