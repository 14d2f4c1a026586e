#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

// A 4D vector of 16-bit integers, laid out x, y, z, w (8 bytes, no padding).
class SbVec4s {
 public:
  // All components zero.
  SbVec4s() = default;
  explicit SbVec4s(const short v[4]) { setValue(v); }
  SbVec4s(short x, short y, short z, short w) { setValue(x, y, z, w); }

  SbVec4s& setValue(const short v[4]) {
    for (int i = 0; i < 4; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec4s& setValue(short x, short y, short z, short w) {
    m_vec[0] = x; m_vec[1] = y; m_vec[2] = z; m_vec[3] = w;
    return *this;
  }

  const short* getValue() const { return m_vec; }
  void getValue(short& x, short& y, short& z, short& w) const {
    x = m_vec[0]; y = m_vec[1]; z = m_vec[2]; w = m_vec[3];
  }
  short& operator[](int i) { return m_vec[i]; }
  const short& operator[](int i) const { return m_vec[i]; }

  // Arithmetic; integer results are rounded to the nearest value.
  SbVec4s& operator*=(double d) {
    for (short& c : m_vec) c = static_cast<short>(std::lround(c * d));
    return *this;
  }
  SbVec4s& operator/=(double d) {
    for (short& c : m_vec) c = static_cast<short>(std::lround(c / d));
    return *this;
  }
  SbVec4s& operator+=(const SbVec4s& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<short>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec4s& operator-=(const SbVec4s& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<short>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec4s operator-() const {
    SbVec4s r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec4s& a, const SbVec4s& b) {
    for (int i = 0; i < 4; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec4s& a, const SbVec4s& b) { return !(a == b); }
  friend SbVec4s operator*(const SbVec4s& v, double d) { return SbVec4s(v) *= d; }
  friend SbVec4s operator*(double d, const SbVec4s& v) { return SbVec4s(v) *= d; }
  friend SbVec4s operator/(const SbVec4s& v, double d) { return SbVec4s(v) /= d; }
  friend SbVec4s operator+(const SbVec4s& a, const SbVec4s& b) { return SbVec4s(a) += b; }
  friend SbVec4s operator-(const SbVec4s& a, const SbVec4s& b) { return SbVec4s(a) -= b; }

  int32_t dot(const SbVec4s& v) const {
    int32_t s = 0;
    for (int i = 0; i < 4; ++i) s += static_cast<int32_t>(m_vec[i]) * static_cast<int32_t>(v.m_vec[i]);
    return s;
  }
  void negate() {
    for (short& c : m_vec) c = static_cast<short>(-c);
  }

 private:
  short m_vec[4] = {};
};
static_assert(sizeof(SbVec4s) == 8, "SbVec4s must be exactly its 4 components");
