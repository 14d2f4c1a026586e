// Rotations of both precisions as unit quaternions (x, y, z, w). `a * b`
// rotates by a first, so its quaternion is the Hamilton product b (x) a.
#include <Orvex/SbRotation.h>

#include <cmath>

#include "MatrixMath.h"

using namespace orvex::math;

namespace {

template <typename T>
void normalizeQuat(T q[4]) {
  const T len = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
  if (len > T(0)) {
    for (int i = 0; i < 4; ++i) q[i] /= len;
  } else {
    q[0] = q[1] = q[2] = 0;
    q[3] = 1;
  }
}

template <typename T, typename V>
void axisAngleToQuat(const V& axis, T radians, T q[4]) {
  V a(axis);
  a.normalize();
  const T s = std::sin(radians / 2);
  q[0] = a[0] * s;
  q[1] = a[1] * s;
  q[2] = a[2] * s;
  q[3] = std::cos(radians / 2);
  normalizeQuat(q);
}

template <typename T, typename V>
void quatToAxisAngle(const T q[4], V& axis, T& radians) {
  const T w = std::fmax(T(-1), std::fmin(T(1), q[3]));
  radians = 2 * std::acos(w);
  const T s = std::sqrt(std::fmax(T(0), 1 - w * w));
  if (s < T(1e-6)) {
    axis.setValue(0, 0, 1);
    radians = 0;
  } else {
    axis.setValue(q[0] / s, q[1] / s, q[2] / s);
  }
}

// The shortest arc between two directions: q = (from x to, 1 + from . to)
// normalised; opposite directions turn by pi about any perpendicular axis.
template <typename T, typename V>
void arcToQuat(const V& from, const V& to, T q[4]) {
  V f(from), t(to);
  f.normalize();
  t.normalize();
  const T d = f.dot(t);
  if (d < T(-1) + T(1e-6)) {
    V axis = f.cross(V(1, 0, 0));
    if (axis.lengthSquared() < T(1e-6)) axis = f.cross(V(0, 1, 0));
    axisAngleToQuat<T, V>(axis, T(M_PI), q);
    return;
  }
  const V c = f.cross(t);
  q[0] = c[0];
  q[1] = c[1];
  q[2] = c[2];
  q[3] = 1 + d;
  normalizeQuat(q);
}

template <typename T>
void slerpQuat(const T a[4], const T b0[4], T t, T r[4]) {
  T b[4] = {b0[0], b0[1], b0[2], b0[3]};
  T cosom = a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3];
  if (cosom < 0) {  // take the shorter arc
    cosom = -cosom;
    for (T& e : b) e = -e;
  }
  T s0 = 1 - t, s1 = t;
  if (cosom < T(0.9999)) {
    const T omega = std::acos(cosom);
    const T sinom = std::sin(omega);
    s0 = std::sin((1 - t) * omega) / sinom;
    s1 = std::sin(t * omega) / sinom;
  }
  for (int i = 0; i < 4; ++i) r[i] = s0 * a[i] + s1 * b[i];
  normalizeQuat(r);
}

// v' = v + 2w (u x v) + 2 u x (u x v), u the vector part.
template <typename T, typename V>
void rotateVector(const T q[4], const V& src, V& dst) {
  const V u(q[0], q[1], q[2]);
  const V uv = u.cross(src);
  const V uuv = u.cross(uv);
  dst = src + uv * (2 * q[3]) + uuv * T(2);
}

template <typename T>
bool quatEquals(const T a[4], const T b[4], T tolerance) {
  bool same = true, opposite = true;
  for (int i = 0; i < 4; ++i) {
    same = same && std::fabs(a[i] - b[i]) <= tolerance;
    opposite = opposite && std::fabs(a[i] + b[i]) <= tolerance;
  }
  return same || opposite;
}

