#include <Orvex/actions/SoRayPickAction.h>

#include <Orvex/SoPath.h>
#include <Orvex/nodes/SoNode.h>
#include <Orvex/SoPickedPoint.h>
#include <Orvex/elements/SoPickRayElement.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>

#include "EnabledElements.h"

namespace {
std::atomic<bool> s_accelerationEnabled{true};

// The point of parameter t on origin + t * dir.
SbVec3f at(const SbVec3f& origin, const SbVec3f& dir, double t) {
  return SbVec3f(static_cast<float>(origin[0] + t * dir[0]), static_cast<float>(origin[1] + t * dir[1]),
                 static_cast<float>(origin[2] + t * dir[2]));
}
}  // namespace

SO_ACTION_SOURCE(SoRayPickAction)

void SoRayPickAction::initClass() {
  SO_ACTION_INIT_CLASS(SoRayPickAction, SoPickAction);
  SO_ACTION_ADD_METHOD(SoNode, &SoNode::rayPickS);
  orvex::enableShapeElements<SoRayPickAction>();
  SO_ENABLE(SoRayPickAction, SoPickRayElement);
}

SoRayPickAction::SoRayPickAction(const SbViewportRegion& region) : SoPickAction(region) {
  SO_ACTION_CONSTRUCTOR(SoRayPickAction);
}

SoRayPickAction::~SoRayPickAction() = default;

void SoRayPickAction::setAccelerationEnabled(bool flag) { s_accelerationEnabled = flag; }
bool SoRayPickAction::isAccelerationEnabled() { return s_accelerationEnabled; }

void SoRayPickAction::setPoint(const SbVec2s& viewportPoint) {
  m_source = VIEWPORT_POINT;
  m_vpPoint = viewportPoint;
  m_hasWorldRay = false;
}

void SoRayPickAction::setNormalizedPoint(const SbVec2f& normPoint) {
  m_source = NORMALIZED_POINT;
  m_normPoint = normPoint;
  m_hasWorldRay = false;
}

void SoRayPickAction::setRay(const SbVec3f& start, const SbVec3f& direction, float nearDistance, float farDistance) {
  m_source = WORLD_RAY;
  m_worldStart = start;
  m_worldDir = direction;
  if (m_worldDir.normalize() == 0.0f) m_worldDir.setValue(0.0f, 0.0f, -1.0f);
  m_depthOrigin = m_worldStart;
  m_depthDir = m_worldDir;
  // A ray does not go backwards: without a near limit it starts at `start`.
  m_near = nearDistance < 0.0f ? 0.0f : nearDistance;
  m_far = farDistance;
  m_hasWorldRay = true;
}

SoPickedPoint* SoRayPickAction::getPickedPoint(int index) const {
  return index >= 0 && index < m_picked.getLength() ? m_picked[index] : nullptr;
}

void SoRayPickAction::beginTraversal(SoNode* node) {
  m_picked.truncate(0);
  m_distances.clear();
  if (m_source != WORLD_RAY) m_hasWorldRay = false;
  SoViewportRegionElement::set(getState(), getViewportRegion());
  if (m_hasWorldRay) {
    // For nodes that read the pick ray: a thin volume along it.
    SbViewVolume volume;
    volume.ortho(-m_radius, m_radius, -m_radius, m_radius, m_near, m_far < 0.0f ? 1e30f : m_far);
    volume.rotateCamera(SbRotation(SbVec3f(0.0f, 0.0f, -1.0f), m_worldDir));
    volume.translateCamera(m_worldStart);
    SoPickRayElement::set(getState(), volume);
  }
  traverse(node);
}

// ---- the ray ----------------------------------------------------------------------

