#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

// A 3D vector of 16-bit integers, laid out x, y, z (6 bytes, no padding).
class SbVec3s {
 public:
  // All components zero.
  SbVec3s() = default;
  explicit SbVec3s(const short v[3]) { setValue(v); }
  SbVec3s(short x, short y, short z) { setValue(x, y, z); }

  SbVec3s& setValue(const short v[3]) {
    for (int i = 0; i < 3; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec3s& setValue(short x, short y, short z) {
    m_vec[0] = x; m_vec[1] = y; m_vec[2] = z;
    return *this;
  }

  const short* getValue() const { return m_vec; }
  void getValue(short& x, short& y, short& z) const {
    x = m_vec[0]; y = m_vec[1]; z = m_vec[2];
  }
  short& operator[](int i) { return m_vec[i]; }
  const short& operator[](int i) const { return m_vec[i]; }

  // Arithmetic; integer results are rounded to the nearest value.
  SbVec3s& operator*=(double d) {
    for (short& c : m_vec) c = static_cast<short>(std::lround(c * d));
    return *this;
  }
  SbVec3s& operator/=(double d) {
    for (short& c : m_vec) c = static_cast<short>(std::lround(c / d));
    return *this;
  }
  SbVec3s& operator+=(const SbVec3s& v) {
    for (int i = 0; i < 3; ++i) m_vec[i] = static_cast<short>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec3s& operator-=(const SbVec3s& v) {
    for (int i = 0; i < 3; ++i) m_vec[i] = static_cast<short>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec3s operator-() const {
    SbVec3s r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec3s& a, const SbVec3s& b) {
    for (int i = 0; i < 3; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec3s& a, const SbVec3s& b) { return !(a == b); }
  friend SbVec3s operator*(const SbVec3s& v, double d) { return SbVec3s(v) *= d; }
  friend SbVec3s operator*(double d, const SbVec3s& v) { return SbVec3s(v) *= d; }
  friend SbVec3s operator/(const SbVec3s& v, double d) { return SbVec3s(v) /= d; }
  friend SbVec3s operator+(const SbVec3s& a, const SbVec3s& b) { return SbVec3s(a) += b; }
  friend SbVec3s operator-(const SbVec3s& a, const SbVec3s& b) { return SbVec3s(a) -= b; }

  int32_t dot(const SbVec3s& v) const {
    int32_t s = 0;
    for (int i = 0; i < 3; ++i) s += static_cast<int32_t>(m_vec[i]) * static_cast<int32_t>(v.m_vec[i]);
    return s;
  }
  void negate() {
    for (short& c : m_vec) c = static_cast<short>(-c);
  }

 private:
  short m_vec[3] = {};
};
static_assert(sizeof(SbVec3s) == 6, "SbVec3s must be exactly its 3 components");
