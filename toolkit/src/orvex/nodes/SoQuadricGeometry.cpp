// Sphere, cone and cylinder: tessellated primitives (as fine as the
// complexity asks), exact bounding boxes, and exact picks of the surfaces
// themselves.
//
// Around the y axis a point at angle parameter s (0 to 1) lies at
// x = -r sin(2 pi s), z = -r cos(2 pi s): s = 0 at the back (-z), a quarter
// at the left (-x), which is where texture coordinate s runs. Caps map the
// texture onto the disk: s = 0.5 + x / 2r, and t = 0.5 - z / 2r on top
// (seen from above with -z up), t = 0.5 + z / 2r underneath.

#include <Orvex/SoPickedPoint.h>
#include <Orvex/SoPrimitiveVertex.h>
#include <Orvex/actions/SoAction.h>
#include <Orvex/actions/SoRayPickAction.h>
#include <Orvex/details/SoConeDetail.h>
#include <Orvex/details/SoCylinderDetail.h>
#include <Orvex/elements/SoMaterialBindingElement.h>
#include <Orvex/elements/SoPickStyleElement.h>
#include <Orvex/nodes/SoCone.h>
#include <Orvex/nodes/SoCylinder.h>
#include <Orvex/nodes/SoSphere.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kPi = 3.14159265358979323846;

// Slices around the axis for a complexity value (at least 4).
int slicesFor(float complexity) { return std::max(4, static_cast<int>(complexity * 64.0f + 0.5f)); }

// The direction of the angle parameter s in the xz plane.
void around(double s, float& x, float& z) {
  const double a = 2.0 * kPi * s;
  x = static_cast<float>(-std::sin(a));
  z = static_cast<float>(-std::cos(a));
}

// The angle parameter of a point around the y axis, in [0, 1).
float angleParameter(float x, float z) {
  double s = std::atan2(-double(x), -double(z)) / (2.0 * kPi);
  if (s < 0.0) s += 1.0;
  if (s >= 1.0) s -= 1.0;
  return static_cast<float>(s);
}

bool perPart(SoAction* action) {
  const SoMaterialBindingElement::Binding b = SoMaterialBindingElement::get(action->getState());
  return b != SoMaterialBindingElement::OVERALL;
}

// Roots of a t^2 + b t + c = 0, ascending; answers how many.
int solveQuadratic(double a, double b, double c, double roots[2]) {
  if (a == 0.0) {
    if (b == 0.0) return 0;
    roots[0] = -c / b;
    return 1;
  }
  const double disc = b * b - 4.0 * a * c;
  if (disc < 0.0) return 0;
  const double sq = std::sqrt(disc);
  // The numerically stable pair.
  const double q = b < 0.0 ? -0.5 * (b - sq) : -0.5 * (b + sq);
  double r0 = q / a, r1 = q != 0.0 ? c / q : r0;
  if (r0 > r1) std::swap(r0, r1);
  roots[0] = r0;
  roots[1] = r1;
  return disc == 0.0 ? 1 : 2;
}

SbVec3f pointAt(SoRayPickAction* action, double t) {
  const SbVec3f& o = action->getObjectOrigin();
  const SbVec3f& d = action->getObjectDirection();
  return SbVec3f(static_cast<float>(o[0] + t * d[0]), static_cast<float>(o[1] + t * d[1]),
                 static_cast<float>(o[2] + t * d[2]));
}

// Records a hit with what the shape computed for it.
void record(SoRayPickAction* action, SoNode* shape, const SbVec3f& point, const SbVec3f& normal, const SbVec4f& tex,
            int materialIndex, SoDetail* detail) {
  if (!action->isBetweenPlanes(point)) {
    delete detail;
    return;
  }
  SoPickedPoint* pp = action->addIntersection(point);
  if (!pp) {
    delete detail;
    return;
  }
  pp->setObjectNormal(normal);
  pp->setObjectTextureCoords(tex);
  pp->setMaterialIndex(materialIndex);
  pp->setDetail(detail, shape);
}

