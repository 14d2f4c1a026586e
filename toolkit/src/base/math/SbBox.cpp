// The axis-aligned box classes. Every class shares the templates below; the
// members only bind them to their corner type.
#include <Orvex/SbBox2f.h>
#include <Orvex/SbBox3f.h>
#include <Orvex/SbBox2d.h>
#include <Orvex/SbBox3d.h>
#include <Orvex/SbBox2i32.h>
#include <Orvex/SbBox3i32.h>
#include <Orvex/SbBox4i32.h>
#include <Orvex/SbBox2s.h>
#include <Orvex/SbBox3s.h>
#include <Orvex/SbMatrix.h>

#include <algorithm>
#include <type_traits>

namespace {
template <typename V, int N>
bool emptyBox(const V& min, const V& max) {
  for (int i = 0; i < N; ++i)
    if (min[i] > max[i]) return true;
  return false;
}

template <typename V, int N>
bool positiveExtent(const V& min, const V& max) {
  for (int i = 0; i < N; ++i)
    if (!(min[i] < max[i])) return false;
  return true;
}

template <typename V, int N>
V centerOf(const V& min, const V& max) {
  V c;
  if (emptyBox<V, N>(min, max)) return c;
  for (int i = 0; i < N; ++i) c[i] = static_cast<typename std::decay<decltype(c[0])>::type>((min[i] + max[i]) / 2);
  return c;
}

template <typename V, int N>
V sizeOf(const V& min, const V& max) {
  V s;
  if (emptyBox<V, N>(min, max)) return s;
  for (int i = 0; i < N; ++i) s[i] = static_cast<typename std::decay<decltype(s[0])>::type>(max[i] - min[i]);
  return s;
}

template <typename V, int N>
void extendByPoint(V& min, V& max, const V& pt) {
  for (int i = 0; i < N; ++i) {
    min[i] = std::min(min[i], pt[i]);
    max[i] = std::max(max[i], pt[i]);
  }
}

template <typename V, int N>
bool containsPoint(const V& min, const V& max, const V& pt) {
  for (int i = 0; i < N; ++i)
    if (pt[i] < min[i] || pt[i] > max[i]) return false;
  return true;
}

template <typename V, int N>
bool overlaps(const V& min, const V& max, const V& omin, const V& omax) {
  if (emptyBox<V, N>(min, max) || emptyBox<V, N>(omin, omax)) return false;
  for (int i = 0; i < N; ++i)
    if (omax[i] < min[i] || omin[i] > max[i]) return false;
  return true;
}

template <typename V, int N>
V closestPoint(const V& min, const V& max, const V& pt) {
  V r;
  for (int i = 0; i < N; ++i) r[i] = std::clamp(pt[i], min[i], max[i]);
  return r;
}

// The axis-aligned box around the eight transformed corners.
template <typename V, typename M>
void transformBox(V& min, V& max, const M& m) {
  if (emptyBox<V, 3>(min, max)) return;
  const V lo = min, hi = max;
  V nmin, nmax;
  bool first = true;
  for (int c = 0; c < 8; ++c) {
    V p((c & 1) ? hi[0] : lo[0], (c & 2) ? hi[1] : lo[1], (c & 4) ? hi[2] : lo[2]);
    m.multVecMatrix(p, p);
    if (first) {
      nmin = nmax = p;
      first = false;
    } else {
      extendByPoint<V, 3>(nmin, nmax, p);
    }
  }
  min = nmin;
  max = nmax;
}
}  // namespace

