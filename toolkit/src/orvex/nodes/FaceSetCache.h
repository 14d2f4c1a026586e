#pragma once
// What an indexed face set keeps between traversals for one set of
// coordinates: its face table, the box of the coordinates it uses, and
// (built on the first accelerated pick) a bounding-volume hierarchy over
// the triangles it generates. A change of the shape or of its coordinates
// (a new node id, array or count) makes a new cache.

#include <Orvex/SbBox3f.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

class SoAction;
class SoIndexedFaceSet;
class SoMFInt32;
class SoRayPickAction;

namespace orvex {

struct VertexData;

// Where each face of an indexed face set starts in coordIndex, how many
// vertices it has, and the number of its first vertex among all vertices
// (for per-vertex bindings that are not indexed).
struct FaceTable {
  std::vector<int32_t> start;
  std::vector<int32_t> size;
  std::vector<int32_t> vertexBase;
  int numFaces() const { return static_cast<int>(start.size()); }
  void build(const SoMFInt32& coordIndex);
};

// The coordinates a cache was made for.
struct CoordinateKey {
  uint64_t nodeId = 0;
  const void* data = nullptr;
  int32_t num = 0;
  bool operator==(const CoordinateKey& o) const { return nodeId == o.nodeId && data == o.data && num == o.num; }
};

// A bounding-volume hierarchy over triangles in object space.
class TriangleBvh {
 public:
  void addTriangle(const SbVec3f& a, const SbVec3f& b, const SbVec3f& c, int32_t face);
  void build();
  int numTriangles() const { return static_cast<int>(m_faces.size()); }
  // The faces whose triangles the ray of `action` (in its object space)
  // hits between its planes, ascending: every such face when `all`, else
  // those whose hit is as close as the closest one (allowing for rounding).
  void candidateFaces(const SoRayPickAction* action, bool all, std::vector<int32_t>& faces) const;

 private:
  struct Node {
    float lo[3];
    float hi[3];
    int32_t first;  // leaf: first triangle; inner: index of the left child (right follows it)
    int32_t count;  // leaf: number of triangles; inner: 0
  };
  std::vector<SbVec3f> m_points;  // three per triangle, in leaf order after build()
  std::vector<int32_t> m_faces;   // per triangle
  std::vector<int32_t> m_order;   // per triangle: its position in generation order
  std::vector<Node> m_nodes;
};

class FaceSetCache {
 public:
  FaceSetCache(uint64_t shapeId, const CoordinateKey& key) : m_shapeId(shapeId), m_key(key) {}
  bool matches(uint64_t shapeId, const CoordinateKey& key) const { return shapeId == m_shapeId && key == m_key; }

  const FaceTable& faces(const SoIndexedFaceSet* shape);
  // The box of the coordinates the faces use.
  const SbBox3f& box(const SoIndexedFaceSet* shape, const VertexData& data);
  // Built from the shape's own primitives the first time.
  const TriangleBvh& bvh(SoIndexedFaceSet* shape, SoAction* action);

 private:
  std::recursive_mutex m_mutex;  // generating faces may come back for the box
  uint64_t m_shapeId;
  CoordinateKey m_key;
  bool m_haveFaces = false;
  FaceTable m_faces;
  bool m_haveBox = false;
  SbBox3f m_box;
  std::unique_ptr<TriangleBvh> m_bvh;
};

}  // namespace orvex