void SoRayPickAction::computeWorldSpaceRay() {
  SoState* state = getState();
  if (m_source == WORLD_RAY) {
    m_radiusPerDistance = 0.0f;
    m_radiusConstant = m_radius;
    m_hasWorldRay = true;
    return;
  }
  const SbViewVolume& vv = SoViewVolumeElement::get(state);
  const SbViewportRegion& vp = SoViewportRegionElement::get(state);
  const SbVec2s origin = vp.getViewportOriginPixels();
  const SbVec2s size = vp.getViewportSizePixels();
  SbVec2f norm = m_normPoint;
  if (m_source == VIEWPORT_POINT) {
    norm.setValue(size[0] > 0 ? float(m_vpPoint[0] - origin[0]) / size[0] : 0.0f,
                  size[1] > 0 ? float(m_vpPoint[1] - origin[1]) / size[1] : 0.0f);
  }
  SbLine line;
  vv.projectPointToLine(norm, line);
  m_worldStart = line.getPosition();
  m_worldDir = line.getDirection();
  m_depthOrigin = vv.getProjectionPoint();
  m_depthDir = vv.getProjectionDirection();
  m_near = vv.getNearDist();
  m_far = vv.getNearDist() + vv.getDepth();
  // The pick radius is in pixels: its size in the world grows with the
  // distance for a perspective camera and is constant for an orthographic one.
  const float pixelsHigh = size[1] > 0 ? float(size[1]) : 1.0f;
  const float worldPerPixel = vv.getHeight() / pixelsHigh;
  if (vv.getProjectionType() == SbViewVolume::PERSPECTIVE && vv.getNearDist() > 0.0f) {
    m_radiusPerDistance = m_radius * worldPerPixel / vv.getNearDist();
    m_radiusConstant = 0.0f;
  } else {
    m_radiusPerDistance = 0.0f;
    m_radiusConstant = m_radius * worldPerPixel;
  }
  m_hasWorldRay = true;
  SbViewVolume pickVolume = vv;
  pickVolume.scale(m_radius / pixelsHigh);
  SoPickRayElement::set(state, pickVolume);
}

void SoRayPickAction::setObjectSpace() {
  SoState* state = getState();
  if (!m_hasWorldRay) computeWorldSpaceRay();
  const auto* elt =
      static_cast<const SoModelMatrixElement*>(state->getConstElement(SoModelMatrixElement::getClassStackIndex()));
  setObjectSpace(elt ? elt->getModelMatrix() : SbMatrix::identity());
}

void SoRayPickAction::setObjectSpace(const SbMatrix& matrix) {
  if (!m_hasWorldRay) computeWorldSpaceRay();
  m_objToWorld = matrix;
  m_worldToObj = matrix.inverse();
  SbVec3f end;
  m_worldToObj.multVecMatrix(m_worldStart, m_objOrigin);
  m_worldToObj.multVecMatrix(m_worldStart + m_worldDir, end);
  m_objDir = end - m_objOrigin;
}

SbLine SoRayPickAction::getLine() const {
  SbLine line;
  line.setPosDir(m_objOrigin, m_objDir);
  return line;
}

float SoRayPickAction::getWorldRadius(float distance) const {
  return m_radiusConstant + m_radiusPerDistance * std::fabs(distance);
}

float SoRayPickAction::getDistance(const SbVec3f& objectPoint) const {
  SbVec3f world;
  m_objToWorld.multVecMatrix(objectPoint, world);
  return (world - m_worldStart).dot(m_worldDir);
}

bool SoRayPickAction::isBetweenPlanes(const SbVec3f& objectPoint) const {
  SbVec3f world;
  m_objToWorld.multVecMatrix(objectPoint, world);
  const float depth = (world - m_depthOrigin).dot(m_depthDir);
  if (m_near >= 0.0f && depth < m_near) return false;
  if (m_far >= 0.0f && depth > m_far) return false;
  return true;
}

// ---- intersections ----------------------------------------------------------------

