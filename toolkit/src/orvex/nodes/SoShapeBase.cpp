// What every shape does in the traversal actions, and the machinery that
// turns strips, fans and polygons into primitives.

#include <Orvex/SoPickedPoint.h>
#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/actions/SoGetPrimitiveCountAction.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/details/SoFaceDetail.h>
#include <Orvex/details/SoLineDetail.h>
#include <Orvex/elements/SoComplexityElement.h>
#include <Orvex/elements/SoDrawStyleElement.h>
#include <Orvex/elements/SoPickStyleElement.h>
#include <Orvex/elements/SoShapeHintsElement.h>
#include <Orvex/nodes/SoShape.h>

#include <cmath>

#include "ShapePrimitives.h"

namespace orvex {

namespace {
thread_local PrimitiveScope* t_scope = nullptr;
}

void VertexSlot::store(const SoPrimitiveVertex* v) {
  vertex = *v;
  const SoDetail* d = v->getDetail();
  ownsDetail = d && d->getTypeId() == SoPointDetail::getClassTypeId();
  if (ownsDetail) detail = *static_cast<const SoPointDetail*>(d);
}

const SoPrimitiveVertex* VertexSlot::get() {
  if (ownsDetail) vertex.setDetail(&detail);
  return &vertex;
}

PrimitiveScope::PrimitiveScope(Mode m, SoAction* a, SoShape* s, PrimitiveCollector* c)
    : mode(m), action(a), shape(s), collector(c), m_previous(t_scope) {
  t_scope = this;
}

PrimitiveScope::~PrimitiveScope() { t_scope = m_previous; }

PrimitiveScope* PrimitiveScope::current() { return t_scope; }

namespace {

float cross2(const SbVec3f& a, const SbVec3f& b, const SbVec3f& c, int u, int v) {
  return (b[u] - a[u]) * (c[v] - a[v]) - (b[v] - a[v]) * (c[u] - a[u]);
}

bool insideTriangle(const SbVec3f& p, const SbVec3f& a, const SbVec3f& b, const SbVec3f& c, int u, int v,
                    float sign) {
  return sign * cross2(a, b, p, u, v) >= 0.0f && sign * cross2(b, c, p, u, v) >= 0.0f &&
         sign * cross2(c, a, p, u, v) >= 0.0f;
}

}  // namespace

void triangulatePolygon(const std::vector<SbVec3f>& points, bool convex, std::vector<int>& triangles) {
  const int n = static_cast<int>(points.size());
  if (n < 3) return;
  if (convex || n == 3) {
    for (int i = 1; i + 1 < n; ++i) {
      triangles.push_back(0);
      triangles.push_back(i);
      triangles.push_back(i + 1);
    }
    return;
  }
  // The plane of the polygon (Newell's normal) decides which axis to drop.
  SbVec3f normal(0.0f, 0.0f, 0.0f);
  for (int i = 0; i < n; ++i) {
    const SbVec3f& a = points[static_cast<size_t>(i)];
    const SbVec3f& b = points[static_cast<size_t>((i + 1) % n)];
    normal[0] += (a[1] - b[1]) * (a[2] + b[2]);
    normal[1] += (a[2] - b[2]) * (a[0] + b[0]);
    normal[2] += (a[0] - b[0]) * (a[1] + b[1]);
  }
  int drop = 2;
  if (std::fabs(normal[0]) >= std::fabs(normal[1]) && std::fabs(normal[0]) >= std::fabs(normal[2]))
    drop = 0;
  else if (std::fabs(normal[1]) >= std::fabs(normal[2]))
    drop = 1;
  const int u = (drop + 1) % 3, v = (drop + 2) % 3;
  const float sign = normal[drop] >= 0.0f ? 1.0f : -1.0f;

  std::vector<int> remaining(static_cast<size_t>(n));
  for (int i = 0; i < n; ++i) remaining[static_cast<size_t>(i)] = i;
  while (remaining.size() > 3) {
    const size_t m = remaining.size();
    bool clipped = false;
    for (size_t k = 0; k < m; ++k) {
      const int ia = remaining[(k + m - 1) % m], ib = remaining[k], ic = remaining[(k + 1) % m];
      const SbVec3f& a = points[static_cast<size_t>(ia)];
      const SbVec3f& b = points[static_cast<size_t>(ib)];
      const SbVec3f& c = points[static_cast<size_t>(ic)];
      if (sign * cross2(a, b, c, u, v) <= 0.0f) continue;  // a reflex (or flat) corner
      bool empty = true;
      for (size_t j = 0; j < m && empty; ++j) {
        const int ip = remaining[j];
        if (ip == ia || ip == ib || ip == ic) continue;
        if (insideTriangle(points[static_cast<size_t>(ip)], a, b, c, u, v, sign)) empty = false;
      }
      if (!empty) continue;
      triangles.push_back(ia);
      triangles.push_back(ib);
      triangles.push_back(ic);
      remaining.erase(remaining.begin() + static_cast<std::ptrdiff_t>(k));
      clipped = true;
      break;
    }
    // A polygon with no ear left (self-intersecting or degenerate): the
    // rest becomes a fan.
    if (!clipped) break;
  }
  for (size_t i = 1; i + 1 < remaining.size(); ++i) {
    triangles.push_back(remaining[0]);
    triangles.push_back(remaining[i]);
    triangles.push_back(remaining[i + 1]);
  }
}

}  // namespace orvex