template <typename T, typename M>
void quatToMatrix4(const T q[4], M& m) {
  T r[3][3];
  quatToMatrix3(q, r);
  m.makeIdentity();
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) m[i][j] = r[i][j];
}

template <typename T, typename M>
void matrix4ToQuat(const M& m, T q[4]) {
  T r[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) r[i][j] = static_cast<T>(m[i][j]);
  matrix3ToQuat(r, q);
}

}  // namespace

// ---- SbRotation ----

SbRotation& SbRotation::setValue(const float q[4]) { return setValue(q[0], q[1], q[2], q[3]); }
SbRotation& SbRotation::setValue(float q0, float q1, float q2, float q3) {
  m_quat[0] = q0;
  m_quat[1] = q1;
  m_quat[2] = q2;
  m_quat[3] = q3;
  normalizeQuat(m_quat);
  return *this;
}
SbRotation& SbRotation::setValue(const SbMatrix& m) {
  matrix4ToQuat(m, m_quat);
  return *this;
}
SbRotation& SbRotation::setValue(const SbVec3f& axis, float radians) {
  axisAngleToQuat(axis, radians, m_quat);
  return *this;
}
SbRotation& SbRotation::setValue(const SbVec3f& rotateFrom, const SbVec3f& rotateTo) {
  arcToQuat(rotateFrom, rotateTo, m_quat);
  return *this;
}
SbRotation& SbRotation::setValue(const SbRotationd& r) {
  const double* q = r.getValue();
  return setValue(static_cast<float>(q[0]), static_cast<float>(q[1]), static_cast<float>(q[2]),
                  static_cast<float>(q[3]));
}
SbRotation& SbRotation::setValue(const SbMatrixd& m) {
  matrix4ToQuat(m, m_quat);
  return *this;
}
SbRotation& SbRotation::setValue(const SbMatrix3& m) {
  matrix3ToQuat(m.getValue(), m_quat);
  return *this;
}
void SbRotation::getValue(float& q0, float& q1, float& q2, float& q3) const {
  q0 = m_quat[0];
  q1 = m_quat[1];
  q2 = m_quat[2];
  q3 = m_quat[3];
}
void SbRotation::getValue(SbVec3f& axis, float& radians) const { quatToAxisAngle(m_quat, axis, radians); }
void SbRotation::getValue(SbMatrix& m) const { quatToMatrix4(m_quat, m); }
SbMatrix SbRotation::getMatrix() const {
  SbMatrix m;
  getValue(m);
  return m;
}
SbMatrixd SbRotation::getMatrixd() const {
  SbMatrixd m;
  const double q[4] = {m_quat[0], m_quat[1], m_quat[2], m_quat[3]};
  quatToMatrix4(q, m);
  return m;
}
SbMatrix3 SbRotation::getMatrix3() const {
  SbMat3 r;
  quatToMatrix3(m_quat, r);
  return SbMatrix3(r);
}
SbRotation& SbRotation::operator*=(const SbRotation& q) {
  quatMultiply(q.m_quat, m_quat, m_quat);
  normalizeQuat(m_quat);
  return *this;
}
bool operator==(const SbRotation& a, const SbRotation& b) {
  for (int i = 0; i < 4; ++i)
    if (a.m_quat[i] != b.m_quat[i]) return false;
  return true;
}
void SbRotation::multVec(const SbVec3f& src, SbVec3f& dst) const { rotateVector(m_quat, src, dst); }
SbRotation SbRotation::slerp(const SbRotation& r0, const SbRotation& r1, float t) {
  SbRotation r;
  slerpQuat(r0.m_quat, r1.m_quat, t, r.m_quat);
  return r;
}
void SbRotation::scaleAngle(float scaleFactor) {
  SbVec3f axis;
  float radians;
  getValue(axis, radians);
  setValue(axis, radians * scaleFactor);
}
SbRotation SbRotation::inverse() const { return SbRotation(*this).invert(); }
SbRotation& SbRotation::invert() {
  m_quat[0] = -m_quat[0];
  m_quat[1] = -m_quat[1];
  m_quat[2] = -m_quat[2];
  return *this;
}
void SbRotation::decompose(const SbVec3f& axis, SbRotation& swing, SbRotation& twist) const {
  SbVec3f a(axis);
  a.normalize();
  const SbVec3f v(m_quat[0], m_quat[1], m_quat[2]);
  const SbVec3f p = a * v.dot(a);
  twist.setValue(p[0], p[1], p[2], m_quat[3]);  // normalised; identity when degenerate
  // this = swing (x) twist in Hamilton form.
  swing = twist.inverse() * *this;
}
bool SbRotation::equals(const SbRotation& r, float tolerance) const {
  return quatEquals(m_quat, r.m_quat, tolerance);
}