bool SoRayPickAction::intersect(const SbVec3f& v0, const SbVec3f& v1, const SbVec3f& v2, SbVec3f& intersection,
                                SbVec3f& barycentric, bool& front) const {
  // Moeller-Trumbore in double precision on the object-space ray.
  const double e1x = double(v1[0]) - v0[0], e1y = double(v1[1]) - v0[1], e1z = double(v1[2]) - v0[2];
  const double e2x = double(v2[0]) - v0[0], e2y = double(v2[1]) - v0[1], e2z = double(v2[2]) - v0[2];
  const double dx = m_objDir[0], dy = m_objDir[1], dz = m_objDir[2];
  const double px = dy * e2z - dz * e2y, py = dz * e2x - dx * e2z, pz = dx * e2y - dy * e2x;
  const double det = e1x * px + e1y * py + e1z * pz;
  if (det == 0.0 || !std::isfinite(det)) return false;
  const double inv = 1.0 / det;
  const double tx = double(m_objOrigin[0]) - v0[0], ty = double(m_objOrigin[1]) - v0[1],
               tz = double(m_objOrigin[2]) - v0[2];
  const double u = (tx * px + ty * py + tz * pz) * inv;
  if (u < 0.0 || u > 1.0) return false;
  const double qx = ty * e1z - tz * e1y, qy = tz * e1x - tx * e1z, qz = tx * e1y - ty * e1x;
  const double v = (dx * qx + dy * qy + dz * qz) * inv;
  if (v < 0.0 || u + v > 1.0) return false;
  const double w = 1.0 - u - v;
  intersection.setValue(static_cast<float>(w * v0[0] + u * v1[0] + v * v2[0]),
                        static_cast<float>(w * v0[1] + u * v1[1] + v * v2[1]),
                        static_cast<float>(w * v0[2] + u * v1[2] + v * v2[2]));
  barycentric.setValue(static_cast<float>(w), static_cast<float>(u), static_cast<float>(v));
  // The triangle faces the ray when its counter-clockwise normal points back.
  const double nx = e1y * e2z - e1z * e2y, ny = e1z * e2x - e1x * e2z, nz = e1x * e2y - e1y * e2x;
  front = nx * dx + ny * dy + nz * dz < 0.0;
  return true;
}

bool SoRayPickAction::intersect(const SbVec3f& v0, const SbVec3f& v1, SbVec3f& intersection) const {
  // Closest approach in world space, where the radius is measured.
  SbVec3f a, b;
  m_objToWorld.multVecMatrix(v0, a);
  m_objToWorld.multVecMatrix(v1, b);
  const SbVec3f u = b - a;
  const SbVec3f w0 = m_worldStart - a;
  const double uu = u.dot(u), ud = u.dot(m_worldDir), dd = 1.0;
  const double uw = u.dot(w0), dw = m_worldDir.dot(w0);
  const double denom = uu * dd - ud * ud;
  double s;  // along the segment, 0..1
  if (uu == 0.0)
    s = 0.0;
  else if (denom <= 1e-12 * uu)
    s = 0.0;  // parallel: any point; take the start
  else
    s = (dd * uw - ud * dw) / denom;
  s = std::max(0.0, std::min(1.0, s));
  const SbVec3f onSegment = a + u * static_cast<float>(s);
  const double t = (onSegment - m_worldStart).dot(m_worldDir);
  const SbVec3f onRay = at(m_worldStart, m_worldDir, t);
  if ((onSegment - onRay).length() > getWorldRadius(static_cast<float>(t))) return false;
  intersection = v0 + (v1 - v0) * static_cast<float>(s);
  return true;
}

bool SoRayPickAction::intersect(const SbVec3f& point) const {
  SbVec3f p;
  m_objToWorld.multVecMatrix(point, p);
  const double t = (p - m_worldStart).dot(m_worldDir);
  return (p - at(m_worldStart, m_worldDir, t)).length() <= getWorldRadius(static_cast<float>(t));
}