// SbBox2f
SbVec2f SbBox2f::getCenter() const { return centerOf<SbVec2f, 2>(m_min, m_max); }
SbVec2f SbBox2f::getSize() const { return sizeOf<SbVec2f, 2>(m_min, m_max); }
bool SbBox2f::isEmpty() const { return emptyBox<SbVec2f, 2>(m_min, m_max); }
bool SbBox2f::hasArea() const { return positiveExtent<SbVec2f, 2>(m_min, m_max); }
void SbBox2f::extendBy(const SbVec2f& pt) { extendByPoint<SbVec2f, 2>(m_min, m_max, pt); }
void SbBox2f::extendBy(const SbBox2f& box) {
  if (box.isEmpty()) return;
  extendBy(box.m_min);
  extendBy(box.m_max);
}
bool SbBox2f::intersect(const SbVec2f& pt) const { return containsPoint<SbVec2f, 2>(m_min, m_max, pt); }
bool SbBox2f::intersect(const SbBox2f& box) const { return overlaps<SbVec2f, 2>(m_min, m_max, box.m_min, box.m_max); }
SbVec2f SbBox2f::getClosestPoint(const SbVec2f& pt) const { return closestPoint<SbVec2f, 2>(m_min, m_max, pt); }
float SbBox2f::getArea() const {
  if (isEmpty()) return 0;
  const SbVec2f s = getSize();
  return s[0] * s[1];
}
float SbBox2f::getAspectRatio() const {
  const SbVec2f s = getSize();
  return s[1] > 0 ? s[0] / s[1] : 0;
}

// SbBox3f
SbVec3f SbBox3f::getCenter() const { return centerOf<SbVec3f, 3>(m_min, m_max); }
SbVec3f SbBox3f::getSize() const { return sizeOf<SbVec3f, 3>(m_min, m_max); }
bool SbBox3f::isEmpty() const { return emptyBox<SbVec3f, 3>(m_min, m_max); }
bool SbBox3f::hasVolume() const { return positiveExtent<SbVec3f, 3>(m_min, m_max); }
void SbBox3f::extendBy(const SbVec3f& pt) { extendByPoint<SbVec3f, 3>(m_min, m_max, pt); }
void SbBox3f::extendBy(const SbBox3f& box) {
  if (box.isEmpty()) return;
  extendBy(box.m_min);
  extendBy(box.m_max);
}
bool SbBox3f::intersect(const SbVec3f& pt) const { return containsPoint<SbVec3f, 3>(m_min, m_max, pt); }
bool SbBox3f::intersect(const SbBox3f& box) const { return overlaps<SbVec3f, 3>(m_min, m_max, box.m_min, box.m_max); }
SbVec3f SbBox3f::getClosestPoint(const SbVec3f& pt) const { return closestPoint<SbVec3f, 3>(m_min, m_max, pt); }
float SbBox3f::getVolume() const {
  if (isEmpty()) return 0;
  const SbVec3f s = getSize();
  return s[0] * s[1] * s[2];
}
void SbBox3f::enlarge(float amount) {
  if (isEmpty()) return;
  m_min -= SbVec3f(amount, amount, amount);
  m_max += SbVec3f(amount, amount, amount);
}
void SbBox3f::transform(const SbMatrix& m) { transformBox(m_min, m_max, m); }

// SbBox2d
SbVec2d SbBox2d::getCenter() const { return centerOf<SbVec2d, 2>(m_min, m_max); }
SbVec2d SbBox2d::getSize() const { return sizeOf<SbVec2d, 2>(m_min, m_max); }
bool SbBox2d::isEmpty() const { return emptyBox<SbVec2d, 2>(m_min, m_max); }
bool SbBox2d::hasArea() const { return positiveExtent<SbVec2d, 2>(m_min, m_max); }
void SbBox2d::extendBy(const SbVec2d& pt) { extendByPoint<SbVec2d, 2>(m_min, m_max, pt); }
void SbBox2d::extendBy(const SbBox2d& box) {
  if (box.isEmpty()) return;
  extendBy(box.m_min);
  extendBy(box.m_max);
}
bool SbBox2d::intersect(const SbVec2d& pt) const { return containsPoint<SbVec2d, 2>(m_min, m_max, pt); }
bool SbBox2d::intersect(const SbBox2d& box) const { return overlaps<SbVec2d, 2>(m_min, m_max, box.m_min, box.m_max); }
SbVec2d SbBox2d::getClosestPoint(const SbVec2d& pt) const { return closestPoint<SbVec2d, 2>(m_min, m_max, pt); }
double SbBox2d::getArea() const {
  if (isEmpty()) return 0;
  const SbVec2d s = getSize();
  return s[0] * s[1];
}
double SbBox2d::getAspectRatio() const {
  const SbVec2d s = getSize();
  return s[1] > 0 ? s[0] / s[1] : 0;
}

