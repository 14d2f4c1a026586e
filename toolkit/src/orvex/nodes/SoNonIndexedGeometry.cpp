// The shapes that take consecutive coordinates from startIndex on: point,
// line, face and triangle strip sets. Per-vertex normals, materials and
// texture coordinates are numbered from 0 at the shape's first vertex.

#include <Orvex/SoPrimitiveVertex.h>
#include <Orvex/actions/SoAction.h>
#include <Orvex/details/SoFaceDetail.h>
#include <Orvex/details/SoLineDetail.h>
#include <Orvex/details/SoPointDetail.h>
#include <Orvex/nodes/SoFaceSet.h>
#include <Orvex/nodes/SoLineSet.h>
#include <Orvex/nodes/SoPointSet.h>
#include <Orvex/nodes/SoTriangleStripSet.h>

#include <algorithm>
#include <vector>

#include "VertexShapeData.h"

using orvex::VertexData;

namespace {

// The sizes of the parts (faces, strips, polylines) given by a numVertices
// field: -1 takes the coordinates that remain, and no part runs past the
// last coordinate.
std::vector<int> partSizes(const SoMFInt32& numVertices, int start, int numCoords) {
  std::vector<int> sizes;
  int pos = start;
  for (int i = 0; i < numVertices.getNum(); ++i) {
    int n = numVertices[i];
    if (n < 0) n = numCoords - pos;
    n = std::max(0, std::min(n, numCoords - pos));
    sizes.push_back(n);
    pos += n;
  }
  return sizes;
}

int total(const std::vector<int>& sizes) {
  int sum = 0;
  for (int n : sizes) sum += n;
  return sum;
}

SbBox3f coordinateBox(const VertexData& d, int start, int num) {
  SbBox3f box;
  for (int i = 0; i < num; ++i) box.extendBy(d.point(start + i));
  return box;
}

bool perPart(SoMaterialBindingElement::Binding b) {
  return b == SoMaterialBindingElement::PER_PART || b == SoMaterialBindingElement::PER_PART_INDEXED;
}
bool perFace(SoMaterialBindingElement::Binding b) {
  return b == SoMaterialBindingElement::PER_FACE || b == SoMaterialBindingElement::PER_FACE_INDEXED;
}
bool perVertex(SoMaterialBindingElement::Binding b) {
  return b == SoMaterialBindingElement::PER_VERTEX || b == SoMaterialBindingElement::PER_VERTEX_INDEXED;
}
// Normal bindings share the values of material bindings.
SoMaterialBindingElement::Binding asBinding(SoNormalBindingElement::Binding b) {
  return static_cast<SoMaterialBindingElement::Binding>(b);
}

// The index of a vertex's value under a binding, from the vertex number and
// the numbers of its part and face.
int boundIndex(SoMaterialBindingElement::Binding b, int vertex, int part, int face) {
  if (perVertex(b)) return vertex;
  if (perFace(b)) return face;
  if (perPart(b)) return part;
  return 0;
}

void setCenterOf(const SbBox3f& box, SbVec3f& center) {
  center = box.isEmpty() ? SbVec3f(0.0f, 0.0f, 0.0f) : box.getCenter();
}

// Bounding box of the coordinates that the parts of a numVertices field take.
void partsBox(const VertexData& d, int start, const SoMFInt32& numVertices, SbBox3f& box, SbVec3f& center) {
  box = coordinateBox(d, start, total(partSizes(numVertices, start, d.numCoords())));
  setCenterOf(box, center);
}

// Fills a primitive vertex and its point detail for shape vertex `vertex`
// (coordinate `coord`); texture coordinates are numbered like the vertices.
void describeVertex(const VertexData& d, int vertex, int coord, const SbVec3f& normal, int normalIndex,
                    int materialIndex, SoPrimitiveVertex& pv, SoPointDetail& pd) {
  const SbVec3f& p = d.point(coord);
  pv.setPoint(p);
  pv.setNormal(normal);
  pv.setMaterialIndex(materialIndex);
  pv.setTextureCoords(d.texCoords(vertex, p, normal));
  pd.setCoordinateIndex(coord);
  pd.setMaterialIndex(materialIndex);
  pd.setNormalIndex(normalIndex);
  pd.setTextureCoordIndex(vertex);
}

}  // namespace

// ---- SoPointSet -------------------------------------------------------------------------

void SoPointSet::computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) {
  const VertexData d(action);
  const int start = startIndex.getValue(), numCoords = d.numCoords();
  int n = numPoints.getValue();
  if (n < 0) n = numCoords - start;
  n = std::max(0, std::min(n, numCoords - start));
  box = coordinateBox(d, start, n);
  setCenterOf(box, center);
}

void SoPointSet::generatePrimitives(SoAction* action) {
  VertexData d(action);
  const int start = startIndex.getValue(), numCoords = d.numCoords();
  int n = numPoints.getValue();
  if (n < 0) n = numCoords - start;
  n = std::max(0, std::min(n, numCoords - start));
  if (d.needsTextureBox()) d.setTextureBox(coordinateBox(d, start, n));
  SoPrimitiveVertex pv;
  SoPointDetail pd;
  pv.setDetail(&pd);
  for (int i = 0; i < n; ++i) {
    const int c = start + i;
    const int ni = d.generateNormals ? -1 : boundIndex(asBinding(d.normalBinding), i, i, i);
    const SbVec3f normal = ni < 0 ? SbVec3f(0.0f, 0.0f, 1.0f) : d.normals->get(ni);
    const int mi = boundIndex(d.materialBinding, i, i, i);
    describeVertex(d, i, c, normal, std::max(ni, 0), mi, pv, pd);
    invokePointCallbacks(action, &pv);
  }
}