bool usePrimitivePick(SoRayPickAction* action) {
  return SoPickStyleElement::get(action->getState()) == SoPickStyleElement::BOUNDING_BOX;
}

// A disk cap at height y facing up or down, as a fan around its center.
template <class Emit>
void capVertices(int slices, float r, float y, bool up, Emit emit) {
  SoPrimitiveVertex pv;
  pv.setNormal(0.0f, up ? 1.0f : -1.0f, 0.0f);
  auto vertexAt = [&](double s, bool center) {
    float x = 0.0f, z = 0.0f;
    if (!center) around(s, x, z);
    pv.setPoint(x * r, y, z * r);
    pv.setTextureCoords(SbVec4f(0.5f + x / 2.0f, up ? 0.5f - z / 2.0f : 0.5f + z / 2.0f, 0.0f, 1.0f));
    return pv;
  };
  // Counter-clockwise seen from the side the cap faces.
  for (int i = 0; i < slices; ++i) {
    const double s0 = double(i) / slices, s1 = double(i + 1) / slices;
    const SoPrimitiveVertex c = vertexAt(0.0, true);
    const SoPrimitiveVertex a = vertexAt(up ? s0 : s1, false);
    const SoPrimitiveVertex b = vertexAt(up ? s1 : s0, false);
    emit(c, a, b);
  }
}

}  // namespace

// ---- SoSphere --------------------------------------------------------------------------

void SoSphere::computeBBox(SoAction*, SbBox3f& box, SbVec3f& center) {
  const float r = std::fabs(radius.getValue());
  box.setBounds(SbVec3f(-r, -r, -r), SbVec3f(r, r, r));
  center.setValue(0.0f, 0.0f, 0.0f);
}

void SoSphere::generatePrimitives(SoAction* action) {
  const float r = radius.getValue();
  const int slices = slicesFor(getComplexityValue(action));
  const int stacks = std::max(2, slices / 2);
  // Ring k (0 at the top pole, stacks at the bottom), slice j.
  auto vertex = [&](int k, int j) {
    SoPrimitiveVertex pv;
    const double phi = kPi * k / stacks;
    const double s = double(j) / slices;
    float x, z;
    around(s, x, z);
    const float ring = static_cast<float>(std::sin(phi)), y = static_cast<float>(std::cos(phi));
    const SbVec3f n(x * ring, y, z * ring);
    pv.setNormal(n);
    pv.setPoint(n * r);
    // The poles take the middle of their slice, so the texture does not shear.
    const double sTex = (k == 0 || k == stacks) ? (j + 0.5) / slices : s;
    pv.setTextureCoords(SbVec4f(static_cast<float>(sTex), static_cast<float>(1.0 - double(k) / stacks), 0.0f, 1.0f));
    return pv;
  };
  beginShape(action, TRIANGLES);
  for (int k = 0; k < stacks; ++k) {
    for (int j = 0; j < slices; ++j) {
      // The quad between rings k and k + 1, counter-clockwise from outside.
      const SoPrimitiveVertex a = vertex(k, j), b = vertex(k + 1, j), c = vertex(k + 1, j + 1),
                              d = vertex(k, j + 1);
      if (k == 0) {
        const SoPrimitiveVertex pole = vertex(0, j);
        shapeVertex(&pole);
        shapeVertex(&b);
        shapeVertex(&c);
      } else if (k == stacks - 1) {
        const SoPrimitiveVertex pole = vertex(stacks, j);
        shapeVertex(&a);
        shapeVertex(&pole);
        shapeVertex(&d);
      } else {
        shapeVertex(&a);
        shapeVertex(&b);
        shapeVertex(&c);
        shapeVertex(&a);
        shapeVertex(&c);
        shapeVertex(&d);
      }
    }
  }
  endShape();
}

