#pragma once
#include <Orvex/fields/SoSFEnum.h>
#include <Orvex/fields/SoSFFloat.h>
#include <Orvex/nodes/SoSubNode.h>

// What is known about the shapes that follow: vertex order, solidity,
// convexity of faces, and the crease angle for normals.
class SoShapeHints : public SoNode {
  SO_NODE_HEADER(SoShapeHints);

 public:
  enum VertexOrdering { UNKNOWN_ORDERING = 0, CLOCKWISE = 1, COUNTERCLOCKWISE = 2 };
  enum ShapeType { UNKNOWN_SHAPE_TYPE = 0, SOLID = 1 };
  enum FaceType { UNKNOWN_FACE_TYPE = 0, CONVEX = 1 };

  SoSFEnum vertexOrdering;
  SoSFEnum shapeType;
  SoSFEnum faceType;
  SoSFFloat creaseAngle;

  SoShapeHints();
  void doAction(SoAction* action) override;

 protected:
  ~SoShapeHints() override;
};
