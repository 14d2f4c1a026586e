#pragma once
#include <Orvex/SbMatrix.h>
#include <Orvex/SbVec3f.h>
#include <Orvex/SbVec4f.h>
#include <Orvex/SbViewportRegion.h>

#include <vector>

class SoDetail;
class SoNode;
class SoPath;
class SoState;

// A point where a ray pick hit a shape: the point and surface normal in
// world space, the texture coordinates (after the texture matrix), the
// material index, the path from the root to the shape, and a detail per
// node of the path (the shape's detail says which face, line or part was
// hit; most other nodes have none). Object-space values are available for
// any node of the path.
class SoPickedPoint {
 public:
  // Made by the pick action with the path to the shape (copied) and the
  // state at the shape; the point is given in the shape's object space.
  SoPickedPoint(const SoPath* path, SoState* state, const SbVec3f& objectPoint);
  SoPickedPoint(const SoPickedPoint& other);
  SoPickedPoint& operator=(const SoPickedPoint&) = delete;
  ~SoPickedPoint();
  SoPickedPoint* copy() const;

  const SbVec3f& getPoint() const { return m_worldPoint; }
  const SbVec3f& getNormal() const { return m_worldNormal; }
  const SbVec4f& getTextureCoords() const { return m_imageTexCoords; }
  int getMaterialIndex() const { return m_materialIndex; }
  SoPath* getPath() const { return m_path; }
  // False when the pick hit a bounding box (pick style BOUNDING_BOX).
  bool isOnGeometry() const { return m_onGeometry; }

  // The detail of a node of the path (the tail when null), or null.
  const SoDetail* getDetail(const SoNode* node = nullptr) const;
  // Transformations between world space and the object space of a node
  // of the path (the tail when null).
  SbMatrix getObjectToWorld(const SoNode* node = nullptr) const;
  SbMatrix getWorldToObject(const SoNode* node = nullptr) const;
  SbMatrix getObjectToImage(const SoNode* node = nullptr) const;
  SbMatrix getImageToObject(const SoNode* node = nullptr) const;
  SbVec3f getObjectPoint(const SoNode* node = nullptr) const;
  SbVec3f getObjectNormal(const SoNode* node = nullptr) const;
  SbVec4f getObjectTextureCoords(const SoNode* node = nullptr) const;

  // Filled in by the shape that was hit.
  void setObjectNormal(const SbVec3f& normal);
  void setObjectTextureCoords(const SbVec4f& texCoords);
  void setMaterialIndex(int index) { m_materialIndex = index; }
  // Gives the node's detail to the picked point (which deletes it).
  void setDetail(SoDetail* detail, SoNode* node);
  void setOnGeometry(bool onGeometry) { m_onGeometry = onGeometry; }

 private:
  // Index of the node in the path (the tail for null), or -1.
  int nodeIndex(const SoNode* node) const;
  // Object-to-world matrix of the node at that index of the path.
  SbMatrix matrixAt(int index) const;
  SbMatrix textureMatrixAt(int index) const;

  SbVec3f m_worldPoint;
  SbVec3f m_worldNormal;
  SbVec4f m_imageTexCoords;
  SbVec4f m_objectTexCoords;
  SbMatrix m_tailToWorld;   // the model matrix at the shape
  SbMatrix m_tailTexture;   // the texture matrix at the shape
  SbViewportRegion m_viewport;
  int m_materialIndex = 0;
  bool m_onGeometry = true;
  SoPath* m_path = nullptr;
  std::vector<SoDetail*> m_details;  // one per node of the path, owned
};