// ---- SbRotationd ----

SbRotationd& SbRotationd::setValue(const double q[4]) { return setValue(q[0], q[1], q[2], q[3]); }
SbRotationd& SbRotationd::setValue(double q0, double q1, double q2, double q3) {
  m_quat[0] = q0;
  m_quat[1] = q1;
  m_quat[2] = q2;
  m_quat[3] = q3;
  normalizeQuat(m_quat);
  return *this;
}
SbRotationd& SbRotationd::setValue(const SbMatrixd& m) {
  matrix4ToQuat(m, m_quat);
  return *this;
}
SbRotationd& SbRotationd::setValue(const SbVec3d& axis, double radians) {
  axisAngleToQuat(axis, radians, m_quat);
  return *this;
}
SbRotationd& SbRotationd::setValue(const SbVec3d& rotateFrom, const SbVec3d& rotateTo) {
  arcToQuat(rotateFrom, rotateTo, m_quat);
  return *this;
}
SbRotationd& SbRotationd::setValue(const SbRotation& r) {
  const float* q = r.getValue();
  return setValue(q[0], q[1], q[2], q[3]);
}
void SbRotationd::getValue(double& q0, double& q1, double& q2, double& q3) const {
  q0 = m_quat[0];
  q1 = m_quat[1];
  q2 = m_quat[2];
  q3 = m_quat[3];
}
void SbRotationd::getValue(SbVec3d& axis, double& radians) const { quatToAxisAngle(m_quat, axis, radians); }
void SbRotationd::getValue(SbMatrixd& m) const { quatToMatrix4(m_quat, m); }
SbMatrixd SbRotationd::getMatrixd() const {
  SbMatrixd m;
  getValue(m);
  return m;
}
SbRotationd& SbRotationd::operator*=(const SbRotationd& q) {
  quatMultiply(q.m_quat, m_quat, m_quat);
  normalizeQuat(m_quat);
  return *this;
}
bool operator==(const SbRotationd& a, const SbRotationd& b) {
  for (int i = 0; i < 4; ++i)
    if (a.m_quat[i] != b.m_quat[i]) return false;
  return true;
}
void SbRotationd::multVec(const SbVec3d& src, SbVec3d& dst) const { rotateVector(m_quat, src, dst); }
SbRotationd SbRotationd::slerp(const SbRotationd& r0, const SbRotationd& r1, double t) {
  SbRotationd r;
  slerpQuat(r0.m_quat, r1.m_quat, t, r.m_quat);
  return r;
}
void SbRotationd::scaleAngle(double scaleFactor) {
  SbVec3d axis;
  double radians;
  getValue(axis, radians);
  setValue(axis, radians * scaleFactor);
}
SbRotationd SbRotationd::inverse() const { return SbRotationd(*this).invert(); }
SbRotationd& SbRotationd::invert() {
  m_quat[0] = -m_quat[0];
  m_quat[1] = -m_quat[1];
  m_quat[2] = -m_quat[2];
  return *this;
}
bool SbRotationd::equals(const SbRotationd& r, double tolerance) const {
  return quatEquals(m_quat, r.m_quat, tolerance);
}