using orvex::PrimitiveScope;

bool SoShape::isVisible(SoAction* action) const {
  SoState* state = action->getState();
  return !state || SoDrawStyleElement::get(state) != SoDrawStyleElement::INVISIBLE;
}

float SoShape::getComplexityValue(SoAction* action) {
  SoState* state = action->getState();
  if (!state || !state->isElementEnabled(SoComplexityElement::getClassStackIndex()))
    return SoComplexityElement::getDefault();
  const float value = SoComplexityElement::get(state);
  return value < 0.0f ? 0.0f : (value > 1.0f ? 1.0f : value);
}

// ---- the actions ------------------------------------------------------------------

void SoShape::callback(SoCallbackAction* action) {
  if (!action->shouldGeneratePrimitives(this)) return;
  PrimitiveScope scope(PrimitiveScope::CALLBACK, action, this);
  generatePrimitives(action);
}

void SoShape::getBoundingBox(SoGetBoundingBoxAction* action) {
  SbBox3f box;
  SbVec3f center;
  computeBBox(action, box, center);
  if (box.isEmpty()) return;
  action->extendBy(box);
  action->setCenter(center, true);
}

void SoShape::getPrimitiveCount(SoGetPrimitiveCountAction* action) {
  if (!isVisible(action)) return;
  PrimitiveScope scope(PrimitiveScope::COUNT, action, this);
  generatePrimitives(action);
  action->addNumTriangles(scope.triangles);
  action->addNumLines(scope.lines);
  action->addNumPoints(scope.points);
}

bool SoShape::shouldRayPick(SoRayPickAction* action) {
  SoState* state = action->getState();
  if (SoPickStyleElement::get(state) == SoPickStyleElement::UNPICKABLE) return false;
  return isVisible(action);
}

void SoShape::rayPick(SoRayPickAction* action) {
  if (!shouldRayPick(action)) return;
  action->setObjectSpace();
  if (SoPickStyleElement::get(action->getState()) == SoPickStyleElement::BOUNDING_BOX) {
    rayPickBoundingBox(action);
    return;
  }
  rayPickPrimitives(action);
}

void SoShape::rayPickPrimitives(SoRayPickAction* action) {
  PrimitiveScope scope(PrimitiveScope::RAYPICK, action, this);
  generatePrimitives(action);
}

