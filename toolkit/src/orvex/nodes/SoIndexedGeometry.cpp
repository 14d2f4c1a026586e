// The indexed shapes: line and face sets through coordIndex (-1 ends a
// polyline or a face). Indexed bindings use materialIndex, normalIndex and
// textureCoordIndex, or coordIndex when those are left at their default;
// per-vertex bindings that are not indexed number the vertices from 0.

#include <Orvex/SoPrimitiveVertex.h>
#include <Orvex/actions/SoAction.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/details/SoFaceDetail.h>
#include <Orvex/details/SoLineDetail.h>
#include <Orvex/details/SoPointDetail.h>
#include <Orvex/elements/SoPickStyleElement.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoIndexedLineSet.h>

#include <vector>

#include "FaceSetCache.h"
#include "ShapePrimitives.h"
#include "VertexShapeData.h"

using orvex::VertexData;

namespace {

// The values of an index field at a position, or the fallback when the
// field is not used or too short.
struct Indices {
  Indices(const SoMFInt32& field) : used(orvex::indicesUsed(field)), num(field.getNum()),
                                    values(field.getNum() > 0 ? field.getValues(0) : nullptr) {}
  int at(int pos, int fallback) const { return used && pos < num ? values[pos] : fallback; }
  bool used;
  int num;
  const int32_t* values;
};

// Which value a vertex takes under a binding: per vertex (indexed or in
// order), per face (indexed or in order), per part, or one for all.
int bound(int binding, const Indices& indices, int pos, int coord, int vertex, int face, int part) {
  switch (binding) {
    case SoMaterialBindingElement::PER_VERTEX_INDEXED:
      return indices.at(pos, coord);
    case SoMaterialBindingElement::PER_VERTEX:
      return vertex;
    case SoMaterialBindingElement::PER_FACE_INDEXED:
      return indices.at(face, face);
    case SoMaterialBindingElement::PER_FACE:
      return face;
    case SoMaterialBindingElement::PER_PART_INDEXED:
      return indices.at(part, part);
    case SoMaterialBindingElement::PER_PART:
      return part;
    default:
      return 0;
  }
}

orvex::CoordinateKey keyOf(SoAction* action) {
  orvex::CoordinateKey key;
  if (const SoCoordinateElement* c = SoCoordinateElement::getInstance(action->getState())) {
    key.nodeId = c->getNodeId();
    key.data = c->is3D() ? static_cast<const void*>(c->getArrayPtr3()) : static_cast<const void*>(c->getArrayPtr4());
    key.num = c->getNum();
  }
  return key;
}

// The model matrix keeps distances along the ray proportional (no
// projective part), which the pick search structure relies on.
bool isAffine(const SbMatrix& m) { return m[0][3] == 0.0f && m[1][3] == 0.0f && m[2][3] == 0.0f && m[3][3] == 1.0f; }

constexpr int kMinFacesForSearch = 64;

}  // namespace

// ---- SoIndexedLineSet -------------------------------------------------------------------

void SoIndexedLineSet::computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) {
  const VertexData d(action);
  box.makeEmpty();
  for (int i = 0; i < coordIndex.getNum(); ++i)
    if (coordIndex[i] >= 0) box.extendBy(d.point(coordIndex[i]));
  center = box.isEmpty() ? SbVec3f(0.0f, 0.0f, 0.0f) : box.getCenter();
}

// Line sets bind PER_PART values to segments and PER_FACE values to polylines.
void SoIndexedLineSet::generatePrimitives(SoAction* action) {
  VertexData d(action);
  if (d.needsTextureBox()) {
    SbBox3f box;
    SbVec3f center;
    computeBBox(action, box, center);
    d.setTextureBox(box);
  }
  const int n = coordIndex.getNum();
  const int32_t* ci = n > 0 ? coordIndex.getValues(0) : nullptr;
  const Indices mi(materialIndex), ni(normalIndex), ti(textureCoordIndex);
  SoPrimitiveVertex pv;
  SoPointDetail pd;
  SoLineDetail ld;
  int line = 0, segment = 0, vertex = 0, lineStart = 0;
  for (int pos = 0; pos <= n; ++pos) {
    if (pos < n && ci[pos] >= 0) continue;
    const int count = pos - lineStart;
    if (count == 0) {
      lineStart = pos + 1;
      continue;
    }
    ld.setPartIndex(line);
    for (int k = 0; k + 1 < count; ++k, ++segment) {
      ld.setLineIndex(segment);
      beginShape(action, LINES, &ld);
      for (int e = 0; e < 2; ++e) {
        const int p = lineStart + k + e, v = vertex + k + e, c = ci[p];
        const SbVec3f& point = d.point(c);
        const int nIndex =
            d.generateNormals ? -1 : bound(d.normalBinding, ni, p, c, v, line, segment);
        const SbVec3f normal = nIndex < 0 ? SbVec3f(0.0f, 0.0f, 1.0f) : d.normals->get(nIndex);
        const int mIndex = bound(d.materialBinding, mi, p, c, v, line, segment);
        const int tIndex = d.texBinding == SoTextureCoordinateBindingElement::PER_VERTEX ? v : ti.at(p, c);
        pv.setPoint(point);
        pv.setNormal(normal);
        pv.setMaterialIndex(mIndex);
        pv.setTextureCoords(d.texCoords(tIndex, point, normal));
        pd.setCoordinateIndex(c);
        pd.setMaterialIndex(mIndex);
        pd.setNormalIndex(nIndex < 0 ? 0 : nIndex);
        pd.setTextureCoordIndex(tIndex);
        pv.setDetail(&pd);
        shapeVertex(&pv);
      }
      endShape();
    }
    vertex += count;
    ++line;
    lineStart = pos + 1;
  }
}

