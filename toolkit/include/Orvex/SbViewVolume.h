#pragma once
#include <Orvex/SbLine.h>
#include <Orvex/SbMatrix.h>
#include <Orvex/SbPlane.h>
#include <Orvex/SbRotation.h>
#include <Orvex/SbVec2f.h>

// The volume a camera sees: an orthographic box or a perspective frustum,
// described in world space by the projection point and direction, the near
// distance and depth, and three corners of the near rectangle.
class SbViewVolume {
 public:
  enum ProjectionType { ORTHOGRAPHIC = 0, PERSPECTIVE = 1 };

  // A 2 x 2 x 2 orthographic box around the origin, looking down -z.
  SbViewVolume();

  // Camera at the origin looking down -z; the arguments are those of the
  // classic projection calls (distances positive in front of the camera).
  void ortho(float left, float right, float bottom, float top, float nearDist, float farDist);
  void perspective(float fovy, float aspect, float nearDist, float farDist);

  ProjectionType getProjectionType() const { return m_type; }
  const SbVec3f& getProjectionPoint() const { return m_projPoint; }
  const SbVec3f& getProjectionDirection() const { return m_projDir; }
  float getNearDist() const { return m_nearDist; }
  float getWidth() const;
  float getHeight() const;
  float getDepth() const { return m_nearToFar; }

  // Moves or turns the whole volume (the camera) in world space.
  void translateCamera(const SbVec3f& v);
  void rotateCamera(const SbRotation& r);

  // The world-to-normalised-device matrix (x, y, z in [-1, 1] inside).
  SbMatrix getMatrix() const;
  // World to view space (camera at the origin looking down -z), and the
  // projection of view space to normalised device coordinates.
  void getMatrices(SbMatrix& affine, SbMatrix& proj) const;
  // The world point in normalised screen coordinates (x, y in [0, 1], z in
  // [0, 1] from near to far).
  void projectToScreen(const SbVec3f& src, SbVec3f& dst) const;
  // The line of sight through a normalised screen point.
  void projectPointToLine(const SbVec2f& pt, SbLine& line) const;
  // The point on the line of sight at `distFromEye` from the camera.
  SbVec3f getSightPoint(float distFromEye) const;
  // The world point at normalised screen point `normPoint`, `distFromEye` away.
  SbVec3f getPlanePoint(float distFromEye, const SbVec2f& normPoint) const;
  // The plane facing the camera at `distFromEye`.
  SbPlane getPlane(float distFromEye) const;
  // The unit vector pointing back towards the camera.
  SbVec3f zVector() const;
  // Scales the near rectangle about its centre.
  void scale(float factor);

 private:
  ProjectionType m_type;
  SbVec3f m_projPoint;
  SbVec3f m_projDir;
  float m_nearDist;
  float m_nearToFar;
  SbVec3f m_llf;  // lower-left, lower-right and upper-left corners of the near rectangle
  SbVec3f m_lrf;
  SbVec3f m_ulf;
};