void SoShape::rayPickBoundingBox(SoRayPickAction* action) {
  SbBox3f box;
  SbVec3f center;
  computeBBox(action, box, center);
  if (box.isEmpty()) return;
  SbVec3f enter;
  if (!action->intersectBox(box, enter) || !action->isBetweenPlanes(enter)) return;
  SoPickedPoint* pp = action->addIntersection(enter);
  if (!pp) return;
  // The normal of the box side the ray enters through.
  const SbVec3f& lo = box.getMin();
  const SbVec3f& hi = box.getMax();
  int axis = 0;
  float best = 1e30f;
  float sign = 1.0f;
  for (int a = 0; a < 3; ++a) {
    const float dLo = std::fabs(enter[a] - lo[a]), dHi = std::fabs(enter[a] - hi[a]);
    if (dLo < best) {
      best = dLo;
      axis = a;
      sign = -1.0f;
    }
    if (dHi < best) {
      best = dHi;
      axis = a;
      sign = 1.0f;
    }
  }
  SbVec3f normal(0.0f, 0.0f, 0.0f);
  normal[axis] = sign;
  pp->setObjectNormal(normal);
  pp->setObjectTextureCoords(SbVec4f(0.0f, 0.0f, 0.0f, 1.0f));
  pp->setOnGeometry(false);
}

// ---- handing primitives over ------------------------------------------------------------

namespace {
// The scope of this shape and action, or null when the shape generates
// outside the actions' own calls (then the action's type decides).
PrimitiveScope* scopeFor(const SoShape* shape, SoAction* action) {
  PrimitiveScope* scope = PrimitiveScope::current();
  return scope && scope->shape == shape && scope->action == action ? scope : nullptr;
}
}  // namespace

namespace {
// What primitives are for when no scope says it: the action's kind.
PrimitiveScope::Mode modeOf(SoAction* action) {
  if (action->isOfType(SoRayPickAction::getClassTypeId())) return PrimitiveScope::RAYPICK;
  if (action->isOfType(SoCallbackAction::getClassTypeId())) return PrimitiveScope::CALLBACK;
  return PrimitiveScope::COUNT;
}
}  // namespace

void SoShape::dispatchTriangle(PrimitiveScope* scope, SoAction* action, const SoPrimitiveVertex* v1,
                               const SoPrimitiveVertex* v2, const SoPrimitiveVertex* v3) {
  switch (scope ? scope->mode : modeOf(action)) {
    case PrimitiveScope::CALLBACK:
      static_cast<SoCallbackAction*>(action)->invokeTriangleCallbacks(this, v1, v2, v3);
      break;
    case PrimitiveScope::RAYPICK:
      rayPickTriangle(static_cast<SoRayPickAction*>(action), v1, v2, v3);
      break;
    case PrimitiveScope::COUNT:
      if (scope)
        ++scope->triangles;
      else if (action->isOfType(SoGetPrimitiveCountAction::getClassTypeId()))
        static_cast<SoGetPrimitiveCountAction*>(action)->incNumTriangles();
      break;
    case PrimitiveScope::COLLECT:
      scope->collector->triangle(v1, v2, v3);
      break;
  }
}

void SoShape::dispatchLineSegment(PrimitiveScope* scope, SoAction* action, const SoPrimitiveVertex* v1,
                                  const SoPrimitiveVertex* v2) {
  switch (scope ? scope->mode : modeOf(action)) {
    case PrimitiveScope::CALLBACK:
      static_cast<SoCallbackAction*>(action)->invokeLineSegmentCallbacks(this, v1, v2);
      break;
    case PrimitiveScope::RAYPICK:
      rayPickLineSegment(static_cast<SoRayPickAction*>(action), v1, v2);
      break;
    case PrimitiveScope::COUNT:
      if (scope)
        ++scope->lines;
      else if (action->isOfType(SoGetPrimitiveCountAction::getClassTypeId()))
        static_cast<SoGetPrimitiveCountAction*>(action)->incNumLines();
      break;
    case PrimitiveScope::COLLECT:
      scope->collector->lineSegment(v1, v2);
      break;
  }
}

void SoShape::dispatchPoint(PrimitiveScope* scope, SoAction* action, const SoPrimitiveVertex* v) {
  switch (scope ? scope->mode : modeOf(action)) {
    case PrimitiveScope::CALLBACK:
      static_cast<SoCallbackAction*>(action)->invokePointCallbacks(this, v);
      break;
    case PrimitiveScope::RAYPICK:
      rayPickPoint(static_cast<SoRayPickAction*>(action), v);
      break;
    case PrimitiveScope::COUNT:
      if (scope)
        ++scope->points;
      else if (action->isOfType(SoGetPrimitiveCountAction::getClassTypeId()))
        static_cast<SoGetPrimitiveCountAction*>(action)->incNumPoints();
      break;
    case PrimitiveScope::COLLECT:
      scope->collector->point(v);
      break;
  }
}

