#pragma once
// The per-thread context in which a shape's generatePrimitives() runs: what
// the primitives are for (user callbacks, a pick, counting, collecting),
// and the state of the strip, fan or polygon being described.

#include <Orvex/SoPrimitiveVertex.h>
#include <Orvex/details/SoPointDetail.h>
#include <Orvex/nodes/SoShape.h>

#include <cstdint>
#include <vector>

class SoAction;

namespace orvex {

// Receives the primitives of a shape when they are collected (to build a
// search structure, for instance).
class PrimitiveCollector {
 public:
  virtual ~PrimitiveCollector() = default;
  virtual void triangle(const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2, const SoPrimitiveVertex* v3) = 0;
  virtual void lineSegment(const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2) {}
  virtual void point(const SoPrimitiveVertex* v) {}
};

// A copied vertex: its point detail lives with it.
struct VertexSlot {
  SoPrimitiveVertex vertex;
  SoPointDetail detail;
  bool ownsDetail = false;
  void store(const SoPrimitiveVertex* v);
  // The vertex with its detail pointer set to the copy (slots move).
  const SoPrimitiveVertex* get();
};

// Installed for the duration of one generatePrimitives() call; scopes nest
// (a shape generating inside another's callback).
class PrimitiveScope {
 public:
  enum Mode { CALLBACK, RAYPICK, COUNT, COLLECT };
  PrimitiveScope(Mode mode, SoAction* action, SoShape* shape, PrimitiveCollector* collector = nullptr);
  ~PrimitiveScope();
  PrimitiveScope(const PrimitiveScope&) = delete;
  PrimitiveScope& operator=(const PrimitiveScope&) = delete;

  static PrimitiveScope* current();

  Mode mode;
  SoAction* action;
  SoShape* shape;
  PrimitiveCollector* collector;
  int64_t triangles = 0;
  int64_t lines = 0;
  int64_t points = 0;

  // beginShape() ... endShape()
  SoShape::TriangleShape shapeType = SoShape::TRIANGLES;
  SoDetail* shapeDetail = nullptr;
  bool inShape = false;
  int count = 0;          // vertices given since beginShape()
  VertexSlot ring[4];     // the last vertices of strips, fans, triangles, quads
  VertexSlot first;       // the center of a fan, the previous point of a polyline
  std::vector<VertexSlot> polygon;

 private:
  PrimitiveScope* m_previous;
};

// Cuts a simple polygon (given in order) into triangles; answers the
// vertex indices, three per triangle. Convex polygons become a fan; other
// polygons are clipped ear by ear in the plane they lie in.
void triangulatePolygon(const std::vector<SbVec3f>& points, bool convex, std::vector<int>& triangles);

}  // namespace orvex
