#include "FaceSetCache.h"

#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/details/SoFaceDetail.h>
#include <Orvex/fields/SoMFInt32.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "ShapePrimitives.h"
#include "VertexShapeData.h"

namespace orvex {

void FaceTable::build(const SoMFInt32& coordIndex) {
  start.clear();
  size.clear();
  vertexBase.clear();
  const int n = coordIndex.getNum();
  const int32_t* ci = n > 0 ? coordIndex.getValues(0) : nullptr;
  int faceStart = 0, vertices = 0;
  for (int pos = 0; pos <= n; ++pos) {
    if (pos < n && ci[pos] >= 0) continue;
    // A -1 (or the end) closes the run begun at faceStart; empty runs are
    // no faces.
    const int count = pos - faceStart;
    if (count > 0) {
      start.push_back(faceStart);
      size.push_back(count);
      vertexBase.push_back(vertices);
      vertices += count;
    }
    faceStart = pos + 1;
  }
}

// ---- the hierarchy ---------------------------------------------------------------------

void TriangleBvh::addTriangle(const SbVec3f& a, const SbVec3f& b, const SbVec3f& c, int32_t face) {
  m_points.push_back(a);
  m_points.push_back(b);
  m_points.push_back(c);
  m_faces.push_back(face);
}

void TriangleBvh::build() {
  const int n = numTriangles();
  std::vector<int32_t> perm(static_cast<size_t>(n));
  std::vector<float> centroid(static_cast<size_t>(3 * n));
  for (int i = 0; i < n; ++i) {
    perm[static_cast<size_t>(i)] = i;
    const SbVec3f* p = &m_points[static_cast<size_t>(3 * i)];
    for (int a = 0; a < 3; ++a) centroid[static_cast<size_t>(3 * i + a)] = (p[0][a] + p[1][a] + p[2][a]) / 3.0f;
  }
  m_nodes.clear();
  m_nodes.reserve(static_cast<size_t>(n / 2 + 2));
  constexpr int kLeafSize = 4;
  struct Task {
    int node, begin, end;
  };
  // Top down: split each range at the median centroid along the axis where
  // the centroids spread most.
  std::vector<Task> tasks;
  std::vector<Task> leaves;
  m_nodes.push_back(Node{});
  tasks.push_back({0, 0, n});
  while (!tasks.empty()) {
    const Task task = tasks.back();
    tasks.pop_back();
    float lo[3] = {std::numeric_limits<float>::max(), std::numeric_limits<float>::max(),
                   std::numeric_limits<float>::max()};
    float hi[3] = {std::numeric_limits<float>::lowest(), std::numeric_limits<float>::lowest(),
                   std::numeric_limits<float>::lowest()};
    for (int i = task.begin; i < task.end; ++i) {
      const float* c = &centroid[static_cast<size_t>(3 * perm[static_cast<size_t>(i)])];
      for (int a = 0; a < 3; ++a) {
        lo[a] = std::min(lo[a], c[a]);
        hi[a] = std::max(hi[a], c[a]);
      }
    }
    int axis = 0;
    for (int a = 1; a < 3; ++a)
      if (hi[a] - lo[a] > hi[axis] - lo[axis]) axis = a;
    const int count = task.end - task.begin;
    if (count <= kLeafSize || !(hi[axis] > lo[axis])) {
      Node& leaf = m_nodes[static_cast<size_t>(task.node)];
      leaf.first = task.begin;
      leaf.count = count;
      continue;
    }
    const int mid = task.begin + count / 2;
    std::nth_element(perm.begin() + task.begin, perm.begin() + mid, perm.begin() + task.end,
                     [&](int32_t x, int32_t y) {
                       return centroid[static_cast<size_t>(3 * x + axis)] < centroid[static_cast<size_t>(3 * y + axis)];
                     });
    const int left = static_cast<int>(m_nodes.size());
    m_nodes[static_cast<size_t>(task.node)].first = left;
    m_nodes[static_cast<size_t>(task.node)].count = 0;
    m_nodes.push_back(Node{});
    m_nodes.push_back(Node{});
    tasks.push_back({left, task.begin, mid});
    tasks.push_back({left + 1, mid, task.end});
  }
  // Triangles in leaf order, each remembering its generation order.
  std::vector<SbVec3f> points(m_points.size());
  std::vector<int32_t> faces(m_faces.size());
  m_order.assign(static_cast<size_t>(n), 0);
  for (int i = 0; i < n; ++i) {
    const int t = perm[static_cast<size_t>(i)];
    for (int k = 0; k < 3; ++k) points[static_cast<size_t>(3 * i + k)] = m_points[static_cast<size_t>(3 * t + k)];
    faces[static_cast<size_t>(i)] = m_faces[static_cast<size_t>(t)];
    m_order[static_cast<size_t>(i)] = t;
  }
  m_points.swap(points);
  m_faces.swap(faces);
  // Bottom up: children come after their parent, so a backward pass sees
  // them first.
  for (size_t k = m_nodes.size(); k-- > 0;) {
    Node& node = m_nodes[k];
    for (int a = 0; a < 3; ++a) {
      node.lo[a] = std::numeric_limits<float>::max();
      node.hi[a] = std::numeric_limits<float>::lowest();
    }
    if (node.count > 0) {
      for (int i = 3 * node.first; i < 3 * (node.first + node.count); ++i)
        for (int a = 0; a < 3; ++a) {
          node.lo[a] = std::min(node.lo[a], m_points[static_cast<size_t>(i)][a]);
          node.hi[a] = std::max(node.hi[a], m_points[static_cast<size_t>(i)][a]);
        }
    } else if (node.count == 0 && node.first > 0) {
      for (const Node* child : {&m_nodes[static_cast<size_t>(node.first)], &m_nodes[static_cast<size_t>(node.first + 1)]})
        for (int a = 0; a < 3; ++a) {
          node.lo[a] = std::min(node.lo[a], child->lo[a]);
          node.hi[a] = std::max(node.hi[a], child->hi[a]);
        }
    }
  }
}

namespace {
// The parameter range of origin + t * dir inside a box; false when missed.
inline bool hitBox(const float lo[3], const float hi[3], const double o[3], const double inv[3], double& tEnter) {
  double tmin = -std::numeric_limits<double>::infinity(), tmax = std::numeric_limits<double>::infinity();
  for (int a = 0; a < 3; ++a) {
    if (std::isinf(inv[a])) {
      if (o[a] < lo[a] || o[a] > hi[a]) return false;
      continue;
    }
    double t1 = (lo[a] - o[a]) * inv[a], t2 = (hi[a] - o[a]) * inv[a];
    if (t1 > t2) std::swap(t1, t2);
    if (t1 > tmin) tmin = t1;
    if (t2 < tmax) tmax = t2;
    if (tmin > tmax) return false;
  }
  tEnter = tmin;
  return true;
}
}  // namespace

void TriangleBvh::candidateFaces(const SoRayPickAction* action, bool all, std::vector<int32_t>& result) const {
  result.clear();
  if (m_nodes.empty() || numTriangles() == 0) return;
  const SbVec3f& origin = action->getObjectOrigin();
  const SbVec3f& dir = action->getObjectDirection();
  const double o[3] = {origin[0], origin[1], origin[2]};
  double inv[3];
  for (int a = 0; a < 3; ++a)
    inv[a] = dir[a] != 0.0f ? 1.0 / dir[a] : std::numeric_limits<double>::infinity();
  // Hits found: distance along the ray and face.
  struct Hit {
    float distance;
    int32_t face;
  };
  std::vector<Hit> hits;
  double best = std::numeric_limits<double>::infinity();
  auto margin = [](double d) { return 1e-4 * (std::fabs(d) + 1.0); };

  std::vector<int32_t> stack;
  stack.push_back(0);
  while (!stack.empty()) {
    const Node& node = m_nodes[static_cast<size_t>(stack.back())];
    stack.pop_back();
    double tEnter;
    if (!hitBox(node.lo, node.hi, o, inv, tEnter)) continue;
    // The box's parameter is the distance along the world ray, as the
    // hits' are: a box entered beyond the closest hit holds nothing closer.
    if (!all && tEnter > best + margin(best)) continue;
    if (node.count == 0) {
      // Nearer child last, so that it is taken first.
      const Node& l = m_nodes[static_cast<size_t>(node.first)];
      const Node& r = m_nodes[static_cast<size_t>(node.first + 1)];
      double tl = 0, tr = 0;
      const bool hl = hitBox(l.lo, l.hi, o, inv, tl), hr = hitBox(r.lo, r.hi, o, inv, tr);
      if (hl && hr) {
        if (tl <= tr) {
          stack.push_back(node.first + 1);
          stack.push_back(node.first);
        } else {
          stack.push_back(node.first);
          stack.push_back(node.first + 1);
        }
      } else if (hl) {
        stack.push_back(node.first);
      } else if (hr) {
        stack.push_back(node.first + 1);
      }
      continue;
    }
    for (int i = node.first; i < node.first + node.count; ++i) {
      const SbVec3f* p = &m_points[static_cast<size_t>(3 * i)];
      SbVec3f point, bary;
      bool front;
      if (!action->intersect(p[0], p[1], p[2], point, bary, front)) continue;
      if (!action->isBetweenPlanes(point)) continue;
      const float distance = action->getDistance(point);
      hits.push_back({distance, m_faces[static_cast<size_t>(i)]});
      if (distance < best) best = distance;
    }
  }
  for (const Hit& h : hits)
    if (all || h.distance <= best + margin(best)) result.push_back(h.face);
  std::sort(result.begin(), result.end());
  result.erase(std::unique(result.begin(), result.end()), result.end());
}

// ---- the cache -------------------------------------------------------------------------

const FaceTable& FaceSetCache::faces(const SoIndexedFaceSet* shape) {
  std::lock_guard<std::recursive_mutex> lock(m_mutex);
  if (!m_haveFaces) {
    m_faces.build(shape->coordIndex);
    m_haveFaces = true;
  }
  return m_faces;
}

const SbBox3f& FaceSetCache::box(const SoIndexedFaceSet* shape, const VertexData& data) {
  const FaceTable& table = faces(shape);
  std::lock_guard<std::recursive_mutex> lock(m_mutex);
  if (!m_haveBox) {
    m_box.makeEmpty();
    const int32_t* ci = shape->coordIndex.getNum() > 0 ? shape->coordIndex.getValues(0) : nullptr;
    for (int f = 0; f < table.numFaces(); ++f) {
      const int s = table.start[static_cast<size_t>(f)], n = table.size[static_cast<size_t>(f)];
      for (int k = 0; k < n; ++k) m_box.extendBy(data.point(ci[s + k]));
    }
    m_haveBox = true;
  }
  return m_box;
}

namespace {
// Records the triangles a shape generates with the face each belongs to.
class BvhCollector : public PrimitiveCollector {
 public:
  explicit BvhCollector(TriangleBvh& bvh) : m_bvh(bvh) {}
  void triangle(const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2, const SoPrimitiveVertex* v3) override {
    const PrimitiveScope* scope = PrimitiveScope::current();
    const SoDetail* d = scope ? scope->shapeDetail : nullptr;
    const int32_t face =
        d && d->isOfType(SoFaceDetail::getClassTypeId()) ? static_cast<const SoFaceDetail*>(d)->getFaceIndex() : 0;
    m_bvh.addTriangle(v1->getPoint(), v2->getPoint(), v3->getPoint(), face);
  }

 private:
  TriangleBvh& m_bvh;
};
}  // namespace

const TriangleBvh& FaceSetCache::bvh(SoIndexedFaceSet* shape, SoAction* action) {
  const FaceTable& table = faces(shape);
  std::lock_guard<std::recursive_mutex> lock(m_mutex);
  if (!m_bvh) {
    auto bvh = std::make_unique<TriangleBvh>();
    BvhCollector collector(*bvh);
    {
      PrimitiveScope scope(PrimitiveScope::COLLECT, action, shape, &collector);
      shape->generateFaces(action, table, 0, table.numFaces());
    }
    bvh->build();
    m_bvh = std::move(bvh);
  }
  return *m_bvh;
}

}  // namespace orvex
