// The 4x4 matrices of both precisions. The members share the templates
// below; each class only binds them to its vector, rotation and line types.
#include <Orvex/SbLine.h>
#include <Orvex/SbMatrix.h>
#include <Orvex/SbRotation.h>

#include <cmath>
#include <cstring>

#include "MatrixMath.h"

using namespace orvex::math;

namespace {

template <typename M, typename T>
void fromElements(M& m, const T (&e)[16]) {
  T v[4][4];
  for (int i = 0; i < 16; ++i) v[i / 4][i % 4] = e[i];
  m.setValue(v);
}

template <typename M, typename T>
bool isIdentityOf(const M& m) {
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j)
      if (m[i][j] != (i == j ? T(1) : T(0))) return false;
  return true;
}

template <typename M, typename T>
bool equalsWithin(const M& a, const M& b, T tolerance) {
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j)
      if (std::fabs(a[i][j] - b[i][j]) > tolerance) return false;
  return true;
}

// p' = (p, 1) * m with the projective divide.
template <typename M, typename V, typename T>
void pointTimesMatrix(const M& m, const V& src, V& dst) {
  T r[4];
  for (int j = 0; j < 4; ++j) r[j] = src[0] * m[0][j] + src[1] * m[1][j] + src[2] * m[2][j] + m[3][j];
  const T w = r[3] != 0 ? r[3] : T(1);
  dst.setValue(r[0] / w, r[1] / w, r[2] / w);
}

template <typename M, typename V, typename T>
void vec4TimesMatrix(const M& m, const V& src, V& dst) {
  T r[4];
  for (int j = 0; j < 4; ++j)
    r[j] = src[0] * m[0][j] + src[1] * m[1][j] + src[2] * m[2][j] + src[3] * m[3][j];
  dst.setValue(r[0], r[1], r[2], r[3]);
}

template <typename M, typename V, typename T>
void dirTimesMatrix(const M& m, const V& src, V& dst) {
  T r[3];
  for (int j = 0; j < 3; ++j) r[j] = src[0] * m[0][j] + src[1] * m[1][j] + src[2] * m[2][j];
  dst.setValue(r[0], r[1], r[2]);
}

// dst = M * (src, 1) as a column vector, with the projective divide.
template <typename M, typename V, typename T>
void matrixTimesColumn(const M& m, const V& src, V& dst) {
  T r[4];
  for (int i = 0; i < 4; ++i) r[i] = m[i][0] * src[0] + m[i][1] * src[1] + m[i][2] * src[2] + m[i][3];
  const T w = r[3] != 0 ? r[3] : T(1);
  dst.setValue(r[0] / w, r[1] / w, r[2] / w);
}

template <typename M, typename L, typename V>
void lineTimesMatrix(const M& m, const L& src, L& dst) {
  V pos, dir;
  m.multVecMatrix(src.getPosition(), pos);
  m.multDirMatrix(src.getDirection(), dir);
  dst.setPosDir(pos, dir);
}

template <typename M, typename T>
void scaleMatrix(M& m, T sx, T sy, T sz) {
  m.makeIdentity();
  m[0][0] = sx;
  m[1][1] = sy;
  m[2][2] = sz;
}

template <typename M, typename V>
void translateMatrix(M& m, const V& t) {
  m.makeIdentity();
  m[3][0] = t[0];
  m[3][1] = t[1];
  m[3][2] = t[2];
}

// M = T(-c) SO S SO^-1 R T(c) T(t): the order in which a point meets the parts.
template <typename M, typename V, typename R>
void composeTransform(M& out, const V& t, const R& r, const V& s, const R& so, const V& c) {
  M tmp;
  translateMatrix(out, -c);
  tmp.setRotate(so);
  out.multRight(tmp);
  tmp.setScale(s);
  out.multRight(tmp);
  tmp.setRotate(so.inverse());
  out.multRight(tmp);
  tmp.setRotate(r);
  out.multRight(tmp);
  translateMatrix(tmp, c + t);
  out.multRight(tmp);
}

