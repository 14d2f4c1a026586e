#include "VertexShapeData.h"

#include <Orvex/actions/SoAction.h>
#include <Orvex/elements/SoShapeHintsElement.h>
#include <Orvex/misc/SoState.h>

#include <cmath>

namespace orvex {

VertexData::VertexData(SoAction* action) {
  SoState* state = action->getState();
  coords = SoCoordinateElement::getInstance(state);
  if (coords && coords->is3D()) {
    m_points3 = coords->getArrayPtr3();
    m_numPoints3 = m_points3 ? coords->getNum() : 0;
  }
  normals = SoNormalElement::getInstance(state);
  generateNormals = !normals || normals->getNum() == 0;
  normalBinding = SoNormalBindingElement::get(state);
  materialBinding = SoMaterialBindingElement::get(state);
  texture = SoTextureCoordinateElement::getInstance(state);
  texType = texture ? texture->getType() : SoTextureCoordinateElement::DEFAULT;
  texBinding = SoTextureCoordinateBindingElement::get(state);
  if (texType == SoTextureCoordinateElement::EXPLICIT && texture->getNum() == 0)
    texType = SoTextureCoordinateElement::DEFAULT;
  if (state->isElementEnabled(SoShapeHintsElement::getClassStackIndex())) {
    SoShapeHintsElement::VertexOrderings ordering;
    SoShapeHintsElement::ShapeTypes shapeType;
    SoShapeHintsElement::FaceTypes faceType;
    SoShapeHintsElement::get(state, ordering, shapeType, faceType);
    clockwise = ordering == SoShapeHintsElement::CLOCKWISE;
  }
}

void VertexData::setTextureBox(const SbBox3f& box) {
  if (box.isEmpty()) return;
  const SbVec3f size = box.getSize();
  m_sAxis = 0;
  for (int a = 1; a < 3; ++a)
    if (size[a] > size[m_sAxis]) m_sAxis = a;
  m_tAxis = m_sAxis == 0 ? 1 : 0;
  for (int a = 0; a < 3; ++a)
    if (a != m_sAxis && size[a] > size[m_tAxis]) m_tAxis = a;
  // Ties keep the first axis in x, y, z order.
  m_texOrigin = box.getMin();
  m_texScale = size[m_sAxis] > 0.0f ? 1.0f / size[m_sAxis] : 1.0f;
}

SbVec4f VertexData::defaultTexCoords(const SbVec3f& point) const {
  return SbVec4f((point[m_sAxis] - m_texOrigin[m_sAxis]) * m_texScale,
                 (point[m_tAxis] - m_texOrigin[m_tAxis]) * m_texScale, 0.0f, 1.0f);
}

SbVec4f VertexData::texCoords(int index, const SbVec3f& point, const SbVec3f& normal) const {
  switch (texType) {
    case SoTextureCoordinateElement::EXPLICIT:
      return texture->get4(index);
    case SoTextureCoordinateElement::FUNCTION:
      return texture->get(point, normal);
    default:
      return defaultTexCoords(point);
  }
}

bool indicesUsed(const SoMFInt32& field) {
  const int n = field.getNum();
  return n > 0 && !(n == 1 && field[0] < 0);
}

SbVec3f polygonNormal(const SbVec3f* points, int num) {
  SbVec3f n;
  if (num == 3) {
    n = (points[1] - points[0]).cross(points[2] - points[0]);
  } else {
    n.setValue(0.0f, 0.0f, 0.0f);
    for (int i = 0; i < num; ++i) {
      const SbVec3f& a = points[i];
      const SbVec3f& b = points[i + 1 < num ? i + 1 : 0];
      n[0] += (a[1] - b[1]) * (a[2] + b[2]);
      n[1] += (a[2] - b[2]) * (a[0] + b[0]);
      n[2] += (a[0] - b[0]) * (a[1] + b[1]);
    }
  }
  const float length = std::sqrt(n.dot(n));
  if (length > 0.0f) return n / length;
  return SbVec3f(0.0f, 0.0f, 1.0f);
}

}  // namespace orvex
