#include "MatrixMath.h"

#include <utility>

namespace orvex::math {

void symmetricEigen3(const double (&in)[3][3], double (&eig)[3], double (&v)[3][3]) {
  double a[3][3];
  std::memcpy(a, in, sizeof(a));
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) v[i][j] = i == j ? 1 : 0;
  for (int sweep = 0; sweep < 50; ++sweep) {
    const double off = a[0][1] * a[0][1] + a[0][2] * a[0][2] + a[1][2] * a[1][2];
    if (off < 1e-30) break;
    for (int p = 0; p < 2; ++p)
      for (int q = p + 1; q < 3; ++q) {
        if (std::fabs(a[p][q]) < 1e-300) continue;
        // Rotation in the (p, q) plane that zeroes a[p][q].
        const double theta = (a[q][q] - a[p][p]) / (2 * a[p][q]);
        const double t = (theta >= 0 ? 1.0 : -1.0) / (std::fabs(theta) + std::sqrt(theta * theta + 1));
        const double c = 1 / std::sqrt(t * t + 1), s = t * c;
        for (int k = 0; k < 3; ++k) {  // a = J^T a J
          const double akp = a[k][p], akq = a[k][q];
          a[k][p] = c * akp - s * akq;
          a[k][q] = s * akp + c * akq;
        }
        for (int k = 0; k < 3; ++k) {
          const double apk = a[p][k], aqk = a[q][k];
          a[p][k] = c * apk - s * aqk;
          a[q][k] = s * apk + c * aqk;
        }
        for (int k = 0; k < 3; ++k) {  // v = v J
          const double vkp = v[k][p], vkq = v[k][q];
          v[k][p] = c * vkp - s * vkq;
          v[k][q] = s * vkp + c * vkq;
        }
      }
  }
  for (int i = 0; i < 3; ++i) eig[i] = a[i][i];
}

void polarDecompose3(const double (&l)[3][3], double (&p)[3][3], double (&u)[3][3]) {
  // Newton iteration u <- (u + u^-T) / 2 converges to the orthogonal factor.
  double q[3][3];
  std::memcpy(q, l, sizeof(q));
  for (int it = 0; it < 100; ++it) {
    double inv[3][3];
    if (!invert(q, inv)) break;
    double next[3][3], diff = 0;
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 3; ++j) {
        next[i][j] = 0.5 * (q[i][j] + inv[j][i]);
        diff += std::fabs(next[i][j] - q[i][j]);
      }
    std::memcpy(q, next, sizeof(q));
    if (diff < 1e-15) break;
  }
  if (det3(q) < 0)
    for (auto& row : q)
      for (double& e : row) e = -e;
  std::memcpy(u, q, sizeof(q));
  // l = p u  =>  p = l u^T.
  double ut[3][3];
  transpose(u, ut);
  multiply(l, ut, p);
}

}  // namespace orvex::math