void SoShape::invokeTriangleCallbacks(SoAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2,
                                      const SoPrimitiveVertex* v3) {
  dispatchTriangle(scopeFor(this, action), action, v1, v2, v3);
}

void SoShape::invokeLineSegmentCallbacks(SoAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2) {
  dispatchLineSegment(scopeFor(this, action), action, v1, v2);
}

void SoShape::invokePointCallbacks(SoAction* action, const SoPrimitiveVertex* v) {
  dispatchPoint(scopeFor(this, action), action, v);
}

// ---- strips, fans and polygons ------------------------------------------------------------

namespace {
// Scope used by begin/shapeVertex/endShape when the shape generates
// outside the actions' own calls.
thread_local PrimitiveScope* t_adHoc = nullptr;
}  // namespace

void SoShape::beginShape(SoAction* action, TriangleShape shapeType, SoDetail* detail) {
  PrimitiveScope* scope = scopeFor(this, action);
  if (!scope) {
    // Generation outside a scope of this shape: one is made until endShape().
    delete t_adHoc;
    t_adHoc = new PrimitiveScope(modeOf(action), action, this);
    scope = t_adHoc;
  }
  scope->shapeType = shapeType;
  scope->shapeDetail = detail;
  scope->inShape = true;
  scope->count = 0;
}

SoDetail* SoShape::getShapeDetail() const {
  PrimitiveScope* scope = PrimitiveScope::current();
  return scope && scope->shape == this && scope->inShape ? scope->shapeDetail : nullptr;
}

void SoShape::shapeVertex(const SoPrimitiveVertex* v) {
  PrimitiveScope* scope = PrimitiveScope::current();
  if (!scope || scope->shape != this || !scope->inShape) return;
  SoAction* action = scope->action;
  const int i = scope->count++;
  orvex::VertexSlot* ring = scope->ring;
  switch (scope->shapeType) {
    case TRIANGLES: {
      ring[i % 3].store(v);
      if (i % 3 == 2) dispatchTriangle(scope, action, ring[0].get(), ring[1].get(), ring[2].get());
      break;
    }
    case TRIANGLE_STRIP: {
      ring[i % 3].store(v);
      if (i >= 2) {
        orvex::VertexSlot& a = ring[(i - 2) % 3];
        orvex::VertexSlot& b = ring[(i - 1) % 3];
        orvex::VertexSlot& c = ring[i % 3];
        // Every other triangle is turned so that all face the same way.
        if (i % 2 == 0)
          dispatchTriangle(scope, action, a.get(), b.get(), c.get());
        else
          dispatchTriangle(scope, action, b.get(), a.get(), c.get());
      }
      break;
    }
    case TRIANGLE_FAN: {
      if (i == 0) {
        scope->first.store(v);
        break;
      }
      ring[i % 2].store(v);
      if (i >= 2) dispatchTriangle(scope, action, scope->first.get(), ring[(i - 1) % 2].get(), ring[i % 2].get());
      break;
    }
    case QUADS: {
      ring[i % 4].store(v);
      if (i % 4 == 3) {
        dispatchTriangle(scope, action, ring[0].get(), ring[1].get(), ring[2].get());
        dispatchTriangle(scope, action, ring[0].get(), ring[2].get(), ring[3].get());
      }
      break;
    }
    case QUAD_STRIP: {
      ring[i % 4].store(v);
      // Vertices 2k, 2k+1, 2k+2, 2k+3 make the quad 2k, 2k+1, 2k+3, 2k+2.
      if (i >= 3 && i % 2 == 1) {
        orvex::VertexSlot& a = ring[(i - 3) % 4];
        orvex::VertexSlot& b = ring[(i - 2) % 4];
        orvex::VertexSlot& c = ring[(i - 1) % 4];
        orvex::VertexSlot& d = ring[i % 4];
        dispatchTriangle(scope, action, a.get(), b.get(), d.get());
        dispatchTriangle(scope, action, a.get(), d.get(), c.get());
      }
      break;
    }
    case POLYGON: {
      // Slots are kept from polygon to polygon.
      if (static_cast<size_t>(i) >= scope->polygon.size()) scope->polygon.resize(static_cast<size_t>(i) + 1);
      scope->polygon[static_cast<size_t>(i)].store(v);
      break;
    }
    case POINTS:
      dispatchPoint(scope, action, v);
      break;
    case POLYLINE: {
      ring[i % 2].store(v);
      if (i >= 1) dispatchLineSegment(scope, action, ring[(i - 1) % 2].get(), ring[i % 2].get());
      break;
    }
    case LINES: {
      ring[i % 2].store(v);
      if (i % 2 == 1) dispatchLineSegment(scope, action, ring[0].get(), ring[1].get());
      break;
    }
  }
}

