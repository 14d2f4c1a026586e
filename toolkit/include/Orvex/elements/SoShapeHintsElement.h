#pragma once
#include <Orvex/elements/SoSubElement.h>

// What is known about the shapes that follow: the order of their vertices
// seen from outside, whether they are closed solids, whether their faces
// are convex, and the winding rule for complex polygons. The *_AS_IS
// values leave the current setting as it is.
class SoShapeHintsElement : public SoElement {
  SO_ELEMENT_HEADER(SoShapeHintsElement);

 public:
  enum VertexOrderings { UNKNOWN_ORDERING, CLOCKWISE, COUNTERCLOCKWISE, ORDERING_AS_IS };
  enum ShapeTypes { UNKNOWN_SHAPE_TYPE, SOLID, SHAPE_TYPE_AS_IS };
  enum FaceTypes { UNKNOWN_FACE_TYPE, CONVEX, FACE_TYPE_AS_IS };
  enum WindingTypes { ODD_TYPE, NONZERO_TYPE, POSITIVE_TYPE, NEGATIVE_TYPE, ABS_GEQ_TWO_TYPE, NO_WINDING_TYPE };

  void init(SoState* state) override;
  void push(SoState* state) override;
  bool matches(const SoElement* elt) const override;
  SoElement* copyMatchInfo() const override;
  void print(FILE* fp) const override;

  static void set(SoState* state, VertexOrderings vertexOrdering, ShapeTypes shapeType, FaceTypes faceType);
  static void set(SoState* state, SoNode* node, VertexOrderings vertexOrdering, ShapeTypes shapeType,
                  FaceTypes faceType);
  static void set(SoState* state, WindingTypes windingType);
  static void get(SoState* state, VertexOrderings& vertexOrdering, ShapeTypes& shapeType, FaceTypes& faceType);
  static WindingTypes getWindingType(SoState* state);
  static VertexOrderings getDefaultVertexOrdering() { return UNKNOWN_ORDERING; }
  static ShapeTypes getDefaultShapeType() { return UNKNOWN_SHAPE_TYPE; }
  static FaceTypes getDefaultFaceType() { return CONVEX; }
  static WindingTypes getDefaultWindingType() { return ODD_TYPE; }

 protected:
  ~SoShapeHintsElement() override;
  virtual void setElt(SoState* state, VertexOrderings vertexOrdering, ShapeTypes shapeType, FaceTypes faceType);
  virtual void setElt(SoState* state, WindingTypes windingType);

  VertexOrderings vertexOrdering = UNKNOWN_ORDERING;
  ShapeTypes shapeType = UNKNOWN_SHAPE_TYPE;
  FaceTypes faceType = CONVEX;
  WindingTypes windingType = ODD_TYPE;
};
