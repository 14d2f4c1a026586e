// Measures, in one run, the traversal actions on a mesh of 1,000,000
// triangles (an SoIndexedFaceSet with its SoCoordinate3) against plain C++
// loops over the same triangles, and prints the figures and their ratios:
//  - the first-hit ray pick, testing every triangle (the search structure
//    switched off), the first pick that builds the structure, and the picks
//    after it; the floor tests every triangle of plain arrays;
//  - the bounding box, computed afresh and from the caches; the floor runs
//    over the triangles' vertices;
//  - triangles per second delivered to a triangle callback; the floor
//    hands the same triangles to a function through a pointer.
// The picks' results are compared with each other and with the floor's.
// Nothing is asserted: the program only reports.

#include <Orvex/SoDB.h>
#include <Orvex/SoPickedPoint.h>
#include <Orvex/SoPrimitiveVertex.h>
#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/actions/SoGetBoundingBoxAction.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/details/SoFaceDetail.h>
#include <Orvex/nodes/SoCoordinate3.h>
#include <Orvex/nodes/SoIndexedFaceSet.h>
#include <Orvex/nodes/SoSeparator.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point a, Clock::time_point b) { return std::chrono::duration<double>(b - a).count(); }

template <class F>
double bestOf(int runs, F f) {
  double best = 1e30;
  for (int i = 0; i < runs; ++i) {
    const auto t0 = Clock::now();
    f();
    best = std::min(best, seconds(t0, Clock::now()));
  }
  return best;
}

void row(const char* what, double ours, double floor, const char* floorName) {
  std::printf("  %-40s %10.3f ms   %-24s %10.3f ms   ratio %9.4f\n", what, ours * 1e3, floorName, floor * 1e3,
              floor > 0 ? ours / floor : 0.0);
}

// ---- the mesh ---------------------------------------------------------------------------

constexpr int kQuadsX = 1000, kQuadsY = 500;  // 2 triangles per quad: 1,000,000

struct Mesh {
  std::vector<SbVec3f> points;
  std::vector<int32_t> index;  // three per triangle, then -1
  int numTriangles() const { return static_cast<int>(index.size() / 4); }
};

Mesh makeMesh() {
  Mesh m;
  const int row = kQuadsX + 1;
  for (int y = 0; y <= kQuadsY; ++y)
    for (int x = 0; x <= kQuadsX; ++x)
      m.points.emplace_back(x * 0.01f, y * 0.01f, 0.05f * std::sin(x * 0.05f) * std::cos(y * 0.07f));
  m.index.reserve(static_cast<size_t>(kQuadsX) * kQuadsY * 8);
  for (int y = 0; y < kQuadsY; ++y)
    for (int x = 0; x < kQuadsX; ++x) {
      const int a = y * row + x;
      m.index.insert(m.index.end(), {a, a + 1, a + row + 1, -1, a, a + row + 1, a + row, -1});
    }
  return m;
}

// ---- the floors -------------------------------------------------------------------------

// The nearest hit of a ray over every triangle, as plain arrays allow.
struct FloorHit {
  double t = std::numeric_limits<double>::infinity();
  int triangle = -1;
};

FloorHit floorPick(const Mesh& m, const SbVec3f& o, const SbVec3f& d) {
  FloorHit best;
  const int32_t* idx = m.index.data();
  const SbVec3f* p = m.points.data();
  for (int t = 0, n = m.numTriangles(); t < n; ++t) {
    const SbVec3f& v0 = p[idx[4 * t]];
    const SbVec3f& v1 = p[idx[4 * t + 1]];
    const SbVec3f& v2 = p[idx[4 * t + 2]];
    const double e1x = v1[0] - v0[0], e1y = v1[1] - v0[1], e1z = v1[2] - v0[2];
    const double e2x = v2[0] - v0[0], e2y = v2[1] - v0[1], e2z = v2[2] - v0[2];
    const double px = d[1] * e2z - d[2] * e2y, py = d[2] * e2x - d[0] * e2z, pz = d[0] * e2y - d[1] * e2x;
    const double det = e1x * px + e1y * py + e1z * pz;
    if (det == 0.0) continue;
    const double inv = 1.0 / det;
    const double tx = o[0] - v0[0], ty = o[1] - v0[1], tz = o[2] - v0[2];
    const double u = (tx * px + ty * py + tz * pz) * inv;
    if (u < 0.0 || u > 1.0) continue;
    const double qx = ty * e1z - tz * e1y, qy = tz * e1x - tx * e1z, qz = tx * e1y - ty * e1x;
    const double v = (d[0] * qx + d[1] * qy + d[2] * qz) * inv;
    if (v < 0.0 || u + v > 1.0) continue;
    const double dist = (e2x * qx + e2y * qy + e2z * qz) * inv;
    if (dist >= 0.0 && dist < best.t) {
      best.t = dist;
      best.triangle = t;
    }
  }
  return best;
}