// SbBox3d
SbVec3d SbBox3d::getCenter() const { return centerOf<SbVec3d, 3>(m_min, m_max); }
SbVec3d SbBox3d::getSize() const { return sizeOf<SbVec3d, 3>(m_min, m_max); }
bool SbBox3d::isEmpty() const { return emptyBox<SbVec3d, 3>(m_min, m_max); }
bool SbBox3d::hasVolume() const { return positiveExtent<SbVec3d, 3>(m_min, m_max); }
void SbBox3d::extendBy(const SbVec3d& pt) { extendByPoint<SbVec3d, 3>(m_min, m_max, pt); }
void SbBox3d::extendBy(const SbBox3d& box) {
  if (box.isEmpty()) return;
  extendBy(box.m_min);
  extendBy(box.m_max);
}
bool SbBox3d::intersect(const SbVec3d& pt) const { return containsPoint<SbVec3d, 3>(m_min, m_max, pt); }
bool SbBox3d::intersect(const SbBox3d& box) const { return overlaps<SbVec3d, 3>(m_min, m_max, box.m_min, box.m_max); }
SbVec3d SbBox3d::getClosestPoint(const SbVec3d& pt) const { return closestPoint<SbVec3d, 3>(m_min, m_max, pt); }
double SbBox3d::getVolume() const {
  if (isEmpty()) return 0;
  const SbVec3d s = getSize();
  return s[0] * s[1] * s[2];
}
void SbBox3d::enlarge(double amount) {
  if (isEmpty()) return;
  m_min -= SbVec3d(amount, amount, amount);
  m_max += SbVec3d(amount, amount, amount);
}
void SbBox3d::transform(const SbMatrixd& m) { transformBox(m_min, m_max, m); }

// SbBox2i32
SbVec2i32 SbBox2i32::getCenter() const { return centerOf<SbVec2i32, 2>(m_min, m_max); }
SbVec2i32 SbBox2i32::getSize() const { return sizeOf<SbVec2i32, 2>(m_min, m_max); }
bool SbBox2i32::isEmpty() const { return emptyBox<SbVec2i32, 2>(m_min, m_max); }
bool SbBox2i32::hasArea() const { return positiveExtent<SbVec2i32, 2>(m_min, m_max); }
void SbBox2i32::extendBy(const SbVec2i32& pt) { extendByPoint<SbVec2i32, 2>(m_min, m_max, pt); }
void SbBox2i32::extendBy(const SbBox2i32& box) {
  if (box.isEmpty()) return;
  extendBy(box.m_min);
  extendBy(box.m_max);
}
bool SbBox2i32::intersect(const SbVec2i32& pt) const { return containsPoint<SbVec2i32, 2>(m_min, m_max, pt); }
bool SbBox2i32::intersect(const SbBox2i32& box) const { return overlaps<SbVec2i32, 2>(m_min, m_max, box.m_min, box.m_max); }

// SbBox3i32
SbVec3i32 SbBox3i32::getCenter() const { return centerOf<SbVec3i32, 3>(m_min, m_max); }
SbVec3i32 SbBox3i32::getSize() const { return sizeOf<SbVec3i32, 3>(m_min, m_max); }
bool SbBox3i32::isEmpty() const { return emptyBox<SbVec3i32, 3>(m_min, m_max); }
bool SbBox3i32::hasVolume() const { return positiveExtent<SbVec3i32, 3>(m_min, m_max); }
void SbBox3i32::extendBy(const SbVec3i32& pt) { extendByPoint<SbVec3i32, 3>(m_min, m_max, pt); }
void SbBox3i32::extendBy(const SbBox3i32& box) {
  if (box.isEmpty()) return;
  extendBy(box.m_min);
  extendBy(box.m_max);
}
bool SbBox3i32::intersect(const SbVec3i32& pt) const { return containsPoint<SbVec3i32, 3>(m_min, m_max, pt); }
bool SbBox3i32::intersect(const SbBox3i32& box) const { return overlaps<SbVec3i32, 3>(m_min, m_max, box.m_min, box.m_max); }