void SoSphere::rayPick(SoRayPickAction* action) {
  if (!shouldRayPick(action)) return;
  action->setObjectSpace();
  if (usePrimitivePick(action)) {
    rayPickBoundingBox(action);
    return;
  }
  const double r = radius.getValue();
  const SbVec3f& o = action->getObjectOrigin();
  const SbVec3f& d = action->getObjectDirection();
  const double a = double(d[0]) * d[0] + double(d[1]) * d[1] + double(d[2]) * d[2];
  const double b = 2.0 * (double(o[0]) * d[0] + double(o[1]) * d[1] + double(o[2]) * d[2]);
  const double c = double(o[0]) * o[0] + double(o[1]) * o[1] + double(o[2]) * o[2] - r * r;
  double roots[2];
  const int n = solveQuadratic(a, b, c, roots);
  for (int i = 0; i < n; ++i) {
    const SbVec3f p = pointAt(action, roots[i]);
    SbVec3f normal = p;
    if (normal.normalize() == 0.0f) normal.setValue(0.0f, 1.0f, 0.0f);
    const float t = static_cast<float>(1.0 - std::acos(std::max(-1.0f, std::min(1.0f, normal[1]))) / kPi);
    record(action, this, p, normal, SbVec4f(angleParameter(p[0], p[2]), t, 0.0f, 1.0f), 0, nullptr);
  }
}

// ---- SoCone -----------------------------------------------------------------------------

void SoCone::computeBBox(SoAction*, SbBox3f& box, SbVec3f& center) {
  const float r = std::fabs(bottomRadius.getValue()), h = std::fabs(height.getValue()) / 2;
  box.makeEmpty();
  if (hasPart(SIDES)) box.setBounds(SbVec3f(-r, -h, -r), SbVec3f(r, h, r));
  else if (hasPart(BOTTOM)) box.setBounds(SbVec3f(-r, -h, -r), SbVec3f(r, -h, r));
  center.setValue(0.0f, 0.0f, 0.0f);
}

void SoCone::generatePrimitives(SoAction* action) {
  const float r = bottomRadius.getValue(), h = height.getValue();
  const int slices = slicesFor(getComplexityValue(action));
  const bool byPart = perPart(action);
  SoConeDetail detail;
  if (hasPart(SIDES)) {
    detail.setPart(SIDES);
    beginShape(action, TRIANGLES, &detail);
    for (int i = 0; i < slices; ++i) {
      const double s0 = double(i) / slices, s1 = double(i + 1) / slices;
      auto sideVertex = [&](double s, bool apex) {
        SoPrimitiveVertex pv;
        float x, z;
        around(s, x, z);
        SbVec3f n(x * h, r, z * h);
        n.normalize();
        pv.setNormal(n);
        pv.setPoint(apex ? SbVec3f(0.0f, h / 2, 0.0f) : SbVec3f(x * r, -h / 2, z * r));
        pv.setTextureCoords(SbVec4f(static_cast<float>(s), apex ? 1.0f : 0.0f, 0.0f, 1.0f));
        pv.setMaterialIndex(0);
        pv.setDetail(&detail);
        return pv;
      };
      const SoPrimitiveVertex apex = sideVertex((s0 + s1) / 2, true), a = sideVertex(s0, false),
                              b = sideVertex(s1, false);
      shapeVertex(&apex);
      shapeVertex(&a);
      shapeVertex(&b);
    }
    endShape();
  }
  if (hasPart(BOTTOM)) {
    detail.setPart(BOTTOM);
    beginShape(action, TRIANGLES, &detail);
    capVertices(slices, r, -h / 2, false, [&](SoPrimitiveVertex c, SoPrimitiveVertex a, SoPrimitiveVertex b) {
      for (SoPrimitiveVertex* v : {&c, &a, &b}) {
        v->setMaterialIndex(byPart ? 1 : 0);
        v->setDetail(&detail);
        shapeVertex(v);
      }
    });
    endShape();
  }
}