SbBox3f floorBox(const Mesh& m) {
  float lo[3] = {1e30f, 1e30f, 1e30f}, hi[3] = {-1e30f, -1e30f, -1e30f};
  const int32_t* idx = m.index.data();
  for (int t = 0, n = m.numTriangles(); t < n; ++t)
    for (int k = 0; k < 3; ++k) {
      const SbVec3f& p = m.points[static_cast<size_t>(idx[4 * t + k])];
      for (int a = 0; a < 3; ++a) {
        lo[a] = std::min(lo[a], p[a]);
        hi[a] = std::max(hi[a], p[a]);
      }
    }
  return SbBox3f(lo[0], lo[1], lo[2], hi[0], hi[1], hi[2]);
}

// A triangle handed to a function, as a callback receives it.
struct PlainVertex {
  SbVec3f point;
  int index;
};
using PlainTriangleCB = void (*)(void*, const PlainVertex*, const PlainVertex*, const PlainVertex*);

void countPlain(void* data, const PlainVertex* a, const PlainVertex* b, const PlainVertex* c) {
  auto* sum = static_cast<double*>(data);
  *sum += a->point[2] + b->point[2] + c->point[2];
}

void floorTriangles(const Mesh& m, volatile PlainTriangleCB cb, void* data) {
  PlainVertex v[3];
  const int32_t* idx = m.index.data();
  for (int t = 0, n = m.numTriangles(); t < n; ++t) {
    for (int k = 0; k < 3; ++k) {
      v[k].index = idx[4 * t + k];
      v[k].point = m.points[static_cast<size_t>(v[k].index)];
    }
    cb(data, &v[0], &v[1], &v[2]);
  }
}

void countTriangle(void* data, SoCallbackAction*, const SoPrimitiveVertex* a, const SoPrimitiveVertex* b,
                   const SoPrimitiveVertex* c) {
  auto* sum = static_cast<double*>(data);
  *sum += a->getPoint()[2] + b->getPoint()[2] + c->getPoint()[2];
}

// ---- rays -------------------------------------------------------------------------------

struct Ray {
  SbVec3f start, dir;
};

std::vector<Ray> makeRays(int n) {
  std::mt19937 rng(3);
  std::uniform_real_distribution<float> x(0.0f, kQuadsX * 0.01f), y(0.0f, kQuadsY * 0.01f), tilt(-0.3f, 0.3f);
  std::vector<Ray> rays;
  for (int i = 0; i < n; ++i) {
    const SbVec3f target(x(rng), y(rng), 0.0f);
    const SbVec3f start = target + SbVec3f(tilt(rng), tilt(rng), 1.0f) * 3.0f;
    rays.push_back({start, target - start});
  }
  return rays;
}

struct PickResult {
  bool hit = false;
  SbVec3f point;
  SbVec3f normal;
  int face = -1;
};

PickResult pick(SoRayPickAction& action, SoNode* root, const Ray& ray) {
  action.setRay(ray.start, ray.dir);
  action.apply(root);
  PickResult r;
  if (const SoPickedPoint* pp = action.getPickedPoint()) {
    r.hit = true;
    r.point = pp->getPoint();
    r.normal = pp->getNormal();
    if (const auto* face = static_cast<const SoFaceDetail*>(pp->getDetail())) r.face = face->getFaceIndex();
  }
  return r;
}

bool same(const PickResult& a, const PickResult& b) {
  return a.hit == b.hit && (!a.hit || (a.point == b.point && a.normal == b.normal && a.face == b.face));
}

}  // namespace