void SoShape::endShape() {
  PrimitiveScope* scope = PrimitiveScope::current();
  if (!scope || scope->shape != this || !scope->inShape) return;
  const size_t numVertices = static_cast<size_t>(scope->count);
  if (scope->shapeType == POLYGON && numVertices >= 3) {
    SoAction* action = scope->action;
    std::vector<orvex::VertexSlot>& slots = scope->polygon;
    bool convex = true;
    if (numVertices > 3 && action->getState()) {
      SoShapeHintsElement::VertexOrderings ordering;
      SoShapeHintsElement::ShapeTypes shapeType;
      SoShapeHintsElement::FaceTypes faceType;
      SoShapeHintsElement::get(action->getState(), ordering, shapeType, faceType);
      convex = faceType != SoShapeHintsElement::UNKNOWN_FACE_TYPE;
    }
    if (convex) {
      for (size_t k = 1; k + 1 < numVertices; ++k)
        dispatchTriangle(scope, action, slots[0].get(), slots[k].get(), slots[k + 1].get());
    } else {
      std::vector<SbVec3f> points;
      points.reserve(numVertices);
      for (size_t k = 0; k < numVertices; ++k) points.push_back(slots[k].vertex.getPoint());
      std::vector<int> triangles;
      orvex::triangulatePolygon(points, false, triangles);
      for (size_t k = 0; k + 2 < triangles.size(); k += 3)
        dispatchTriangle(scope, action, slots[static_cast<size_t>(triangles[k])].get(),
                                slots[static_cast<size_t>(triangles[k + 1])].get(),
                                slots[static_cast<size_t>(triangles[k + 2])].get());
    }
  }
  scope->inShape = false;
  scope->shapeDetail = nullptr;
  if (scope == t_adHoc) {
    delete t_adHoc;
    t_adHoc = nullptr;
  }
}

// ---- picking primitives ---------------------------------------------------------------------

namespace {
SbVec3f unitOr(const SbVec3f& v, const SbVec3f& fallback) {
  SbVec3f n = v;
  return n.normalize() > 0.0f ? n : fallback;
}
}  // namespace

void SoShape::rayPickTriangle(SoRayPickAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2,
                              const SoPrimitiveVertex* v3) {
  SbVec3f point, bary;
  bool front;
  if (!action->intersect(v1->getPoint(), v2->getPoint(), v3->getPoint(), point, bary, front)) return;
  if (!action->isBetweenPlanes(point)) return;
  SoPickedPoint* pp = action->addIntersection(point);
  if (!pp) return;
  const SbVec3f faceNormal =
      unitOr((v2->getPoint() - v1->getPoint()).cross(v3->getPoint() - v1->getPoint()), SbVec3f(0.0f, 0.0f, 1.0f));
  const SbVec3f normal =
      v1->getNormal() * bary[0] + v2->getNormal() * bary[1] + v3->getNormal() * bary[2];
  pp->setObjectNormal(unitOr(normal, faceNormal));
  const SbVec4f tex = v1->getTextureCoords() * bary[0] + v2->getTextureCoords() * bary[1] +
                      v3->getTextureCoords() * bary[2];
  pp->setObjectTextureCoords(tex);
  // The material of the vertex nearest to the point.
  const SoPrimitiveVertex* nearest = v1;
  if (bary[1] > bary[0] && bary[1] >= bary[2])
    nearest = v2;
  else if (bary[2] > bary[0] && bary[2] > bary[1])
    nearest = v3;
  pp->setMaterialIndex(nearest->getMaterialIndex());
  pp->setDetail(createTriangleDetail(action, v1, v2, v3, pp), this);
}

