#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

// A 2D vector of 16-bit integers, laid out x, y (4 bytes, no padding).
class SbVec2s {
 public:
  // All components zero.
  SbVec2s() = default;
  explicit SbVec2s(const short v[2]) { setValue(v); }
  SbVec2s(short x, short y) { setValue(x, y); }

  SbVec2s& setValue(const short v[2]) {
    for (int i = 0; i < 2; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec2s& setValue(short x, short y) {
    m_vec[0] = x; m_vec[1] = y;
    return *this;
  }

  const short* getValue() const { return m_vec; }
  void getValue(short& x, short& y) const {
    x = m_vec[0]; y = m_vec[1];
  }
  short& operator[](int i) { return m_vec[i]; }
  const short& operator[](int i) const { return m_vec[i]; }

  // Arithmetic; integer results are rounded to the nearest value.
  SbVec2s& operator*=(double d) {
    for (short& c : m_vec) c = static_cast<short>(std::lround(c * d));
    return *this;
  }
  SbVec2s& operator/=(double d) {
    for (short& c : m_vec) c = static_cast<short>(std::lround(c / d));
    return *this;
  }
  SbVec2s& operator+=(const SbVec2s& v) {
    for (int i = 0; i < 2; ++i) m_vec[i] = static_cast<short>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec2s& operator-=(const SbVec2s& v) {
    for (int i = 0; i < 2; ++i) m_vec[i] = static_cast<short>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec2s operator-() const {
    SbVec2s r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec2s& a, const SbVec2s& b) {
    for (int i = 0; i < 2; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec2s& a, const SbVec2s& b) { return !(a == b); }
  friend SbVec2s operator*(const SbVec2s& v, double d) { return SbVec2s(v) *= d; }
  friend SbVec2s operator*(double d, const SbVec2s& v) { return SbVec2s(v) *= d; }
  friend SbVec2s operator/(const SbVec2s& v, double d) { return SbVec2s(v) /= d; }
  friend SbVec2s operator+(const SbVec2s& a, const SbVec2s& b) { return SbVec2s(a) += b; }
  friend SbVec2s operator-(const SbVec2s& a, const SbVec2s& b) { return SbVec2s(a) -= b; }

  int32_t dot(const SbVec2s& v) const {
    int32_t s = 0;
    for (int i = 0; i < 2; ++i) s += static_cast<int32_t>(m_vec[i]) * static_cast<int32_t>(v.m_vec[i]);
    return s;
  }
  void negate() {
    for (short& c : m_vec) c = static_cast<short>(-c);
  }

 private:
  short m_vec[2] = {};
};
static_assert(sizeof(SbVec2s) == 4, "SbVec2s must be exactly its 2 components");
