#pragma once
#include <Orvex/SbVec3f.h>
#include <Orvex/SbVec3d.h>
#include <Orvex/SbVec4f.h>
#include <Orvex/SbVec4d.h>

class SbMatrixd;
class SbRotation;
class SbRotationd;
class SbLine;
class SbLined;

typedef float SbMat[4][4];
typedef double SbMatd[4][4];
typedef float SbMat3[3][3];

// A 4x4 transformation matrix of floats, stored row by row (64 bytes). Points
// are row vectors multiplied on the left: p' = p * M, so the translation is
// the last row and `a * b` applies a first, then b.
class SbMatrix {
 public:
  // The identity.
  SbMatrix() { makeIdentity(); }
  SbMatrix(float a11, float a12, float a13, float a14,
           float a21, float a22, float a23, float a24,
           float a31, float a32, float a33, float a34,
           float a41, float a42, float a43, float a44);
  explicit SbMatrix(const SbMat& m) { setValue(m); }

  void setValue(const SbMat& m);
  // Converts from double precision.
  void setValue(const SbMatrixd& m);
  void getValue(SbMat& m) const;
  const SbMat& getValue() const { return m_matrix; }
  float* operator[](int row) { return m_matrix[row]; }
  const float* operator[](int row) const { return m_matrix[row]; }

  void makeIdentity();
  static SbMatrix identity();
  bool isIdentity() const;

  void setScale(float s);
  void setScale(const SbVec3f& s);
  void setRotate(const SbRotation& r);
  void setTranslate(const SbVec3f& t);
  // Composes, in the order applied to a point: translation by -center,
  // scale orientation, scale, inverse scale orientation, rotation,
  // translation by center, translation.
  void setTransform(const SbVec3f& translation, const SbRotation& rotation, const SbVec3f& scaleFactor);
  void setTransform(const SbVec3f& translation, const SbRotation& rotation, const SbVec3f& scaleFactor,
                    const SbRotation& scaleOrientation);
  void setTransform(const SbVec3f& translation, const SbRotation& rotation, const SbVec3f& scaleFactor,
                    const SbRotation& scaleOrientation, const SbVec3f& center);
  // Inverse of setTransform for an affine matrix (no shear is lost: any
  // affine matrix factors into these parts). With a center, the translation
  // is the one that goes with that center.
  void getTransform(SbVec3f& translation, SbRotation& rotation, SbVec3f& scaleFactor,
                    SbRotation& scaleOrientation) const;
  void getTransform(SbVec3f& translation, SbRotation& rotation, SbVec3f& scaleFactor,
                    SbRotation& scaleOrientation, const SbVec3f& center) const;

  // Determinant of the upper-left 3x3 part, of the whole matrix.
  float det3() const;
  float det4() const;
  // The inverse; the matrix itself when it is singular.
  SbMatrix inverse() const;
  SbMatrix transpose() const;
  // this = this * m (m applied after), this = m * this (m applied before).
  SbMatrix& multRight(const SbMatrix& m);
  SbMatrix& multLeft(const SbMatrix& m);

  SbMatrix& operator*=(const SbMatrix& m) { return multRight(m); }
  friend bool operator==(const SbMatrix& a, const SbMatrix& b);
  friend bool operator!=(const SbMatrix& a, const SbMatrix& b) { return !(a == b); }
  friend SbMatrix operator*(const SbMatrix& a, const SbMatrix& b) { return SbMatrix(a).multRight(b); }

  // Point (with the projective divide), direction (no translation), column
  // vector (dst = M * src) and homogeneous point transforms; src and dst may
  // be the same object.
  void multVecMatrix(const SbVec3f& src, SbVec3f& dst) const;
  void multVecMatrix(const SbVec4f& src, SbVec4f& dst) const;
  void multDirMatrix(const SbVec3f& src, SbVec3f& dst) const;
  void multMatrixVec(const SbVec3f& src, SbVec3f& dst) const;
  void multLineMatrix(const SbLine& src, SbLine& dst) const;

  // True when no element differs by more than `tolerance`.
  bool equals(const SbMatrix& m, float tolerance) const;

 private:
  SbMat m_matrix;
};
static_assert(sizeof(SbMatrix) == 64, "SbMatrix must be exactly 16 floats");

// The double-precision 4x4 matrix (128 bytes), same conventions as SbMatrix.
class SbMatrixd {
 public:
  SbMatrixd() { makeIdentity(); }
  SbMatrixd(double a11, double a12, double a13, double a14,
            double a21, double a22, double a23, double a24,
            double a31, double a32, double a33, double a34,
            double a41, double a42, double a43, double a44);
  explicit SbMatrixd(const SbMatd& m) { setValue(m); }

