#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

// A 4D vector of unsigned 16-bit integers, laid out x, y, z, w (8 bytes, no padding).
class SbVec4us {
 public:
  // All components zero.
  SbVec4us() = default;
  explicit SbVec4us(const unsigned short v[4]) { setValue(v); }
  SbVec4us(unsigned short x, unsigned short y, unsigned short z, unsigned short w) { setValue(x, y, z, w); }

  SbVec4us& setValue(const unsigned short v[4]) {
    for (int i = 0; i < 4; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec4us& setValue(unsigned short x, unsigned short y, unsigned short z, unsigned short w) {
    m_vec[0] = x; m_vec[1] = y; m_vec[2] = z; m_vec[3] = w;
    return *this;
  }

  const unsigned short* getValue() const { return m_vec; }
  void getValue(unsigned short& x, unsigned short& y, unsigned short& z, unsigned short& w) const {
    x = m_vec[0]; y = m_vec[1]; z = m_vec[2]; w = m_vec[3];
  }
  unsigned short& operator[](int i) { return m_vec[i]; }
  const unsigned short& operator[](int i) const { return m_vec[i]; }

  // Arithmetic; integer results are rounded to the nearest value.
  SbVec4us& operator*=(double d) {
    for (unsigned short& c : m_vec) c = static_cast<unsigned short>(std::lround(c * d));
    return *this;
  }
  SbVec4us& operator/=(double d) {
    for (unsigned short& c : m_vec) c = static_cast<unsigned short>(std::lround(c / d));
    return *this;
  }
  SbVec4us& operator+=(const SbVec4us& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<unsigned short>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec4us& operator-=(const SbVec4us& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<unsigned short>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  friend bool operator==(const SbVec4us& a, const SbVec4us& b) {
    for (int i = 0; i < 4; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec4us& a, const SbVec4us& b) { return !(a == b); }
  friend SbVec4us operator*(const SbVec4us& v, double d) { return SbVec4us(v) *= d; }
  friend SbVec4us operator*(double d, const SbVec4us& v) { return SbVec4us(v) *= d; }
  friend SbVec4us operator/(const SbVec4us& v, double d) { return SbVec4us(v) /= d; }
  friend SbVec4us operator+(const SbVec4us& a, const SbVec4us& b) { return SbVec4us(a) += b; }
  friend SbVec4us operator-(const SbVec4us& a, const SbVec4us& b) { return SbVec4us(a) -= b; }

  uint32_t dot(const SbVec4us& v) const {
    uint32_t s = 0;
    for (int i = 0; i < 4; ++i) s += static_cast<uint32_t>(m_vec[i]) * static_cast<uint32_t>(v.m_vec[i]);
    return s;
  }

 private:
  unsigned short m_vec[4] = {};
};
static_assert(sizeof(SbVec4us) == 8, "SbVec4us must be exactly its 4 components");
