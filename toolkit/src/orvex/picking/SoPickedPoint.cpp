#include <Orvex/SoPickedPoint.h>

#include <Orvex/SoPath.h>
#include <Orvex/SoPrimitiveVertex.h>
#include <Orvex/actions/SoGetMatrixAction.h>
#include <Orvex/details/SoDetail.h>
#include <Orvex/elements/SoModelMatrixElement.h>
#include <Orvex/elements/SoTextureMatrixElement.h>
#include <Orvex/elements/SoViewportRegionElement.h>
#include <Orvex/misc/SoState.h>

namespace {
// Reads an element's matrix without making it a cache dependency.
template <class Element, class Getter>
SbMatrix matrixOf(SoState* state, Getter get) {
  const auto* elt = static_cast<const Element*>(state->getConstElement(Element::getClassStackIndex()));
  return elt ? get(elt) : SbMatrix::identity();
}
}  // namespace

SoPickedPoint::SoPickedPoint(const SoPath* path, SoState* state, const SbVec3f& objectPoint) {
  m_path = path ? path->copy() : new SoPath;
  m_path->ref();
  m_details.assign(static_cast<size_t>(m_path->getLength()), nullptr);
  if (state) {
    m_tailToWorld = matrixOf<SoModelMatrixElement>(state, [](const SoModelMatrixElement* e) { return e->getModelMatrix(); });
    if (state->isElementEnabled(SoTextureMatrixElement::getClassStackIndex()))
      m_tailTexture = SoTextureMatrixElement::get(state);
    if (state->isElementEnabled(SoViewportRegionElement::getClassStackIndex()))
      m_viewport = SoViewportRegionElement::get(state);
  }
  m_tailToWorld.multVecMatrix(objectPoint, m_worldPoint);
  m_worldNormal.setValue(0.0f, 0.0f, 1.0f);
  m_objectTexCoords.setValue(0.0f, 0.0f, 0.0f, 1.0f);
  m_imageTexCoords = m_objectTexCoords;
}

SoPickedPoint::SoPickedPoint(const SoPickedPoint& other)
    : m_worldPoint(other.m_worldPoint),
      m_worldNormal(other.m_worldNormal),
      m_imageTexCoords(other.m_imageTexCoords),
      m_objectTexCoords(other.m_objectTexCoords),
      m_tailToWorld(other.m_tailToWorld),
      m_tailTexture(other.m_tailTexture),
      m_viewport(other.m_viewport),
      m_materialIndex(other.m_materialIndex),
      m_onGeometry(other.m_onGeometry),
      m_path(other.m_path) {
  m_path->ref();
  m_details.reserve(other.m_details.size());
  for (SoDetail* d : other.m_details) m_details.push_back(d ? d->copy() : nullptr);
}

SoPickedPoint::~SoPickedPoint() {
  for (SoDetail* d : m_details) delete d;
  m_path->unref();
}

SoPickedPoint* SoPickedPoint::copy() const { return new SoPickedPoint(*this); }

int SoPickedPoint::nodeIndex(const SoNode* node) const {
  const int length = m_path->getLength();
  if (!node) return length - 1;
  // The last occurrence: a node may appear twice in a path.
  for (int i = length - 1; i >= 0; --i)
    if (m_path->getNode(i) == node) return i;
  return -1;
}

const SoDetail* SoPickedPoint::getDetail(const SoNode* node) const {
  const int i = nodeIndex(node);
  return i >= 0 ? m_details[static_cast<size_t>(i)] : nullptr;
}

void SoPickedPoint::setDetail(SoDetail* detail, SoNode* node) {
  const int i = nodeIndex(node);
  if (i < 0) {
    delete detail;
    return;
  }
  delete m_details[static_cast<size_t>(i)];
  m_details[static_cast<size_t>(i)] = detail;
}

SbMatrix SoPickedPoint::matrixAt(int index) const {
  if (index < 0) return SbMatrix::identity();
  if (index == m_path->getLength() - 1) return m_tailToWorld;
  // A node above the tail: the transformations along the path down to it.
  SoPath* part = m_path->copy(0, index + 1);
  part->ref();
  SoGetMatrixAction action(m_viewport);
  action.apply(part);
  const SbMatrix m = action.getMatrix();
  part->unref();
  return m;
}

SbMatrix SoPickedPoint::textureMatrixAt(int index) const {
  if (index == m_path->getLength() - 1) return m_tailTexture;
  if (index < 0) return SbMatrix::identity();
  SoPath* part = m_path->copy(0, index + 1);
  part->ref();
  SoGetMatrixAction action(m_viewport);
  action.apply(part);
  const SbMatrix m = action.getTextureMatrix();
  part->unref();
  return m;
}

SbMatrix SoPickedPoint::getObjectToWorld(const SoNode* node) const { return matrixAt(nodeIndex(node)); }
SbMatrix SoPickedPoint::getWorldToObject(const SoNode* node) const { return matrixAt(nodeIndex(node)).inverse(); }
SbMatrix SoPickedPoint::getObjectToImage(const SoNode* node) const { return textureMatrixAt(nodeIndex(node)); }
SbMatrix SoPickedPoint::getImageToObject(const SoNode* node) const {
  return textureMatrixAt(nodeIndex(node)).inverse();
}

SbVec3f SoPickedPoint::getObjectPoint(const SoNode* node) const {
  SbVec3f p;
  getWorldToObject(node).multVecMatrix(m_worldPoint, p);
  return p;
}

namespace {
// Normals transform with the inverse transpose of the point transformation.
SbVec3f transformNormal(const SbMatrix& pointMatrix, const SbVec3f& normal) {
  SbVec3f n;
  pointMatrix.inverse().transpose().multDirMatrix(normal, n);
  if (n.normalize() == 0.0f) n = normal;
  return n;
}
}  // namespace

SbVec3f SoPickedPoint::getObjectNormal(const SoNode* node) const {
  return transformNormal(getWorldToObject(node), m_worldNormal);
}

SbVec4f SoPickedPoint::getObjectTextureCoords(const SoNode* node) const {
  if (!node || nodeIndex(node) == m_path->getLength() - 1) return m_objectTexCoords;
  SbVec4f t;
  getImageToObject(node).multVecMatrix(m_imageTexCoords, t);
  return t;
}

void SoPickedPoint::setObjectNormal(const SbVec3f& normal) { m_worldNormal = transformNormal(m_tailToWorld, normal); }

void SoPickedPoint::setObjectTextureCoords(const SbVec4f& texCoords) {
  m_objectTexCoords = texCoords;
  m_tailTexture.multVecMatrix(texCoords, m_imageTexCoords);
}
