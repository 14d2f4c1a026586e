#pragma once
#include <Orvex/SbBox3f.h>
#include <Orvex/SbLine.h>
#include <Orvex/SbMatrix.h>
#include <Orvex/SbVec2f.h>
#include <Orvex/SbVec2s.h>
#include <Orvex/SoPickedPointList.h>
#include <Orvex/actions/SoPickAction.h>

#include <vector>

class SoPickedPoint;

// Finds what a ray hits: the ray goes from the camera through a point of
// the viewport (setPoint, setNormalizedPoint; the camera met in the graph
// gives it), or is given in world space (setRay). Triangles are hit
// exactly; lines and points within the pick radius (pixels for a viewport
// point, world units for a world ray). The result is the closest hit, or
// with setPickAll every hit sorted from near to far.
class SoRayPickAction : public SoPickAction {
  SO_ACTION_HEADER(SoRayPickAction);

 public:
  explicit SoRayPickAction(const SbViewportRegion& region);
  ~SoRayPickAction() override;

  // The ray through a pixel of the viewport, or a normalised viewport point.
  void setPoint(const SbVec2s& viewportPoint);
  void setNormalizedPoint(const SbVec2f& normPoint);
  const SbVec2s& getPoint() const { return m_vpPoint; }
  const SbVec2f& getNormalizedPoint() const { return m_normPoint; }
  void setRadius(float radius) { m_radius = radius; }
  float getRadius() const { return m_radius; }
  // A ray in world space; only what lies between the near and far
  // distances from the start counts (a negative distance: no limit).
  void setRay(const SbVec3f& start, const SbVec3f& direction, float nearDistance = -1.0f,
              float farDistance = -1.0f);
  void setPickAll(bool flag) { m_pickAll = flag; }
  bool isPickAll() const { return m_pickAll; }

  const SoPickedPointList& getPickedPointList() const { return m_picked; }
  // The hit at that index (0: the closest), or null.
  SoPickedPoint* getPickedPoint(int index = 0) const;

  // Process-wide: shapes with many triangles may keep a search structure
  // between picks (same results, much faster repeated picks). On by default.
  static void setAccelerationEnabled(bool flag);
  static bool isAccelerationEnabled();

  // ---- used by nodes --------------------------------------------------
  // Makes the world ray from the camera in the state (viewport picks).
  void computeWorldSpaceRay();
  bool hasWorldSpaceRay() const { return m_hasWorldRay; }
  // The ray in the current object space (the model matrix), or in the
  // space that `matrix` maps to world space.
  void setObjectSpace();
  void setObjectSpace(const SbMatrix& matrix);
  // Object-space tests. The triangle test gives the point, its barycentric
  // coordinates and whether the triangle faces the ray (counter-clockwise
  // seen from the ray's start).
  bool intersect(const SbVec3f& v0, const SbVec3f& v1, const SbVec3f& v2, SbVec3f& intersection,
                 SbVec3f& barycentric, bool& front) const;
  // A segment within the pick radius: the point of the segment nearest to the ray.
  bool intersect(const SbVec3f& v0, const SbVec3f& v1, SbVec3f& intersection) const;
  // A point within the pick radius.
  bool intersect(const SbVec3f& point) const;
  // Whether the ray (grown by the pick radius) may reach the box; with
  // useFullViewVolume the near and far limits are ignored.
  bool intersect(const SbBox3f& box, bool useFullViewVolume = true) const;
  // Where the ray enters the box (object space), if it does.
  bool intersectBox(const SbBox3f& box, SbVec3f& enter) const;
  // Whether an object-space point lies between the near and far limits.
  bool isBetweenPlanes(const SbVec3f& intersection) const;
  // The ray in object space.
  SbLine getLine() const;
  // The object-space origin and direction of the ray: the point at
  // parameter t is origin + t * direction, and t is also the distance
  // along the world ray.
  const SbVec3f& getObjectOrigin() const { return m_objOrigin; }
  const SbVec3f& getObjectDirection() const { return m_objDir; }
  const SbMatrix& getObjectToWorld() const { return m_objToWorld; }
  // Records a hit at an object-space point of the current shape. Answers the
  // new picked point for the shape to complete (normal, texture
  // coordinates, detail), or null when the hit is not kept (not between the
  // planes, or farther than the closest so far when not picking all).
  SoPickedPoint* addIntersection(const SbVec3f& objectPoint);
  // The world distance from the ray's start to an object-space point.
  float getDistance(const SbVec3f& objectPoint) const;
  // The pick radius in world units at a distance along the ray.
  float getWorldRadius(float distance) const;

 protected:
  void beginTraversal(SoNode* node) override;

 private:
  enum RaySource { VIEWPORT_POINT, NORMALIZED_POINT, WORLD_RAY };

  RaySource m_source = VIEWPORT_POINT;
  SbVec2s m_vpPoint;
  SbVec2f m_normPoint;
  float m_radius = 5.0f;
  bool m_pickAll = false;
  // The world ray: start and unit direction; depths are measured along
  // m_depthDir from m_depthOrigin (the camera's direction for viewport picks).
  bool m_hasWorldRay = false;
  SbVec3f m_worldStart;
  SbVec3f m_worldDir;
  SbVec3f m_depthOrigin;
  SbVec3f m_depthDir;
  float m_near = -1.0f;
  float m_far = -1.0f;
  // Pick radius: world units per unit distance (perspective) and constant part.
  float m_radiusPerDistance = 0.0f;
  float m_radiusConstant = 0.0f;
  // The ray in the current object space.
  SbVec3f m_objOrigin;
  SbVec3f m_objDir;
  SbMatrix m_objToWorld;
  SbMatrix m_worldToObj;
  SoPickedPointList m_picked;
  std::vector<float> m_distances;  // of m_picked
};
