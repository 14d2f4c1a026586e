#pragma once
#include <Orvex/SbBox3f.h>
#include <Orvex/nodes/SoSubNode.h>

class SoDetail;
class SoGLRenderAction;
class SoPickedPoint;
class SoPrimitiveVertex;

namespace orvex {
class PrimitiveScope;
}

// Base of the shapes. A shape describes itself by generating primitives
// (triangles, line segments, points) on demand; the callback action hands
// them to user functions, the pick action tests them against its ray and
// the primitive count action counts them. A shape also knows its bounding
// box in object space.
//
// generatePrimitives() hands its primitives over with the invoke*Callbacks
// functions, or describes strips, fans, polygons and the like between
// beginShape() and endShape(), which cut them into triangles, segments or
// points.
class SoShape : public SoNode {
  SO_NODE_ABSTRACT_HEADER(SoShape);

 public:
  // How the vertices given between beginShape() and endShape() form
  // primitives. POLYGON: one polygon (cut into triangles, as a fan when the
  // shape hints say faces are convex, else by ear clipping); POLYLINE:
  // connected segments.
  enum TriangleShape { TRIANGLE_STRIP, TRIANGLE_FAN, TRIANGLES, POLYGON, QUADS, QUAD_STRIP, POINTS, POLYLINE, LINES };

  bool affectsState() const override;
  void callback(SoCallbackAction* action) override;
  void getBoundingBox(SoGetBoundingBoxAction* action) override;
  void rayPick(SoRayPickAction* action) override;
  void getPrimitiveCount(SoGetPrimitiveCountAction* action) override;

  // The bounding box and center of the shape in object space, for the
  // state of the action.
  virtual void computeBBox(SoAction* action, SbBox3f& box, SbVec3f& center) = 0;

 protected:
  SoShape();
  ~SoShape() override;

  virtual void generatePrimitives(SoAction* action) = 0;
  // Whether the shape takes part in a pick: not when its pick style is
  // UNPICKABLE or its draw style INVISIBLE.
  virtual bool shouldRayPick(SoRayPickAction* action);
  // Whether the shape should be drawn / counted at all (draw style).
  bool isVisible(SoAction* action) const;

  // Hand one primitive over to what the current action does with them.
  void invokeTriangleCallbacks(SoAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2,
                               const SoPrimitiveVertex* v3);
  void invokeLineSegmentCallbacks(SoAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2);
  void invokePointCallbacks(SoAction* action, const SoPrimitiveVertex* v);

  // Vertices between beginShape() and endShape() are copied (a point
  // detail of a vertex too); `detail` describes the whole (a face, a line)
  // and stays the caller's.
  void beginShape(SoAction* action, TriangleShape shapeType, SoDetail* detail = nullptr);
  void shapeVertex(const SoPrimitiveVertex* v);
  void endShape();
  // The detail given to the current beginShape(), or null.
  SoDetail* getShapeDetail() const;

  // Picking of one primitive: intersects it with the action's ray and, on a
  // hit, records the point with its normal, texture coordinates, material
  // and detail.
  virtual void rayPickTriangle(SoRayPickAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2,
                               const SoPrimitiveVertex* v3);
  virtual void rayPickLineSegment(SoRayPickAction* action, const SoPrimitiveVertex* v1, const SoPrimitiveVertex* v2);
  virtual void rayPickPoint(SoRayPickAction* action, const SoPrimitiveVertex* v);
  // The details of a picked primitive (new objects the picked point takes
  // over). By default: a face detail with the triangle's points (or a copy
  // of the shape detail), a line detail, a copy of the point's detail.
  virtual SoDetail* createTriangleDetail(SoRayPickAction* action, const SoPrimitiveVertex* v1,
                                         const SoPrimitiveVertex* v2, const SoPrimitiveVertex* v3,
                                         SoPickedPoint* pp);
  virtual SoDetail* createLineSegmentDetail(SoRayPickAction* action, const SoPrimitiveVertex* v1,
                                            const SoPrimitiveVertex* v2, SoPickedPoint* pp);
  virtual SoDetail* createPointDetail(SoRayPickAction* action, const SoPrimitiveVertex* v, SoPickedPoint* pp);
  // Picks the shape's bounding box instead of its geometry.
  void rayPickBoundingBox(SoRayPickAction* action);
  // Runs generatePrimitives() with the ray of the action (object space set).
  void rayPickPrimitives(SoRayPickAction* action);

  // The complexity value that tessellating shapes use (0 to 1).
  float getComplexityValue(SoAction* action);

 private:
  // The render action draws a shape from the primitives it generates.
  friend class SoGLRenderAction;

  // Hand one primitive to what the scope (or, without one, the action) does.
  void dispatchTriangle(orvex::PrimitiveScope* scope, SoAction* action, const SoPrimitiveVertex* v1,
                        const SoPrimitiveVertex* v2, const SoPrimitiveVertex* v3);
  void dispatchLineSegment(orvex::PrimitiveScope* scope, SoAction* action, const SoPrimitiveVertex* v1,
                           const SoPrimitiveVertex* v2);
  void dispatchPoint(orvex::PrimitiveScope* scope, SoAction* action, const SoPrimitiveVertex* v);
};