int main() {
  SoDB::init();
  std::printf("Traversal benchmark: %d x %d quads, %d triangles\n", kQuadsX, kQuadsY, 2 * kQuadsX * kQuadsY);
  const Mesh mesh = makeMesh();

  auto* root = new SoSeparator;
  root->ref();
  auto* coords = new SoCoordinate3;
  coords->point.setValues(0, static_cast<int>(mesh.points.size()), mesh.points.data());
  auto* faces = new SoIndexedFaceSet;
  faces->coordIndex.setValues(0, static_cast<int>(mesh.index.size()), mesh.index.data());
  root->addChild(coords);
  root->addChild(faces);
  const SbViewportRegion viewport(512, 512);

  // ---- bounding box ----
  std::printf("\nBounding box\n");
  SbBox3f floorResult;
  const double floorBoxTime = bestOf(5, [&] { floorResult = floorBox(mesh); });
  SoGetBoundingBoxAction bbox(viewport);
  SbBox3f ours;
  const double coldBox = bestOf(5, [&] {
    faces->coordIndex.touch();  // the shape and the separator start afresh
    bbox.apply(root);
    ours = bbox.getBoundingBox();
  });
  row("afresh (face table and box)", coldBox, floorBoxTime, "loop over triangles");
  const double warmBox = bestOf(5, [&] {
    bbox.apply(root);
    ours = bbox.getBoundingBox();
  });
  row("again (separator cache)", warmBox, floorBoxTime, "loop over triangles");
  std::printf("  same box as the floor: %s\n", ours == floorResult ? "yes" : "NO");

  // ---- picks ----
  std::printf("\nFirst-hit ray pick\n");
  const std::vector<Ray> rays = makeRays(200);
  SoRayPickAction action(viewport);
  // The floor: every triangle of plain arrays.
  std::vector<FloorHit> floorHits;
  const auto f0 = Clock::now();
  for (int i = 0; i < 20; ++i) floorHits.push_back(floorPick(mesh, rays[static_cast<size_t>(i)].start, rays[static_cast<size_t>(i)].dir));
  const double floorPickTime = seconds(f0, Clock::now()) / 20;

  SoRayPickAction::setAccelerationEnabled(false);
  std::vector<PickResult> brute;
  const auto b0 = Clock::now();
  for (int i = 0; i < 20; ++i) brute.push_back(pick(action, root, rays[static_cast<size_t>(i)]));
  const double bruteTime = seconds(b0, Clock::now()) / 20;
  row("every triangle, per pick", bruteTime, floorPickTime, "every triangle, per pick");

  SoRayPickAction::setAccelerationEnabled(true);
  faces->coordIndex.touch();  // no structure yet
  const auto a0 = Clock::now();
  PickResult first = pick(action, root, rays[0]);
  const double firstTime = seconds(a0, Clock::now());
  row("first pick with search structure", firstTime, floorPickTime, "every triangle, per pick");
  std::vector<PickResult> fast;
  fast.push_back(first);
  const auto a1 = Clock::now();
  for (size_t i = 1; i < rays.size(); ++i) fast.push_back(pick(action, root, rays[i]));
  const double fastTime = seconds(a1, Clock::now()) / static_cast<double>(rays.size() - 1);
  row("later picks, per pick", fastTime, floorPickTime, "every triangle, per pick");

  int identical = 0, agreeWithFloor = 0, hits = 0;
  for (int i = 0; i < 20; ++i) {
    identical += same(brute[static_cast<size_t>(i)], fast[static_cast<size_t>(i)]) ? 1 : 0;
    const FloorHit& fh = floorHits[static_cast<size_t>(i)];
    const PickResult& r = brute[static_cast<size_t>(i)];
    hits += r.hit ? 1 : 0;
    if (r.hit == (fh.triangle >= 0)) {
      if (!r.hit) {
        ++agreeWithFloor;
      } else {
        const Ray& ray = rays[static_cast<size_t>(i)];
        SbVec3f dir = ray.dir;
        const SbVec3f expected = ray.start + dir * static_cast<float>(fh.t);
        if ((expected - r.point).length() < 1e-4f && r.face == fh.triangle) ++agreeWithFloor;
      }
    }
  }
  std::printf("  with and without the structure, identical results: %d of 20 (%d hits)\n", identical, hits);
  std::printf("  hits at the floor's point and triangle:            %d of 20\n", agreeWithFloor);
  SoRayPickAction::setAccelerationEnabled(false);
  int identicalLater = 0;
  for (size_t i = 20; i < rays.size(); i += 20) identicalLater += same(pick(action, root, rays[i]), fast[i]) ? 1 : 0;
  std::printf("  spot checks of later picks, identical:             %d of %zu\n", identicalLater, (rays.size() - 20) / 20);
  SoRayPickAction::setAccelerationEnabled(true);

  // ---- triangle callback ----
  std::printf("\nTriangles delivered to a triangle callback\n");
  double sumOurs = 0, sumFloor = 0;
  SoCallbackAction callback(viewport);
  callback.addTriangleCallback(SoIndexedFaceSet::getClassTypeId(), &countTriangle, &sumOurs);
  const double oursTime = bestOf(3, [&] {
    sumOurs = 0;
    callback.apply(root);
  });
  const double floorTime = bestOf(3, [&] {
    sumFloor = 0;
    floorTriangles(mesh, &countPlain, &sumFloor);
  });
  const double n = mesh.numTriangles();
  std::printf("  %-40s %10.1f M/s   %-24s %10.1f M/s   ratio %7.2f (time)\n", "SoCallbackAction", n / oursTime / 1e6,
              "function pointer loop", n / floorTime / 1e6, oursTime / floorTime);
  std::printf("  the same triangles: %s\n", std::fabs(sumOurs - sumFloor) < 1e-3 * (1 + std::fabs(sumFloor)) ? "yes" : "NO");

  root->unref();
  return 0;
}
