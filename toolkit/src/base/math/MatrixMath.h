#pragma once
// Dense 3x3 and 4x4 algebra shared by the matrix and rotation classes of both
// precisions. Matrices are row-major T[N][N]; points are row vectors.

#include <cmath>
#include <cstring>

namespace orvex::math {

template <typename T>
using Mat4 = T[4][4];
template <typename T>
using Mat3 = T[3][3];

template <typename T>
void setIdentity4(Mat4<T>& m) {
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j) m[i][j] = i == j ? T(1) : T(0);
}

// r = a * b; r may alias a or b.
template <typename T, int N>
void multiply(const T (&a)[N][N], const T (&b)[N][N], T (&r)[N][N]) {
  T t[N][N];
  for (int i = 0; i < N; ++i)
    for (int j = 0; j < N; ++j) {
      T s = 0;
      for (int k = 0; k < N; ++k) s += a[i][k] * b[k][j];
      t[i][j] = s;
    }
  std::memcpy(r, t, sizeof(t));
}

template <typename T>
T det3(const T (&m)[3][3]) {
  return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
         m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
         m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

// Determinant of the upper-left 3x3 block of a 4x4 matrix.
template <typename T>
T det3of4(const Mat4<T>& m) {
  T u[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) u[i][j] = m[i][j];
  return det3(u);
}

// Determinant by Gaussian elimination with partial pivoting.
template <typename T, int N>
T determinant(const T (&m)[N][N]) {
  double a[N][N];
  for (int i = 0; i < N; ++i)
    for (int j = 0; j < N; ++j) a[i][j] = m[i][j];
  double det = 1;
  for (int c = 0; c < N; ++c) {
    int p = c;
    for (int r = c + 1; r < N; ++r)
      if (std::fabs(a[r][c]) > std::fabs(a[p][c])) p = r;
    if (a[p][c] == 0) return 0;
    if (p != c) {
      for (int j = 0; j < N; ++j) std::swap(a[p][j], a[c][j]);
      det = -det;
    }
    det *= a[c][c];
    for (int r = c + 1; r < N; ++r) {
      const double f = a[r][c] / a[c][c];
      for (int j = c; j < N; ++j) a[r][j] -= f * a[c][j];
    }
  }
  return static_cast<T>(det);
}

// Gauss-Jordan inversion in double precision; false (r untouched) when singular.
template <typename T, int N>
bool invert(const T (&m)[N][N], T (&r)[N][N]) {
  double a[N][2 * N];
  for (int i = 0; i < N; ++i)
    for (int j = 0; j < N; ++j) {
      a[i][j] = m[i][j];
      a[i][N + j] = i == j ? 1 : 0;
    }
  for (int c = 0; c < N; ++c) {
    int p = c;
    for (int row = c + 1; row < N; ++row)
      if (std::fabs(a[row][c]) > std::fabs(a[p][c])) p = row;
    if (std::fabs(a[p][c]) < 1e-300) return false;
    if (p != c)
      for (int j = 0; j < 2 * N; ++j) std::swap(a[p][j], a[c][j]);
    const double inv = 1.0 / a[c][c];
    for (int j = 0; j < 2 * N; ++j) a[c][j] *= inv;
    for (int row = 0; row < N; ++row) {
      if (row == c) continue;
      const double f = a[row][c];
      if (f == 0) continue;
      for (int j = 0; j < 2 * N; ++j) a[row][j] -= f * a[c][j];
    }
  }
  for (int i = 0; i < N; ++i)
    for (int j = 0; j < N; ++j) r[i][j] = static_cast<T>(a[i][N + j]);
  return true;
}

template <typename T, int N>
void transpose(const T (&m)[N][N], T (&r)[N][N]) {
  T t[N][N];
  for (int i = 0; i < N; ++i)
    for (int j = 0; j < N; ++j) t[i][j] = m[j][i];
  std::memcpy(r, t, sizeof(t));
}

// Row-vector rotation matrix (p' = p * m) of the unit quaternion (x, y, z, w).
template <typename T>
void quatToMatrix3(const T q[4], T (&m)[3][3]) {
  const T x = q[0], y = q[1], z = q[2], w = q[3];
  m[0][0] = 1 - 2 * (y * y + z * z);
  m[0][1] = 2 * (x * y + z * w);
  m[0][2] = 2 * (x * z - y * w);
  m[1][0] = 2 * (x * y - z * w);
  m[1][1] = 1 - 2 * (x * x + z * z);
  m[1][2] = 2 * (y * z + x * w);
  m[2][0] = 2 * (x * z + y * w);
  m[2][1] = 2 * (y * z - x * w);
  m[2][2] = 1 - 2 * (x * x + y * y);
}

// Unit quaternion of a row-vector rotation matrix (largest-pivot method).
template <typename T>
void matrix3ToQuat(const T (&m)[3][3], T q[4]) {
  // c[i][j] is the column-vector form of the rotation.
  auto c = [&](int i, int j) { return static_cast<double>(m[j][i]); };
  const double trace = c(0, 0) + c(1, 1) + c(2, 2);
  double x, y, z, w;
  if (trace > 0) {
    const double s = 0.5 / std::sqrt(trace + 1.0);
    w = 0.25 / s;
    x = (c(2, 1) - c(1, 2)) * s;
    y = (c(0, 2) - c(2, 0)) * s;
    z = (c(1, 0) - c(0, 1)) * s;
  } else if (c(0, 0) > c(1, 1) && c(0, 0) > c(2, 2)) {
    const double s = 2.0 * std::sqrt(1.0 + c(0, 0) - c(1, 1) - c(2, 2));
    w = (c(2, 1) - c(1, 2)) / s;
    x = 0.25 * s;
    y = (c(0, 1) + c(1, 0)) / s;
    z = (c(0, 2) + c(2, 0)) / s;
  } else if (c(1, 1) > c(2, 2)) {
    const double s = 2.0 * std::sqrt(1.0 + c(1, 1) - c(0, 0) - c(2, 2));
    w = (c(0, 2) - c(2, 0)) / s;
    x = (c(0, 1) + c(1, 0)) / s;
    y = 0.25 * s;
    z = (c(1, 2) + c(2, 1)) / s;
  } else {
    const double s = 2.0 * std::sqrt(1.0 + c(2, 2) - c(0, 0) - c(1, 1));
    w = (c(1, 0) - c(0, 1)) / s;
    x = (c(0, 2) + c(2, 0)) / s;
    y = (c(1, 2) + c(2, 1)) / s;
    z = 0.25 * s;
  }
  const double len = std::sqrt(x * x + y * y + z * z + w * w);
  q[0] = static_cast<T>(x / len);
  q[1] = static_cast<T>(y / len);
  q[2] = static_cast<T>(z / len);
  q[3] = static_cast<T>(w / len);
}

// Hamilton product r = a (x) b of quaternions (x, y, z, w); r may alias.
template <typename T>
void quatMultiply(const T a[4], const T b[4], T r[4]) {
  const T x = a[3] * b[0] + a[0] * b[3] + a[1] * b[2] - a[2] * b[1];
  const T y = a[3] * b[1] - a[0] * b[2] + a[1] * b[3] + a[2] * b[0];
  const T z = a[3] * b[2] + a[0] * b[1] - a[1] * b[0] + a[2] * b[3];
  const T w = a[3] * b[3] - a[0] * b[0] - a[1] * b[1] - a[2] * b[2];
  r[0] = x;
  r[1] = y;
  r[2] = z;
  r[3] = w;
}

// Eigen-decomposition of a symmetric 3x3 matrix by cyclic Jacobi rotations:
// a = v * diag(eig) * v^T, the columns of v being the eigenvectors.
void symmetricEigen3(const double (&a)[3][3], double (&eig)[3], double (&v)[3][3]);

// Factors the linear part l = p * u into a symmetric p and a rotation u
// (det u = +1; p takes the sign of a reflection).
void polarDecompose3(const double (&l)[3][3], double (&p)[3][3], double (&u)[3][3]);

}  // namespace orvex::math
