#pragma once
#include <Orvex/SbBase.h>
#include <cmath>

// A 4D vector of 8-bit integers, laid out x, y, z, w (4 bytes, no padding).
class SbVec4b {
 public:
  // All components zero.
  SbVec4b() = default;
  explicit SbVec4b(const int8_t v[4]) { setValue(v); }
  SbVec4b(int8_t x, int8_t y, int8_t z, int8_t w) { setValue(x, y, z, w); }

  SbVec4b& setValue(const int8_t v[4]) {
    for (int i = 0; i < 4; ++i) m_vec[i] = v[i];
    return *this;
  }
  SbVec4b& setValue(int8_t x, int8_t y, int8_t z, int8_t w) {
    m_vec[0] = x; m_vec[1] = y; m_vec[2] = z; m_vec[3] = w;
    return *this;
  }

  const int8_t* getValue() const { return m_vec; }
  void getValue(int8_t& x, int8_t& y, int8_t& z, int8_t& w) const {
    x = m_vec[0]; y = m_vec[1]; z = m_vec[2]; w = m_vec[3];
  }
  int8_t& operator[](int i) { return m_vec[i]; }
  const int8_t& operator[](int i) const { return m_vec[i]; }

  // Arithmetic; integer results are rounded to the nearest value.
  SbVec4b& operator*=(double d) {
    for (int8_t& c : m_vec) c = static_cast<int8_t>(std::lround(c * d));
    return *this;
  }
  SbVec4b& operator/=(double d) {
    for (int8_t& c : m_vec) c = static_cast<int8_t>(std::lround(c / d));
    return *this;
  }
  SbVec4b& operator+=(const SbVec4b& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<int8_t>(m_vec[i] + v.m_vec[i]);
    return *this;
  }
  SbVec4b& operator-=(const SbVec4b& v) {
    for (int i = 0; i < 4; ++i) m_vec[i] = static_cast<int8_t>(m_vec[i] - v.m_vec[i]);
    return *this;
  }
  SbVec4b operator-() const {
    SbVec4b r(*this);
    r.negate();
    return r;
  }
  friend bool operator==(const SbVec4b& a, const SbVec4b& b) {
    for (int i = 0; i < 4; ++i)
      if (a.m_vec[i] != b.m_vec[i]) return false;
    return true;
  }
  friend bool operator!=(const SbVec4b& a, const SbVec4b& b) { return !(a == b); }
  friend SbVec4b operator*(const SbVec4b& v, double d) { return SbVec4b(v) *= d; }
  friend SbVec4b operator*(double d, const SbVec4b& v) { return SbVec4b(v) *= d; }
  friend SbVec4b operator/(const SbVec4b& v, double d) { return SbVec4b(v) /= d; }
  friend SbVec4b operator+(const SbVec4b& a, const SbVec4b& b) { return SbVec4b(a) += b; }
  friend SbVec4b operator-(const SbVec4b& a, const SbVec4b& b) { return SbVec4b(a) -= b; }

  int32_t dot(const SbVec4b& v) const {
    int32_t s = 0;
    for (int i = 0; i < 4; ++i) s += static_cast<int32_t>(m_vec[i]) * static_cast<int32_t>(v.m_vec[i]);
    return s;
  }
  void negate() {
    for (int8_t& c : m_vec) c = static_cast<int8_t>(-c);
  }

 private:
  int8_t m_vec[4] = {};
};
static_assert(sizeof(SbVec4b) == 4, "SbVec4b must be exactly its 4 components");