void SoCone::rayPick(SoRayPickAction* action) {
  if (!shouldRayPick(action)) return;
  action->setObjectSpace();
  if (usePrimitivePick(action)) {
    rayPickBoundingBox(action);
    return;
  }
  const double r = bottomRadius.getValue(), h = height.getValue(), top = h / 2;
  const bool byPart = perPart(action);
  const SbVec3f& o = action->getObjectOrigin();
  const SbVec3f& d = action->getObjectDirection();
  if (hasPart(SIDES) && h != 0.0) {
    // x^2 + z^2 = (k (top - y))^2 with k = r / h.
    const double k2 = (r / h) * (r / h);
    const double oy = top - o[1];
    const double a = double(d[0]) * d[0] + double(d[2]) * d[2] - k2 * d[1] * d[1];
    const double b = 2.0 * (double(o[0]) * d[0] + double(o[2]) * d[2] + k2 * oy * d[1]);
    const double c = double(o[0]) * o[0] + double(o[2]) * o[2] - k2 * oy * oy;
    double roots[2];
    const int n = solveQuadratic(a, b, c, roots);
    for (int i = 0; i < n; ++i) {
      const SbVec3f p = pointAt(action, roots[i]);
      if (p[1] < -top || p[1] > top) continue;
      const float rho = std::sqrt(p[0] * p[0] + p[2] * p[2]);
      SbVec3f normal = rho > 0.0f ? SbVec3f(static_cast<float>(p[0] / rho * h), static_cast<float>(r),
                                            static_cast<float>(p[2] / rho * h))
                                  : SbVec3f(0.0f, 1.0f, 0.0f);
      normal.normalize();
      auto* detail = new SoConeDetail;
      detail->setPart(SIDES);
      record(action, this, p, normal,
             SbVec4f(angleParameter(p[0], p[2]), static_cast<float>((p[1] + top) / h), 0.0f, 1.0f), 0, detail);
    }
  }
  if (hasPart(BOTTOM) && d[1] != 0.0f) {
    const double t = (-top - o[1]) / d[1];
    const SbVec3f p = pointAt(action, t);
    if (double(p[0]) * p[0] + double(p[2]) * p[2] <= r * r) {
      auto* detail = new SoConeDetail;
      detail->setPart(BOTTOM);
      const float rr = static_cast<float>(r);
      record(action, this, SbVec3f(p[0], static_cast<float>(-top), p[2]), SbVec3f(0.0f, -1.0f, 0.0f),
             SbVec4f(0.5f + p[0] / (2 * rr), 0.5f + p[2] / (2 * rr), 0.0f, 1.0f), byPart ? 1 : 0, detail);
    }
  }
}

// ---- SoCylinder -------------------------------------------------------------------------

void SoCylinder::computeBBox(SoAction*, SbBox3f& box, SbVec3f& center) {
  const float r = std::fabs(radius.getValue()), h = std::fabs(height.getValue()) / 2;
  box.makeEmpty();
  if (hasPart(SIDES)) box.setBounds(SbVec3f(-r, -h, -r), SbVec3f(r, h, r));
  if (hasPart(TOP)) box.extendBy(SbBox3f(SbVec3f(-r, h, -r), SbVec3f(r, h, r)));
  if (hasPart(BOTTOM)) box.extendBy(SbBox3f(SbVec3f(-r, -h, -r), SbVec3f(r, -h, r)));
  center.setValue(0.0f, 0.0f, 0.0f);
}