  void setValue(const SbMatd& m);
  void setValue(const SbMatrix& m);
  void getValue(SbMatd& m) const;
  const SbMatd& getValue() const { return m_matrix; }
  double* operator[](int row) { return m_matrix[row]; }
  const double* operator[](int row) const { return m_matrix[row]; }

  void makeIdentity();
  static SbMatrixd identity();
  bool isIdentity() const;

  void setScale(double s);
  void setScale(const SbVec3d& s);
  void setRotate(const SbRotationd& r);
  void setTranslate(const SbVec3d& t);
  void setTransform(const SbVec3d& translation, const SbRotationd& rotation, const SbVec3d& scaleFactor);
  void setTransform(const SbVec3d& translation, const SbRotationd& rotation, const SbVec3d& scaleFactor,
                    const SbRotationd& scaleOrientation);
  void setTransform(const SbVec3d& translation, const SbRotationd& rotation, const SbVec3d& scaleFactor,
                    const SbRotationd& scaleOrientation, const SbVec3d& center);
  void getTransform(SbVec3d& translation, SbRotationd& rotation, SbVec3d& scaleFactor,
                    SbRotationd& scaleOrientation) const;
  void getTransform(SbVec3d& translation, SbRotationd& rotation, SbVec3d& scaleFactor,
                    SbRotationd& scaleOrientation, const SbVec3d& center) const;

  double det3() const;
  double det4() const;
  SbMatrixd inverse() const;
  SbMatrixd transpose() const;
  SbMatrixd& multRight(const SbMatrixd& m);
  SbMatrixd& multLeft(const SbMatrixd& m);

  SbMatrixd& operator*=(const SbMatrixd& m) { return multRight(m); }
  friend bool operator==(const SbMatrixd& a, const SbMatrixd& b);
  friend bool operator!=(const SbMatrixd& a, const SbMatrixd& b) { return !(a == b); }
  friend SbMatrixd operator*(const SbMatrixd& a, const SbMatrixd& b) { return SbMatrixd(a).multRight(b); }

  void multVecMatrix(const SbVec3d& src, SbVec3d& dst) const;
  void multVecMatrix(const SbVec4d& src, SbVec4d& dst) const;
  void multDirMatrix(const SbVec3d& src, SbVec3d& dst) const;
  void multMatrixVec(const SbVec3d& src, SbVec3d& dst) const;
  void multLineMatrix(const SbLined& src, SbLined& dst) const;

  bool equals(const SbMatrixd& m, double tolerance) const;

 private:
  SbMatd m_matrix;
};
static_assert(sizeof(SbMatrixd) == 128, "SbMatrixd must be exactly 16 doubles");

// A 3x3 matrix of floats stored row by row (36 bytes): linear maps of 3D row
// vectors, p' = p * M.
class SbMatrix3 {
 public:
  SbMatrix3() { makeIdentity(); }
  SbMatrix3(float a11, float a12, float a13,
            float a21, float a22, float a23,
            float a31, float a32, float a33);
  explicit SbMatrix3(const SbMat3& m) { setValue(m); }

  void setValue(const SbMat3& m);
  void getValue(SbMat3& m) const;
  const SbMat3& getValue() const { return m_matrix; }
  float* operator[](int row) { return m_matrix[row]; }
  const float* operator[](int row) const { return m_matrix[row]; }

  void makeIdentity();
  static SbMatrix3 identity();
  bool isIdentity() const;
  void setScale(float s);
  void setScale(const SbVec3f& s);
  void setRotate(const SbRotation& r);

  float det() const;
  SbMatrix3 inverse() const;
  SbMatrix3 transpose() const;
  SbMatrix3& multRight(const SbMatrix3& m);
  SbMatrix3& multLeft(const SbMatrix3& m);

  SbMatrix3& operator*=(const SbMatrix3& m) { return multRight(m); }
  friend bool operator==(const SbMatrix3& a, const SbMatrix3& b);
  friend bool operator!=(const SbMatrix3& a, const SbMatrix3& b) { return !(a == b); }
  friend SbMatrix3 operator*(const SbMatrix3& a, const SbMatrix3& b) { return SbMatrix3(a).multRight(b); }

  // dst = src * M; src and dst may be the same object.
  void multVecMatrix(const SbVec3f& src, SbVec3f& dst) const;
  bool equals(const SbMatrix3& m, float tolerance) const;

 private:
  SbMat3 m_matrix;
};
static_assert(sizeof(SbMatrix3) == 36, "SbMatrix3 must be exactly 9 floats");