// Inverse of composeTransform: polar decomposition of the linear part into
// stretch and rotation, then eigenvectors of the stretch for the scale axes.
template <typename M, typename V, typename R, typename T>
void decomposeTransform(const M& m, V& t, R& r, V& s, R& so, const V& c) {
  double l[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) l[i][j] = m[i][j];
  double p[3][3], u[3][3];
  polarDecompose3(l, p, u);
  double eig[3], e[3][3];
  symmetricEigen3(p, eig, e);
  if (det3(e) < 0)
    for (auto& row : e) row[2] = -row[2];

  // p = E diag(eig) E^T = SO S SO^-1 with SO's row-vector matrix equal to E.
  T soMat[3][3], rMat[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) {
      soMat[i][j] = static_cast<T>(e[i][j]);
      rMat[i][j] = static_cast<T>(u[i][j]);
    }
  T q[4];
  matrix3ToQuat(soMat, q);
  so.setValue(q[0], q[1], q[2], q[3]);
  matrix3ToQuat(rMat, q);
  r.setValue(q[0], q[1], q[2], q[3]);
  s.setValue(static_cast<T>(eig[0]), static_cast<T>(eig[1]), static_cast<T>(eig[2]));

  // The last row is -c L + c + t.
  V cl;
  m.multDirMatrix(c, cl);
  t.setValue(m[3][0] + cl[0] - c[0], m[3][1] + cl[1] - c[1], m[3][2] + cl[2] - c[2]);
}

}  // namespace

// ---- SbMatrix ----

SbMatrix::SbMatrix(float a11, float a12, float a13, float a14, float a21, float a22, float a23, float a24,
                   float a31, float a32, float a33, float a34, float a41, float a42, float a43, float a44) {
  const float e[16] = {a11, a12, a13, a14, a21, a22, a23, a24, a31, a32, a33, a34, a41, a42, a43, a44};
  fromElements(*this, e);
}
void SbMatrix::setValue(const SbMat& m) { std::memcpy(m_matrix, m, sizeof(m_matrix)); }
void SbMatrix::setValue(const SbMatrixd& m) {
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j) m_matrix[i][j] = static_cast<float>(m[i][j]);
}
void SbMatrix::getValue(SbMat& m) const { std::memcpy(m, m_matrix, sizeof(m_matrix)); }
void SbMatrix::makeIdentity() { setIdentity4(m_matrix); }
SbMatrix SbMatrix::identity() { return SbMatrix(); }
bool SbMatrix::isIdentity() const { return isIdentityOf<SbMatrix, float>(*this); }
void SbMatrix::setScale(float s) { scaleMatrix(*this, s, s, s); }
void SbMatrix::setScale(const SbVec3f& s) { scaleMatrix(*this, s[0], s[1], s[2]); }
void SbMatrix::setRotate(const SbRotation& r) { r.getValue(*this); }
void SbMatrix::setTranslate(const SbVec3f& t) { translateMatrix(*this, t); }
void SbMatrix::setTransform(const SbVec3f& t, const SbRotation& r, const SbVec3f& s) {
  composeTransform(*this, t, r, s, SbRotation(), SbVec3f());
}
void SbMatrix::setTransform(const SbVec3f& t, const SbRotation& r, const SbVec3f& s, const SbRotation& so) {
  composeTransform(*this, t, r, s, so, SbVec3f());
}
void SbMatrix::setTransform(const SbVec3f& t, const SbRotation& r, const SbVec3f& s, const SbRotation& so,
                            const SbVec3f& c) {
  composeTransform(*this, t, r, s, so, c);
}
void SbMatrix::getTransform(SbVec3f& t, SbRotation& r, SbVec3f& s, SbRotation& so) const {
  decomposeTransform<SbMatrix, SbVec3f, SbRotation, float>(*this, t, r, s, so, SbVec3f());
}
void SbMatrix::getTransform(SbVec3f& t, SbRotation& r, SbVec3f& s, SbRotation& so, const SbVec3f& c) const {
  decomposeTransform<SbMatrix, SbVec3f, SbRotation, float>(*this, t, r, s, so, c);
}
float SbMatrix::det3() const { return orvex::math::det3of4(m_matrix); }
float SbMatrix::det4() const { return determinant(m_matrix); }
SbMatrix SbMatrix::inverse() const {
  SbMatrix r(*this);
  invert(m_matrix, r.m_matrix);
  return r;
}
SbMatrix SbMatrix::transpose() const {
  SbMatrix r;
  orvex::math::transpose(m_matrix, r.m_matrix);
  return r;
}
SbMatrix& SbMatrix::multRight(const SbMatrix& m) {
  multiply(m_matrix, m.m_matrix, m_matrix);
  return *this;
}
SbMatrix& SbMatrix::multLeft(const SbMatrix& m) {
  multiply(m.m_matrix, m_matrix, m_matrix);
  return *this;
}
bool operator==(const SbMatrix& a, const SbMatrix& b) {
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j)
      if (a.m_matrix[i][j] != b.m_matrix[i][j]) return false;
  return true;
}
void SbMatrix::multVecMatrix(const SbVec3f& src, SbVec3f& dst) const {
  pointTimesMatrix<SbMatrix, SbVec3f, float>(*this, src, dst);
}
void SbMatrix::multVecMatrix(const SbVec4f& src, SbVec4f& dst) const {
  vec4TimesMatrix<SbMatrix, SbVec4f, float>(*this, src, dst);
}
void SbMatrix::multDirMatrix(const SbVec3f& src, SbVec3f& dst) const {
  dirTimesMatrix<SbMatrix, SbVec3f, float>(*this, src, dst);
}
void SbMatrix::multMatrixVec(const SbVec3f& src, SbVec3f& dst) const {
  matrixTimesColumn<SbMatrix, SbVec3f, float>(*this, src, dst);
}
void SbMatrix::multLineMatrix(const SbLine& src, SbLine& dst) const {
  lineTimesMatrix<SbMatrix, SbLine, SbVec3f>(*this, src, dst);
}
bool SbMatrix::equals(const SbMatrix& m, float tolerance) const { return equalsWithin(*this, m, tolerance); }