void SoCylinder::generatePrimitives(SoAction* action) {
  const float r = radius.getValue(), h = height.getValue();
  const int slices = slicesFor(getComplexityValue(action));
  const bool byPart = perPart(action);
  SoCylinderDetail detail;
  if (hasPart(SIDES)) {
    detail.setPart(SIDES);
    beginShape(action, TRIANGLES, &detail);
    auto sideVertex = [&](double s, bool upper) {
      SoPrimitiveVertex pv;
      float x, z;
      around(s, x, z);
      pv.setNormal(x, 0.0f, z);
      pv.setPoint(x * r, upper ? h / 2 : -h / 2, z * r);
      pv.setTextureCoords(SbVec4f(static_cast<float>(s), upper ? 1.0f : 0.0f, 0.0f, 1.0f));
      pv.setMaterialIndex(0);
      pv.setDetail(&detail);
      return pv;
    };
    for (int i = 0; i < slices; ++i) {
      const double s0 = double(i) / slices, s1 = double(i + 1) / slices;
      const SoPrimitiveVertex a = sideVertex(s0, true), b = sideVertex(s0, false), c = sideVertex(s1, false),
                              d = sideVertex(s1, true);
      for (const SoPrimitiveVertex* v : {&a, &b, &c, &a, &c, &d}) shapeVertex(v);
    }
    endShape();
  }
  for (const PartType part : {TOP, BOTTOM}) {
    if (!hasPart(part)) continue;
    detail.setPart(part);
    beginShape(action, TRIANGLES, &detail);
    const bool up = part == TOP;
    capVertices(slices, r, up ? h / 2 : -h / 2, up, [&](SoPrimitiveVertex c, SoPrimitiveVertex a, SoPrimitiveVertex b) {
      for (SoPrimitiveVertex* v : {&c, &a, &b}) {
        v->setMaterialIndex(byPart ? (up ? 1 : 2) : 0);
        v->setDetail(&detail);
        shapeVertex(v);
      }
    });
    endShape();
  }
}

void SoCylinder::rayPick(SoRayPickAction* action) {
  if (!shouldRayPick(action)) return;
  action->setObjectSpace();
  if (usePrimitivePick(action)) {
    rayPickBoundingBox(action);
    return;
  }
  const double r = radius.getValue(), h = height.getValue(), top = h / 2;
  const bool byPart = perPart(action);
  const SbVec3f& o = action->getObjectOrigin();
  const SbVec3f& d = action->getObjectDirection();
  if (hasPart(SIDES)) {
    const double a = double(d[0]) * d[0] + double(d[2]) * d[2];
    const double b = 2.0 * (double(o[0]) * d[0] + double(o[2]) * d[2]);
    const double c = double(o[0]) * o[0] + double(o[2]) * o[2] - r * r;
    double roots[2];
    const int n = a > 0.0 ? solveQuadratic(a, b, c, roots) : 0;
    for (int i = 0; i < n; ++i) {
      const SbVec3f p = pointAt(action, roots[i]);
      if (p[1] < -top || p[1] > top) continue;
      SbVec3f normal(p[0], 0.0f, p[2]);
      normal.normalize();
      auto* detail = new SoCylinderDetail;
      detail->setPart(SIDES);
      record(action, this, p, normal,
             SbVec4f(angleParameter(p[0], p[2]), static_cast<float>((p[1] + top) / h), 0.0f, 1.0f), 0, detail);
    }
  }
  for (const PartType part : {TOP, BOTTOM}) {
    if (!hasPart(part) || d[1] == 0.0f) continue;
    const bool up = part == TOP;
    const double y = up ? top : -top;
    const double t = (y - o[1]) / d[1];
    const SbVec3f p = pointAt(action, t);
    if (double(p[0]) * p[0] + double(p[2]) * p[2] > r * r) continue;
    auto* detail = new SoCylinderDetail;
    detail->setPart(part);
    const float rr = static_cast<float>(r);
    record(action, this, SbVec3f(p[0], static_cast<float>(y), p[2]), SbVec3f(0.0f, up ? 1.0f : -1.0f, 0.0f),
           SbVec4f(0.5f + p[0] / (2 * rr), up ? 0.5f - p[2] / (2 * rr) : 0.5f + p[2] / (2 * rr), 0.0f, 1.0f),
           byPart ? (up ? 1 : 2) : 0, detail);
  }
}
