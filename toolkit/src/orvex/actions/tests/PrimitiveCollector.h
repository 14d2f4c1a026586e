#pragma once
// Collects what a callback action hands to primitive callbacks.

#include <Orvex/SoPrimitiveVertex.h>
#include <Orvex/actions/SoCallbackAction.h>
#include <Orvex/details/SoConeDetail.h>
#include <Orvex/details/SoCubeDetail.h>
#include <Orvex/details/SoCylinderDetail.h>
#include <Orvex/details/SoPointDetail.h>
#include <Orvex/nodes/SoShape.h>

#include <memory>
#include <vector>

namespace actiontest {

// A vertex as it was handed over, with a copy of its detail.
struct Vertex {
  SbVec3f point;
  SbVec3f normal;
  SbVec4f tex;
  int material;
  std::shared_ptr<SoDetail> detail;
  int part() const;  // of a cube, cone or cylinder detail; -1 otherwise
  const SoPointDetail* pointDetail() const {
    return detail && detail->isOfType(SoPointDetail::getClassTypeId()) ? static_cast<SoPointDetail*>(detail.get())
                                                                      : nullptr;
  }
};

struct Primitives {
  std::vector<std::vector<Vertex>> triangles;
  std::vector<std::vector<Vertex>> segments;
  std::vector<Vertex> points;
  // Registers for every shape on the action.
  void attach(SoCallbackAction& action) {
    action.addTriangleCallback(SoShape::getClassTypeId(), &triangle, this);
    action.addLineSegmentCallback(SoShape::getClassTypeId(), &segment, this);
    action.addPointCallback(SoShape::getClassTypeId(), &point, this);
  }
  // Collects the primitives of a graph.
  static Primitives of(SoNode* root) {
    Primitives p;
    SoCallbackAction action;
    p.attach(action);
    action.apply(root);
    return p;
  }

 private:
  static Vertex copy(const SoPrimitiveVertex* v) {
    return Vertex{v->getPoint(), v->getNormal(), v->getTextureCoords(), v->getMaterialIndex(),
                  v->getDetail() ? std::shared_ptr<SoDetail>(v->getDetail()->copy()) : nullptr};
  }
  static void triangle(void* data, SoCallbackAction*, const SoPrimitiveVertex* a, const SoPrimitiveVertex* b,
                       const SoPrimitiveVertex* c) {
    static_cast<Primitives*>(data)->triangles.push_back({copy(a), copy(b), copy(c)});
  }
  static void segment(void* data, SoCallbackAction*, const SoPrimitiveVertex* a, const SoPrimitiveVertex* b) {
    static_cast<Primitives*>(data)->segments.push_back({copy(a), copy(b)});
  }
  static void point(void* data, SoCallbackAction*, const SoPrimitiveVertex* v) {
    static_cast<Primitives*>(data)->points.push_back(copy(v));
  }
};

inline int Vertex::part() const {
  if (!detail) return -1;
  if (detail->isOfType(SoCubeDetail::getClassTypeId())) return static_cast<SoCubeDetail*>(detail.get())->getPart();
  if (detail->isOfType(SoConeDetail::getClassTypeId())) return static_cast<SoConeDetail*>(detail.get())->getPart();
  if (detail->isOfType(SoCylinderDetail::getClassTypeId()))
    return static_cast<SoCylinderDetail*>(detail.get())->getPart();
  return -1;
}

// The (unnormalised) normal of a triangle by the right-hand rule.
inline SbVec3f faceNormal(const std::vector<Vertex>& t) {
  return (t[1].point - t[0].point).cross(t[2].point - t[0].point);
}
inline float area(const std::vector<Vertex>& t) { return faceNormal(t).length() / 2.0f; }

}  // namespace actiontest
