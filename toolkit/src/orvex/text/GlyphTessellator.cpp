#include "GlyphTessellator.h"

#include <algorithm>
#include <cmath>

namespace orvex {
namespace text {

namespace {

double cross(const SbVec2f& a, const SbVec2f& b, const SbVec2f& c) {
  return (double(b[0]) - a[0]) * (double(c[1]) - a[1]) - (double(b[1]) - a[1]) * (double(c[0]) - a[0]);
}

double signedArea(const Contour& c) {
  double area = 0.0;
  for (size_t i = 0, n = c.size(); i < n; ++i) {
    const SbVec2f& a = c[i];
    const SbVec2f& b = c[(i + 1) % n];
    area += double(a[0]) * b[1] - double(b[0]) * a[1];
  }
  return area / 2.0;
}

bool containsPoint(const Contour& c, const SbVec2f& p) {
  bool inside = false;
  for (size_t i = 0, j = c.size() - 1; i < c.size(); j = i++) {
    const SbVec2f& a = c[i];
    const SbVec2f& b = c[j];
    if ((a[1] > p[1]) != (b[1] > p[1]) && p[0] < (b[0] - a[0]) * (p[1] - a[1]) / (b[1] - a[1]) + a[0]) inside = !inside;
  }
  return inside;
}

// Drops repeated points (the closing one too) and contours without area.
void clean(std::vector<Contour>& contours) {
  for (Contour& c : contours) {
    Contour out;
    for (const SbVec2f& p : c)
      if (out.empty() || out.back() != p) out.push_back(p);
    while (out.size() > 1 && out.front() == out.back()) out.pop_back();
    c.swap(out);
  }
  contours.erase(std::remove_if(contours.begin(), contours.end(),
                                [](const Contour& c) { return c.size() < 3 || std::fabs(signedArea(c)) < 1e-9; }),
                 contours.end());
}

// Whether the segments p1-p2 and q1-q2 cross at a point inside both.
bool segmentsCross(const SbVec2f& p1, const SbVec2f& p2, const SbVec2f& q1, const SbVec2f& q2) {
  const double d1 = cross(q1, q2, p1), d2 = cross(q1, q2, p2);
  const double d3 = cross(p1, p2, q1), d4 = cross(p1, p2, q2);
  return ((d1 > 0 && d2 < 0) || (d1 < 0 && d2 > 0)) && ((d3 > 0 && d4 < 0) || (d3 < 0 && d4 > 0));
}

bool crossesAny(const SbVec2f& a, const SbVec2f& b, const Contour& c) {
  for (size_t i = 0, n = c.size(); i < n; ++i) {
    const SbVec2f& p = c[i];
    const SbVec2f& q = c[(i + 1) % n];
    if (p == a || p == b || q == a || q == b) continue;
    if (segmentsCross(a, b, p, q)) return true;
  }
  return false;
}

// Whether the direction from vertex i of a ring towards p leaves into the
// filled side (the ring has its filled area on the left). Rings that touch
// themselves at bridge vertices have several copies of a point; only one
// copy's corner holds a given direction.
bool locallyInside(const Contour& ring, size_t i, const SbVec2f& p) {
  const size_t n = ring.size();
  const SbVec2f& prev = ring[(i + n - 1) % n];
  const SbVec2f& v = ring[i];
  const SbVec2f& next = ring[(i + 1) % n];
  if (cross(prev, v, next) >= 0) return cross(v, next, p) > 0 && cross(v, p, prev) > 0;
  // A reflex corner: everything but the outer wedge from prev round to next.
  return cross(v, prev, p) < 0 || cross(v, p, next) < 0;
}

// Joins a hole to the polygon around it by a pair of edges from the hole's
// rightmost vertex to the nearest polygon vertex it sees, making one
// polygon. `others` are the holes still to join (the bridge must not cross
// them either).
void bridgeHole(Contour& polygon, const Contour& hole, const std::vector<const Contour*>& others) {
  size_t m = 0;
  for (size_t i = 1; i < hole.size(); ++i)
    if (hole[i][0] > hole[m][0]) m = i;
  const SbVec2f& from = hole[m];
  size_t best = polygon.size();
  double bestDistance = 0.0;
  for (size_t v = 0; v < polygon.size(); ++v) {
    const SbVec2f d = polygon[v] - from;
    const double distance = double(d[0]) * d[0] + double(d[1]) * d[1];
    if (best != polygon.size() && distance >= bestDistance) continue;
    if (!locallyInside(polygon, v, from) || !locallyInside(hole, m, polygon[v])) continue;
    if (crossesAny(from, polygon[v], polygon) || crossesAny(from, polygon[v], hole)) continue;
    bool blocked = false;
    for (const Contour* other : others)
      if (crossesAny(from, polygon[v], *other)) blocked = true;
    if (blocked) continue;
    best = v;
    bestDistance = distance;
  }
  if (best == polygon.size()) return;  // nothing visible: the hole stays open
  Contour joined(polygon.begin(), polygon.begin() + static_cast<std::ptrdiff_t>(best) + 1);
  for (size_t k = 0; k <= hole.size(); ++k) joined.push_back(hole[(m + k) % hole.size()]);
  joined.push_back(polygon[best]);
  joined.insert(joined.end(), polygon.begin() + static_cast<std::ptrdiff_t>(best) + 1, polygon.end());
  polygon.swap(joined);
}

bool inTriangle(const SbVec2f& p, const SbVec2f& a, const SbVec2f& b, const SbVec2f& c) {
  return cross(a, b, p) >= 0 && cross(b, c, p) >= 0 && cross(c, a, p) >= 0;
}

bool strictlyInTriangle(const SbVec2f& p, const SbVec2f& a, const SbVec2f& b, const SbVec2f& c) {
  return cross(a, b, p) > 0 && cross(b, c, p) > 0 && cross(c, a, p) > 0;
}

// Ear clipping of a counterclockwise polygon that may touch itself at the
// bridge vertices (points at an ear's corners never block it).
// Rounding can leave a polygon whose every corner has a point on an edge
// of its ear: then points on the boundary no longer block (`strict`).
void clipEars(const Contour& polygon, int base, std::vector<int>& triangles) {
  std::vector<int> rest(polygon.size());
  for (size_t i = 0; i < rest.size(); ++i) rest[i] = static_cast<int>(i);
  bool strict = false;
  while (rest.size() > 3) {
    const size_t n = rest.size();
    bool clipped = false;
    for (size_t k = 0; k < n && !clipped; ++k) {
      const int ia = rest[(k + n - 1) % n], ib = rest[k], ic = rest[(k + 1) % n];
      const SbVec2f& a = polygon[static_cast<size_t>(ia)];
      const SbVec2f& b = polygon[static_cast<size_t>(ib)];
      const SbVec2f& c = polygon[static_cast<size_t>(ic)];
      const double turn = cross(a, b, c);
      if (turn < 0) continue;
      bool empty = true;
      if (turn > 0) {
        for (size_t j = 0; j < n && empty; ++j) {
          const SbVec2f& p = polygon[static_cast<size_t>(rest[j])];
          if (p == a || p == b || p == c) continue;
          if (strict ? strictlyInTriangle(p, a, b, c) : inTriangle(p, a, b, c)) empty = false;
        }
      }
      if (!empty) continue;
      // A flat corner is dropped without a triangle.
      if (turn > 0) triangles.insert(triangles.end(), {base + ia, base + ib, base + ic});
      rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(k));
      clipped = true;
    }
    if (clipped) {
      strict = false;
      continue;
    }
    if (strict) return;  // self-crossing outline: what is left stays unfilled
    strict = true;
  }
  if (rest.size() == 3) {
    const SbVec2f& a = polygon[static_cast<size_t>(rest[0])];
    const SbVec2f& b = polygon[static_cast<size_t>(rest[1])];
    const SbVec2f& c = polygon[static_cast<size_t>(rest[2])];
    if (cross(a, b, c) > 0) triangles.insert(triangles.end(), {base + rest[0], base + rest[1], base + rest[2]});
  }
}

}  // namespace

TessellatedGlyph tessellate(std::vector<Contour> contours) {
  TessellatedGlyph out;
  clean(contours);
  const size_t n = contours.size();
  // Nesting depth of each contour: how many others contain it.
  std::vector<int> depth(n, 0);
  std::vector<double> area(n);
  for (size_t i = 0; i < n; ++i) area[i] = std::fabs(signedArea(contours[i]));
  for (size_t i = 0; i < n; ++i)
    for (size_t j = 0; j < n; ++j)
      if (i != j && area[j] > area[i] && containsPoint(contours[j], contours[i][0])) ++depth[i];
  for (size_t i = 0; i < n; ++i) {
    const bool hole = depth[i] % 2 == 1;
    const double a = signedArea(contours[i]);
    if ((a > 0) == hole) std::reverse(contours[i].begin(), contours[i].end());
  }
  out.contours = contours;
  // Each hole belongs to the smallest outer contour containing it.
  std::vector<std::vector<size_t>> holesOf(n);
  for (size_t h = 0; h < n; ++h) {
    if (depth[h] % 2 == 0) continue;
    size_t parent = n;
    for (size_t o = 0; o < n; ++o)
      if (depth[o] == depth[h] - 1 && area[o] > area[h] && containsPoint(contours[o], contours[h][0]) &&
          (parent == n || area[o] < area[parent]))
        parent = o;
    if (parent != n) holesOf[parent].push_back(h);
  }
  for (size_t o = 0; o < n; ++o) {
    if (depth[o] % 2 == 1) continue;
    std::vector<size_t>& holes = holesOf[o];
    // Rightmost holes first, so later bridges see the earlier ones.
    auto maxX = [&](size_t h) {
      float x = contours[h][0][0];
      for (const SbVec2f& p : contours[h]) x = std::max(x, p[0]);
      return x;
    };
    std::sort(holes.begin(), holes.end(), [&](size_t a, size_t b) { return maxX(a) > maxX(b); });
    Contour polygon = contours[o];
    for (size_t k = 0; k < holes.size(); ++k) {
      std::vector<const Contour*> others;
      for (size_t r = k + 1; r < holes.size(); ++r) others.push_back(&contours[holes[r]]);
      bridgeHole(polygon, contours[holes[k]], others);
    }
    const int base = static_cast<int>(out.vertices.size());
    out.vertices.insert(out.vertices.end(), polygon.begin(), polygon.end());
    clipEars(polygon, base, out.triangles);
  }
  return out;
}

}  // namespace text
}  // namespace orvex