namespace {
// Slab test of origin + t * dir against a box: the parameter range inside.
bool slabs(const SbVec3f& origin, const SbVec3f& dir, const SbVec3f& lo, const SbVec3f& hi, double& tmin,
           double& tmax) {
  tmin = -std::numeric_limits<double>::infinity();
  tmax = std::numeric_limits<double>::infinity();
  for (int a = 0; a < 3; ++a) {
    if (dir[a] == 0.0f) {
      if (origin[a] < lo[a] || origin[a] > hi[a]) return false;
      continue;
    }
    double t1 = (double(lo[a]) - origin[a]) / dir[a];
    double t2 = (double(hi[a]) - origin[a]) / dir[a];
    if (t1 > t2) std::swap(t1, t2);
    tmin = std::max(tmin, t1);
    tmax = std::min(tmax, t2);
    if (tmin > tmax) return false;
  }
  return true;
}
}  // namespace

bool SoRayPickAction::intersect(const SbBox3f& box, bool useFullViewVolume) const {
  if (box.isEmpty()) return false;
  // In world space, grown by the pick radius at the box's far side.
  SbBox3f world = box;
  world.transform(m_objToWorld);
  const SbVec3f corner = world.getMax() - world.getMin();
  const float reach = (world.getCenter() - m_worldStart).length() + corner.length();
  world.enlarge(getWorldRadius(reach));
  double tmin, tmax;
  if (!slabs(m_worldStart, m_worldDir, world.getMin(), world.getMax(), tmin, tmax)) return false;
  if (useFullViewVolume) return true;
  if (m_far >= 0.0f && tmin > m_far + reach) return false;
  return tmax >= 0.0 || m_near < 0.0f;
}

bool SoRayPickAction::intersectBox(const SbBox3f& box, SbVec3f& enter) const {
  if (box.isEmpty()) return false;
  double tmin, tmax;
  if (!slabs(m_objOrigin, m_objDir, box.getMin(), box.getMax(), tmin, tmax)) return false;
  const SbVec3f first = at(m_objOrigin, m_objDir, tmin);
  if (isBetweenPlanes(first)) {
    enter = first;
    return true;
  }
  const SbVec3f second = at(m_objOrigin, m_objDir, tmax);
  if (isBetweenPlanes(second)) {
    enter = second;
    return true;
  }
  return false;
}

// ---- results ----------------------------------------------------------------------

SoPickedPoint* SoRayPickAction::addIntersection(const SbVec3f& objectPoint) {
  const float distance = getDistance(objectPoint);
  if (!m_pickAll && m_picked.getLength() > 0 && !(distance < m_distances[0])) return nullptr;
  if (m_pickAll) {
    // A point of this same path hit again at the same distance (on the edge
    // that two of its triangles share) is the same point.
    const auto range = std::equal_range(m_distances.begin(), m_distances.end(), distance);
    if (range.first != range.second) {
      SbVec3f world;
      m_objToWorld.multVecMatrix(objectPoint, world);
      const SoPath* path = getCurPath();
      for (auto it = range.first; it != range.second; ++it) {
        const SoPickedPoint* other = m_picked[static_cast<int>(it - m_distances.begin())];
        if (other->getPoint() == world && *other->getPath() == *path) return nullptr;
      }
    }
  }
  auto* pp = new SoPickedPoint(getCurPath(), getState(), objectPoint);
  if (!m_pickAll) {
    if (m_picked.getLength() == 0) {
      m_picked.append(pp);
      m_distances.push_back(distance);
    } else {
      m_picked.set(0, pp);
      m_distances[0] = distance;
    }
    return pp;
  }
  // Sorted from near to far; equal distances keep the order they came in.
  const auto pos = std::upper_bound(m_distances.begin(), m_distances.end(), distance);
  const int index = static_cast<int>(pos - m_distances.begin());
  m_distances.insert(pos, distance);
  m_picked.insert(pp, index);
  return pp;
}