// ---- SbMatrixd ----

SbMatrixd::SbMatrixd(double a11, double a12, double a13, double a14, double a21, double a22, double a23,
                     double a24, double a31, double a32, double a33, double a34, double a41, double a42,
                     double a43, double a44) {
  const double e[16] = {a11, a12, a13, a14, a21, a22, a23, a24, a31, a32, a33, a34, a41, a42, a43, a44};
  fromElements(*this, e);
}
void SbMatrixd::setValue(const SbMatd& m) { std::memcpy(m_matrix, m, sizeof(m_matrix)); }
void SbMatrixd::setValue(const SbMatrix& m) {
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j) m_matrix[i][j] = m[i][j];
}
void SbMatrixd::getValue(SbMatd& m) const { std::memcpy(m, m_matrix, sizeof(m_matrix)); }
void SbMatrixd::makeIdentity() { setIdentity4(m_matrix); }
SbMatrixd SbMatrixd::identity() { return SbMatrixd(); }
bool SbMatrixd::isIdentity() const { return isIdentityOf<SbMatrixd, double>(*this); }
void SbMatrixd::setScale(double s) { scaleMatrix(*this, s, s, s); }
void SbMatrixd::setScale(const SbVec3d& s) { scaleMatrix(*this, s[0], s[1], s[2]); }
void SbMatrixd::setRotate(const SbRotationd& r) { r.getValue(*this); }
void SbMatrixd::setTranslate(const SbVec3d& t) { translateMatrix(*this, t); }
void SbMatrixd::setTransform(const SbVec3d& t, const SbRotationd& r, const SbVec3d& s) {
  composeTransform(*this, t, r, s, SbRotationd(), SbVec3d());
}
void SbMatrixd::setTransform(const SbVec3d& t, const SbRotationd& r, const SbVec3d& s, const SbRotationd& so) {
  composeTransform(*this, t, r, s, so, SbVec3d());
}
void SbMatrixd::setTransform(const SbVec3d& t, const SbRotationd& r, const SbVec3d& s, const SbRotationd& so,
                             const SbVec3d& c) {
  composeTransform(*this, t, r, s, so, c);
}
void SbMatrixd::getTransform(SbVec3d& t, SbRotationd& r, SbVec3d& s, SbRotationd& so) const {
  decomposeTransform<SbMatrixd, SbVec3d, SbRotationd, double>(*this, t, r, s, so, SbVec3d());
}
void SbMatrixd::getTransform(SbVec3d& t, SbRotationd& r, SbVec3d& s, SbRotationd& so, const SbVec3d& c) const {
  decomposeTransform<SbMatrixd, SbVec3d, SbRotationd, double>(*this, t, r, s, so, c);
}
double SbMatrixd::det3() const { return orvex::math::det3of4(m_matrix); }
double SbMatrixd::det4() const { return determinant(m_matrix); }
SbMatrixd SbMatrixd::inverse() const {
  SbMatrixd r(*this);
  invert(m_matrix, r.m_matrix);
  return r;
}
SbMatrixd SbMatrixd::transpose() const {
  SbMatrixd r;
  orvex::math::transpose(m_matrix, r.m_matrix);
  return r;
}
SbMatrixd& SbMatrixd::multRight(const SbMatrixd& m) {
  multiply(m_matrix, m.m_matrix, m_matrix);
  return *this;
}
SbMatrixd& SbMatrixd::multLeft(const SbMatrixd& m) {
  multiply(m.m_matrix, m_matrix, m_matrix);
  return *this;
}
bool operator==(const SbMatrixd& a, const SbMatrixd& b) {
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j)
      if (a.m_matrix[i][j] != b.m_matrix[i][j]) return false;
  return true;
}
void SbMatrixd::multVecMatrix(const SbVec3d& src, SbVec3d& dst) const {
  pointTimesMatrix<SbMatrixd, SbVec3d, double>(*this, src, dst);
}
void SbMatrixd::multVecMatrix(const SbVec4d& src, SbVec4d& dst) const {
  vec4TimesMatrix<SbMatrixd, SbVec4d, double>(*this, src, dst);
}
void SbMatrixd::multDirMatrix(const SbVec3d& src, SbVec3d& dst) const {
  dirTimesMatrix<SbMatrixd, SbVec3d, double>(*this, src, dst);
}
void SbMatrixd::multMatrixVec(const SbVec3d& src, SbVec3d& dst) const {
  matrixTimesColumn<SbMatrixd, SbVec3d, double>(*this, src, dst);
}
void SbMatrixd::multLineMatrix(const SbLined& src, SbLined& dst) const {
  lineTimesMatrix<SbMatrixd, SbLined, SbVec3d>(*this, src, dst);
}
bool SbMatrixd::equals(const SbMatrixd& m, double tolerance) const { return equalsWithin(*this, m, tolerance); }

