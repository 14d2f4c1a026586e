#pragma once
#include <Orvex/SbMatrix.h>

class SbRotationd;

// A rotation stored as a unit quaternion (x, y, z, w): 16 bytes. Composition
// follows the row-vector convention of SbMatrix: `a * b` rotates by a first.
class SbRotation {
 public:
  // The identity rotation.
  SbRotation() : m_quat{0, 0, 0, 1} {}
  explicit SbRotation(const float q[4]) { setValue(q); }
  SbRotation(float q0, float q1, float q2, float q3) { setValue(q0, q1, q2, q3); }
  explicit SbRotation(const SbMatrix& m) { setValue(m); }
  SbRotation(const SbVec3f& axis, float radians) { setValue(axis, radians); }
  // The smallest rotation that turns the direction `rotateFrom` into `rotateTo`.
  SbRotation(const SbVec3f& rotateFrom, const SbVec3f& rotateTo) { setValue(rotateFrom, rotateTo); }
  explicit SbRotation(const SbRotationd& r) { setValue(r); }

  // Quaternion components x, y, z, w; the value is normalised.
  SbRotation& setValue(const float q[4]);
  SbRotation& setValue(float q0, float q1, float q2, float q3);
  // From the rotation part of a matrix (which must hold no scale or shear).
  SbRotation& setValue(const SbMatrix& m);
  SbRotation& setValue(const SbVec3f& axis, float radians);
  SbRotation& setValue(const SbVec3f& rotateFrom, const SbVec3f& rotateTo);
  SbRotation& setValue(const SbRotationd& r);
  SbRotation& setValue(const SbMatrixd& m);
  SbRotation& setValue(const SbMatrix3& m);

  const float* getValue() const { return m_quat; }
  void getValue(float& q0, float& q1, float& q2, float& q3) const;
  // Unit axis and angle in [0, 2 pi); the identity gives the axis (0, 0, 1).
  void getValue(SbVec3f& axis, float& radians) const;
  void getValue(SbMatrix& m) const;

  SbMatrix getMatrix() const;
  SbMatrixd getMatrixd() const;
  SbMatrix3 getMatrix3() const;

  SbRotation& operator*=(const SbRotation& q);
  friend bool operator==(const SbRotation& a, const SbRotation& b);
  friend bool operator!=(const SbRotation& a, const SbRotation& b) { return !(a == b); }
  friend SbRotation operator*(const SbRotation& a, const SbRotation& b) { return SbRotation(a) *= b; }

  // dst = src rotated; src and dst may be the same object.
  void multVec(const SbVec3f& src, SbVec3f& dst) const;
  // Spherical linear interpolation along the shorter arc (t = 0 gives r0).
  static SbRotation slerp(const SbRotation& r0, const SbRotation& r1, float t);
  // Keeps the axis and multiplies the angle by `scaleFactor`.
  void scaleAngle(float scaleFactor);
  SbRotation inverse() const;
  SbRotation& invert();
  static SbRotation identity() { return SbRotation(); }
  // Splits the rotation into a twist about `axis` and the swing that
  // follows it: *this == twist * swing.
  void decompose(const SbVec3f& axis, SbRotation& swing, SbRotation& twist) const;
  // True when the quaternions differ by at most `tolerance` per component
  // (q and -q are the same rotation).
  bool equals(const SbRotation& r, float tolerance) const;

 private:
  float m_quat[4];
};
static_assert(sizeof(SbRotation) == 16, "SbRotation must be exactly 4 floats");

// The double-precision rotation (32 bytes), same conventions as SbRotation.
class SbRotationd {
 public:
  SbRotationd() : m_quat{0, 0, 0, 1} {}
  explicit SbRotationd(const double q[4]) { setValue(q); }
  SbRotationd(double q0, double q1, double q2, double q3) { setValue(q0, q1, q2, q3); }
  explicit SbRotationd(const SbMatrixd& m) { setValue(m); }
  SbRotationd(const SbVec3d& axis, double radians) { setValue(axis, radians); }
  SbRotationd(const SbVec3d& rotateFrom, const SbVec3d& rotateTo) { setValue(rotateFrom, rotateTo); }
  explicit SbRotationd(const SbRotation& r) { setValue(r); }

  SbRotationd& setValue(const double q[4]);
  SbRotationd& setValue(double q0, double q1, double q2, double q3);
  SbRotationd& setValue(const SbMatrixd& m);
  SbRotationd& setValue(const SbVec3d& axis, double radians);
  SbRotationd& setValue(const SbVec3d& rotateFrom, const SbVec3d& rotateTo);
  SbRotationd& setValue(const SbRotation& r);

  const double* getValue() const { return m_quat; }
  void getValue(double& q0, double& q1, double& q2, double& q3) const;
  void getValue(SbVec3d& axis, double& radians) const;
  void getValue(SbMatrixd& m) const;
  SbMatrixd getMatrixd() const;

  SbRotationd& operator*=(const SbRotationd& q);
  friend bool operator==(const SbRotationd& a, const SbRotationd& b);
  friend bool operator!=(const SbRotationd& a, const SbRotationd& b) { return !(a == b); }
  friend SbRotationd operator*(const SbRotationd& a, const SbRotationd& b) { return SbRotationd(a) *= b; }

  void multVec(const SbVec3d& src, SbVec3d& dst) const;
  static SbRotationd slerp(const SbRotationd& r0, const SbRotationd& r1, double t);
  void scaleAngle(double scaleFactor);
  SbRotationd inverse() const;
  SbRotationd& invert();
  static SbRotationd identity() { return SbRotationd(); }
  bool equals(const SbRotationd& r, double tolerance) const;

 private:
  double m_quat[4];
};
static_assert(sizeof(SbRotationd) == 32, "SbRotationd must be exactly 4 doubles");
