#pragma once
// What a vertex shape reads from the state to make its vertices: the
// coordinates, the normals with their binding (or that normals must be
// generated), the material binding, and where texture coordinates come
// from (explicit, a function, or the default mapping over the shape's box).

#include <Orvex/SbBox3f.h>
#include <Orvex/elements/SoCoordinateElement.h>
#include <Orvex/elements/SoMaterialBindingElement.h>
#include <Orvex/elements/SoNormalBindingElement.h>
#include <Orvex/elements/SoNormalElement.h>
#include <Orvex/elements/SoTextureCoordinateBindingElement.h>
#include <Orvex/elements/SoTextureCoordinateElement.h>
#include <Orvex/fields/SoMFInt32.h>

#include <vector>

class SoAction;

namespace orvex {

struct VertexData {
  explicit VertexData(SoAction* action);

  // The default texture mapping: s along the longest side of the box, t
  // along the second longest, both in units of the longest side.
  void setTextureBox(const SbBox3f& box);
  SbVec4f defaultTexCoords(const SbVec3f& point) const;
  // Texture coordinates of a vertex whose explicit coordinate index is `index`.
  SbVec4f texCoords(int index, const SbVec3f& point, const SbVec3f& normal) const;
  bool needsTextureBox() const { return texType == SoTextureCoordinateElement::DEFAULT; }
  // The coordinates (the default single point when the action has none).
  const SbVec3f& point(int index) const {
    if (m_points3 && index >= 0 && index < m_numPoints3) return m_points3[index];
    return coords ? coords->get3(index) : SoCoordinateElement::getDefault3();
  }
  int numCoords() const { return coords ? coords->getNum() : 1; }

  const SoCoordinateElement* coords = nullptr;
  const SoNormalElement* normals = nullptr;
  bool generateNormals = true;
  SoNormalBindingElement::Binding normalBinding = SoNormalBindingElement::PER_VERTEX_INDEXED;
  SoMaterialBindingElement::Binding materialBinding = SoMaterialBindingElement::OVERALL;
  const SoTextureCoordinateElement* texture = nullptr;
  SoTextureCoordinateElement::CoordType texType = SoTextureCoordinateElement::DEFAULT;
  SoTextureCoordinateBindingElement::Binding texBinding = SoTextureCoordinateBindingElement::PER_VERTEX_INDEXED;
  // Generated normals point the other way for clockwise faces.
  bool clockwise = false;

 private:
  const SbVec3f* m_points3 = nullptr;  // the 3D coordinates, read directly
  int m_numPoints3 = 0;
  SbVec3f m_texOrigin;
  int m_sAxis = 0;
  int m_tAxis = 1;
  float m_texScale = 1.0f;
};

// Whether an index field of an indexed shape is used (not left at its
// default single -1).
bool indicesUsed(const SoMFInt32& field);

// The unit normal of a polygon (Newell's method), (0, 0, 1) when degenerate.
SbVec3f polygonNormal(const SbVec3f* points, int num);

}  // namespace orvex