// SbBox4i32
SbVec4i32 SbBox4i32::getCenter() const { return centerOf<SbVec4i32, 4>(m_min, m_max); }
SbVec4i32 SbBox4i32::getSize() const { return sizeOf<SbVec4i32, 4>(m_min, m_max); }
bool SbBox4i32::isEmpty() const { return emptyBox<SbVec4i32, 4>(m_min, m_max); }
bool SbBox4i32::hasVolume() const { return positiveExtent<SbVec4i32, 4>(m_min, m_max); }
void SbBox4i32::extendBy(const SbVec4i32& pt) { extendByPoint<SbVec4i32, 4>(m_min, m_max, pt); }
void SbBox4i32::extendBy(const SbBox4i32& box) {
  if (box.isEmpty()) return;
  extendBy(box.m_min);
  extendBy(box.m_max);
}
bool SbBox4i32::intersect(const SbVec4i32& pt) const { return containsPoint<SbVec4i32, 4>(m_min, m_max, pt); }
bool SbBox4i32::intersect(const SbBox4i32& box) const { return overlaps<SbVec4i32, 4>(m_min, m_max, box.m_min, box.m_max); }

// SbBox2s
SbVec2s SbBox2s::getCenter() const { return centerOf<SbVec2s, 2>(m_min, m_max); }
SbVec2s SbBox2s::getSize() const { return sizeOf<SbVec2s, 2>(m_min, m_max); }
bool SbBox2s::isEmpty() const { return emptyBox<SbVec2s, 2>(m_min, m_max); }
bool SbBox2s::hasArea() const { return positiveExtent<SbVec2s, 2>(m_min, m_max); }
void SbBox2s::extendBy(const SbVec2s& pt) { extendByPoint<SbVec2s, 2>(m_min, m_max, pt); }
void SbBox2s::extendBy(const SbBox2s& box) {
  if (box.isEmpty()) return;
  extendBy(box.m_min);
  extendBy(box.m_max);
}
bool SbBox2s::intersect(const SbVec2s& pt) const { return containsPoint<SbVec2s, 2>(m_min, m_max, pt); }
bool SbBox2s::intersect(const SbBox2s& box) const { return overlaps<SbVec2s, 2>(m_min, m_max, box.m_min, box.m_max); }

// SbBox3s
SbVec3s SbBox3s::getCenter() const { return centerOf<SbVec3s, 3>(m_min, m_max); }
SbVec3s SbBox3s::getSize() const { return sizeOf<SbVec3s, 3>(m_min, m_max); }
bool SbBox3s::isEmpty() const { return emptyBox<SbVec3s, 3>(m_min, m_max); }
bool SbBox3s::hasVolume() const { return positiveExtent<SbVec3s, 3>(m_min, m_max); }
void SbBox3s::extendBy(const SbVec3s& pt) { extendByPoint<SbVec3s, 3>(m_min, m_max, pt); }
void SbBox3s::extendBy(const SbBox3s& box) {
  if (box.isEmpty()) return;
  extendBy(box.m_min);
  extendBy(box.m_max);
}
bool SbBox3s::intersect(const SbVec3s& pt) const { return containsPoint<SbVec3s, 3>(m_min, m_max, pt); }
bool SbBox3s::intersect(const SbBox3s& box) const { return overlaps<SbVec3s, 3>(m_min, m_max, box.m_min, box.m_max); }