void SoShape::rayPickLineSegment(SoRayPickAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2) {
  SbVec3f point;
  if (!action->intersect(v1->getPoint(), v2->getPoint(), point)) return;
  if (!action->isBetweenPlanes(point)) return;
  SoPickedPoint* pp = action->addIntersection(point);
  if (!pp) return;
  const SbVec3f d = v2->getPoint() - v1->getPoint();
  const float len2 = d.dot(d);
  float t = len2 > 0.0f ? (point - v1->getPoint()).dot(d) / len2 : 0.0f;
  t = t < 0.0f ? 0.0f : (t > 1.0f ? 1.0f : t);
  pp->setObjectNormal(unitOr(v1->getNormal() * (1.0f - t) + v2->getNormal() * t, SbVec3f(0.0f, 0.0f, 1.0f)));
  pp->setObjectTextureCoords(v1->getTextureCoords() * (1.0f - t) + v2->getTextureCoords() * t);
  pp->setMaterialIndex(t < 0.5f ? v1->getMaterialIndex() : v2->getMaterialIndex());
  pp->setDetail(createLineSegmentDetail(action, v1, v2, pp), this);
}

void SoShape::rayPickPoint(SoRayPickAction* action, const SoPrimitiveVertex* v) {
  if (!action->intersect(v->getPoint())) return;
  if (!action->isBetweenPlanes(v->getPoint())) return;
  SoPickedPoint* pp = action->addIntersection(v->getPoint());
  if (!pp) return;
  pp->setObjectNormal(unitOr(v->getNormal(), SbVec3f(0.0f, 0.0f, 1.0f)));
  pp->setObjectTextureCoords(v->getTextureCoords());
  pp->setMaterialIndex(v->getMaterialIndex());
  pp->setDetail(createPointDetail(action, v, pp), this);
}

namespace {
const SoPointDetail* pointDetailOf(const SoPrimitiveVertex* v) {
  const SoDetail* d = v->getDetail();
  return d && d->isOfType(SoPointDetail::getClassTypeId()) ? static_cast<const SoPointDetail*>(d) : nullptr;
}
}  // namespace

SoDetail* SoShape::createTriangleDetail(SoRayPickAction*, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2,
                                        const SoPrimitiveVertex* v3, SoPickedPoint*) {
  const SoDetail* shapeDetail = getShapeDetail();
  const SoPointDetail* p1 = pointDetailOf(v1);
  if (!p1) {
    // Primitive shapes describe their vertices with part details.
    if (shapeDetail) return shapeDetail->copy();
    return v1->getDetail() ? v1->getDetail()->copy() : nullptr;
  }
  auto* face = shapeDetail && shapeDetail->isOfType(SoFaceDetail::getClassTypeId())
                   ? static_cast<SoFaceDetail*>(shapeDetail->copy())
                   : new SoFaceDetail;
  face->setNumPoints(3);
  face->setPoint(0, p1);
  if (const SoPointDetail* p2 = pointDetailOf(v2)) face->setPoint(1, p2);
  if (const SoPointDetail* p3 = pointDetailOf(v3)) face->setPoint(2, p3);
  return face;
}

SoDetail* SoShape::createLineSegmentDetail(SoRayPickAction*, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2,
                                           SoPickedPoint*) {
  const SoDetail* shapeDetail = getShapeDetail();
  auto* line = shapeDetail && shapeDetail->isOfType(SoLineDetail::getClassTypeId())
                   ? static_cast<SoLineDetail*>(shapeDetail->copy())
                   : new SoLineDetail;
  if (const SoPointDetail* p1 = pointDetailOf(v1)) line->setPoint0(p1);
  if (const SoPointDetail* p2 = pointDetailOf(v2)) line->setPoint1(p2);
  return line;
}

SoDetail* SoShape::createPointDetail(SoRayPickAction*, const SoPrimitiveVertex* v, SoPickedPoint*) {
  return v->getDetail() ? v->getDetail()->copy() : nullptr;
}