// ---- SoLineSet --------------------------------------------------------------------------

void SoLineSet::computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) {
  partsBox(VertexData(action), startIndex.getValue(), numVertices, box, center);
}

// Line sets bind PER_PART values to segments and PER_FACE values to polylines.
void SoLineSet::generatePrimitives(SoAction* action) {
  VertexData d(action);
  const int start = startIndex.getValue();
  const std::vector<int> sizes = partSizes(numVertices, start, d.numCoords());
  if (d.needsTextureBox()) d.setTextureBox(coordinateBox(d, start, total(sizes)));
  SoPrimitiveVertex pv;
  SoPointDetail pd;
  SoLineDetail ld;
  int vertex = 0, segment = 0;
  for (int line = 0; line < static_cast<int>(sizes.size()); ++line) {
    const int n = sizes[static_cast<size_t>(line)];
    ld.setPartIndex(line);
    for (int k = 0; k + 1 < n; ++k, ++segment) {
      ld.setLineIndex(segment);
      beginShape(action, LINES, &ld);
      for (int e = 0; e < 2; ++e) {
        const int v = vertex + k + e;
        const int c = start + v;
        const int ni = d.generateNormals ? -1 : boundIndex(asBinding(d.normalBinding), v, segment, line);
        const SbVec3f normal = ni < 0 ? SbVec3f(0.0f, 0.0f, 1.0f) : d.normals->get(ni);
        const int mi = boundIndex(d.materialBinding, v, segment, line);
        describeVertex(d, v, c, normal, std::max(ni, 0), mi, pv, pd);
        pv.setDetail(&pd);
        shapeVertex(&pv);
      }
      endShape();
    }
    vertex += n;
  }
}

// ---- SoFaceSet --------------------------------------------------------------------------

void SoFaceSet::computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) {
  partsBox(VertexData(action), startIndex.getValue(), numVertices, box, center);
}

void SoFaceSet::generatePrimitives(SoAction* action) {
  VertexData d(action);
  const int start = startIndex.getValue();
  const std::vector<int> sizes = partSizes(numVertices, start, d.numCoords());
  if (d.needsTextureBox()) d.setTextureBox(coordinateBox(d, start, total(sizes)));
  SoPrimitiveVertex pv;
  SoPointDetail pd;
  SoFaceDetail fd;
  std::vector<SbVec3f> points;
  int vertex = 0;
  for (int face = 0; face < static_cast<int>(sizes.size()); vertex += sizes[static_cast<size_t>(face)], ++face) {
    const int n = sizes[static_cast<size_t>(face)];
    if (n < 3) continue;
    SbVec3f faceNormal;
    if (d.generateNormals) {
      points.clear();
      for (int k = 0; k < n; ++k) points.push_back(d.point(start + vertex + k));
      faceNormal = orvex::polygonNormal(points.data(), n);
      if (d.clockwise) faceNormal = -faceNormal;
    }
    fd.setFaceIndex(face);
    fd.setPartIndex(face);
    beginShape(action, POLYGON, &fd);
    for (int k = 0; k < n; ++k) {
      const int v = vertex + k;
      const int c = start + v;
      const int ni = d.generateNormals ? face : boundIndex(asBinding(d.normalBinding), v, face, face);
      const SbVec3f normal = d.generateNormals ? faceNormal : d.normals->get(ni);
      const int mi = boundIndex(d.materialBinding, v, face, face);
      describeVertex(d, v, c, normal, ni, mi, pv, pd);
      pv.setDetail(&pd);
      shapeVertex(&pv);
    }
    endShape();
  }
}

// ---- SoTriangleStripSet -----------------------------------------------------------------

void SoTriangleStripSet::computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) {
  partsBox(VertexData(action), startIndex.getValue(), numVertices, box, center);
}

// Each strip is a part; each of its triangles a face (numbered through the
// whole shape). Every other triangle is turned so all face the same way.
void SoTriangleStripSet::generatePrimitives(SoAction* action) {
  VertexData d(action);
  const int start = startIndex.getValue();
  const std::vector<int> sizes = partSizes(numVertices, start, d.numCoords());
  if (d.needsTextureBox()) d.setTextureBox(coordinateBox(d, start, total(sizes)));
  SoPrimitiveVertex pv;
  SoPointDetail pd;
  SoFaceDetail fd;
  int vertex = 0, face = 0;
  for (int strip = 0; strip < static_cast<int>(sizes.size()); vertex += sizes[static_cast<size_t>(strip)], ++strip) {
    const int n = sizes[static_cast<size_t>(strip)];
    fd.setPartIndex(strip);
    for (int i = 2; i < n; ++i, ++face) {
      int tri[3] = {vertex + i - 2, vertex + i - 1, vertex + i};
      if (i % 2 == 1) std::swap(tri[0], tri[1]);
      SbVec3f faceNormal;
      if (d.generateNormals) {
        const SbVec3f pts[3] = {d.point(start + tri[0]), d.point(start + tri[1]),
                                d.point(start + tri[2])};
        faceNormal = orvex::polygonNormal(pts, 3);
        if (d.clockwise) faceNormal = -faceNormal;
      }
      fd.setFaceIndex(face);
      beginShape(action, TRIANGLES, &fd);
      for (int v : tri) {
        const int c = start + v;
        const int ni = d.generateNormals ? face : boundIndex(asBinding(d.normalBinding), v, strip, face);
        const SbVec3f normal = d.generateNormals ? faceNormal : d.normals->get(ni);
        const int mi = boundIndex(d.materialBinding, v, strip, face);
        describeVertex(d, v, c, normal, ni, mi, pv, pd);
        pv.setDetail(&pd);
        shapeVertex(&pv);
      }
      endShape();
    }
  }
}