// ---- SbMatrix3 ----

SbMatrix3::SbMatrix3(float a11, float a12, float a13, float a21, float a22, float a23, float a31, float a32,
                     float a33) {
  const float e[9] = {a11, a12, a13, a21, a22, a23, a31, a32, a33};
  for (int i = 0; i < 9; ++i) m_matrix[i / 3][i % 3] = e[i];
}
void SbMatrix3::setValue(const SbMat3& m) { std::memcpy(m_matrix, m, sizeof(m_matrix)); }
void SbMatrix3::getValue(SbMat3& m) const { std::memcpy(m, m_matrix, sizeof(m_matrix)); }
void SbMatrix3::makeIdentity() {
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) m_matrix[i][j] = i == j ? 1.0f : 0.0f;
}
SbMatrix3 SbMatrix3::identity() { return SbMatrix3(); }
bool SbMatrix3::isIdentity() const { return *this == SbMatrix3(); }
void SbMatrix3::setScale(float s) { setScale(SbVec3f(s, s, s)); }
void SbMatrix3::setScale(const SbVec3f& s) {
  makeIdentity();
  for (int i = 0; i < 3; ++i) m_matrix[i][i] = s[i];
}
void SbMatrix3::setRotate(const SbRotation& r) { *this = r.getMatrix3(); }
float SbMatrix3::det() const { return det3(m_matrix); }
SbMatrix3 SbMatrix3::inverse() const {
  SbMatrix3 r(*this);
  invert(m_matrix, r.m_matrix);
  return r;
}
SbMatrix3 SbMatrix3::transpose() const {
  SbMatrix3 r;
  orvex::math::transpose(m_matrix, r.m_matrix);
  return r;
}
SbMatrix3& SbMatrix3::multRight(const SbMatrix3& m) {
  multiply(m_matrix, m.m_matrix, m_matrix);
  return *this;
}
SbMatrix3& SbMatrix3::multLeft(const SbMatrix3& m) {
  multiply(m.m_matrix, m_matrix, m_matrix);
  return *this;
}
bool operator==(const SbMatrix3& a, const SbMatrix3& b) {
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j)
      if (a.m_matrix[i][j] != b.m_matrix[i][j]) return false;
  return true;
}
void SbMatrix3::multVecMatrix(const SbVec3f& src, SbVec3f& dst) const {
  float r[3];
  for (int j = 0; j < 3; ++j) r[j] = src[0] * m_matrix[0][j] + src[1] * m_matrix[1][j] + src[2] * m_matrix[2][j];
  dst.setValue(r[0], r[1], r[2]);
}
bool SbMatrix3::equals(const SbMatrix3& m, float tolerance) const {
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j)
      if (std::fabs(m_matrix[i][j] - m.m_matrix[i][j]) > tolerance) return false;
  return true;
}