// ---- SoIndexedFaceSet -------------------------------------------------------------------

std::shared_ptr<orvex::FaceSetCache> SoIndexedFaceSet::cacheFor(SoAction* action) {
  const orvex::CoordinateKey key = keyOf(action);
  std::lock_guard<std::mutex> lock(m_cacheMutex);
  if (!m_cache || !m_cache->matches(getNodeId(), key)) m_cache = std::make_shared<orvex::FaceSetCache>(getNodeId(), key);
  return m_cache;
}

void SoIndexedFaceSet::computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) {
  const VertexData d(action);
  box = cacheFor(action)->box(this, d);
  center = box.isEmpty() ? SbVec3f(0.0f, 0.0f, 0.0f) : box.getCenter();
}

void SoIndexedFaceSet::generatePrimitives(SoAction* action) {
  const std::shared_ptr<orvex::FaceSetCache> cache = cacheFor(action);
  const orvex::FaceTable& faces = cache->faces(this);
  generateFaces(action, faces, 0, faces.numFaces());
}

void SoIndexedFaceSet::generateFaces(SoAction* action, const orvex::FaceTable& faces, int first, int last) {
  VertexData d(action);
  if (d.needsTextureBox()) d.setTextureBox(cacheFor(action)->box(this, d));
  const int32_t* ci = coordIndex.getNum() > 0 ? coordIndex.getValues(0) : nullptr;
  const Indices mi(materialIndex), ni(normalIndex), ti(textureCoordIndex);
  SoPrimitiveVertex pv, triangle[3];
  SoPointDetail pd, triangleDetails[3];
  SoFaceDetail fd;
  std::vector<SbVec3f> points;
  for (int f = first; f < last; ++f) {
    const int start = faces.start[static_cast<size_t>(f)], n = faces.size[static_cast<size_t>(f)];
    const int vertexBase = faces.vertexBase[static_cast<size_t>(f)];
    if (n < 3) continue;
    // The face's points, read once.
    if (static_cast<int>(points.size()) < n) points.resize(static_cast<size_t>(n));
    for (int k = 0; k < n; ++k) points[static_cast<size_t>(k)] = d.point(ci[start + k]);
    SbVec3f faceNormal;
    if (d.generateNormals) {
      faceNormal = orvex::polygonNormal(points.data(), n);
      if (d.clockwise) faceNormal = -faceNormal;
    }
    fd.setFaceIndex(f);
    fd.setPartIndex(f);
    // A triangle goes out as it is, without the polygon's copies.
    const bool isTriangle = n == 3;
    beginShape(action, isTriangle ? TRIANGLES : POLYGON, &fd);
    for (int k = 0; k < n; ++k) {
      const int p = start + k, v = vertexBase + k, c = ci[p];
      const SbVec3f& point = points[static_cast<size_t>(k)];
      const int nIndex = d.generateNormals ? f : bound(d.normalBinding, ni, p, c, v, f, f);
      const SbVec3f normal = d.generateNormals ? faceNormal : d.normals->get(nIndex);
      const int mIndex = bound(d.materialBinding, mi, p, c, v, f, f);
      const int tIndex = d.texBinding == SoTextureCoordinateBindingElement::PER_VERTEX ? v : ti.at(p, c);
      SoPrimitiveVertex& vertex = isTriangle ? triangle[k] : pv;
      SoPointDetail& detail = isTriangle ? triangleDetails[k] : pd;
      vertex.setPoint(point);
      vertex.setNormal(normal);
      vertex.setMaterialIndex(mIndex);
      vertex.setTextureCoords(d.texCoords(tIndex, point, normal));
      detail.setCoordinateIndex(c);
      detail.setMaterialIndex(mIndex);
      detail.setNormalIndex(nIndex);
      detail.setTextureCoordIndex(tIndex);
      vertex.setDetail(&detail);
      if (!isTriangle) shapeVertex(&vertex);
    }
    if (isTriangle) invokeTriangleCallbacks(action, &triangle[0], &triangle[1], &triangle[2]);
    endShape();
  }
}

void SoIndexedFaceSet::rayPick(SoRayPickAction* action) {
  if (!shouldRayPick(action)) return;
  action->setObjectSpace();
  if (SoPickStyleElement::get(action->getState()) == SoPickStyleElement::BOUNDING_BOX) {
    rayPickBoundingBox(action);
    return;
  }
  const std::shared_ptr<orvex::FaceSetCache> cache = cacheFor(action);
  const orvex::FaceTable& faces = cache->faces(this);
  if (!SoRayPickAction::isAccelerationEnabled() || faces.numFaces() < kMinFacesForSearch ||
      !isAffine(action->getObjectToWorld())) {
    rayPickPrimitives(action);
    return;
  }
  // The search finds the faces that can matter; they are then picked
  // exactly as a full pass would pick them, in the same order.
  std::vector<int32_t> candidates;
  cache->bvh(this, action).candidateFaces(action, action->isPickAll(), candidates);
  orvex::PrimitiveScope scope(orvex::PrimitiveScope::RAYPICK, action, this);
  for (int32_t f : candidates) generateFaces(action, faces, f, f + 1);
}
