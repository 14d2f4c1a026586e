#pragma once
#include <Orvex/elements/SoShapeHintsElement.h>

// The shape hints in an OpenGL render traversal, sent to OpenGL when set
// and when a separator's end restores earlier ones: the front faces'
// winding, back faces culled for SOLID shapes of known vertex ordering,
// both sides lit for the other shapes of known ordering.
class SoGLShapeHintsElement : public SoShapeHintsElement {
  SO_ELEMENT_HEADER(SoGLShapeHintsElement);

 public:
  void init(SoState* state) override;
  void pop(SoState* state, const SoElement* prevTopElement) override;

 protected:
  ~SoGLShapeHintsElement() override;
  void setElt(SoState* state, VertexOrderings vertexOrdering, ShapeTypes shapeType, FaceTypes faceType) override;
  void setElt(SoState* state, WindingTypes windingType) override;

 private:
  void send() const;
};
