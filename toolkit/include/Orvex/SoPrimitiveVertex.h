#pragma once
#include <Orvex/SbVec3f.h>
#include <Orvex/SbVec4f.h>

class SoDetail;

// A vertex of a primitive (triangle, line segment or point) that a shape
// generates: its point and normal in object space, its texture coordinates,
// the index of its material and a detail saying where it comes from. The
// detail is not owned and is valid only during the call that hands the
// vertex over.
class SoPrimitiveVertex {
 public:
  SoPrimitiveVertex();
  SoPrimitiveVertex(const SoPrimitiveVertex& pv) = default;
  SoPrimitiveVertex& operator=(const SoPrimitiveVertex& pv) = default;
  ~SoPrimitiveVertex();

  const SbVec3f& getPoint() const { return m_point; }
  const SbVec3f& getNormal() const { return m_normal; }
  const SbVec4f& getTextureCoords() const { return m_textureCoords; }
  int getMaterialIndex() const { return m_materialIndex; }
  const SoDetail* getDetail() const { return m_detail; }

  void setPoint(const SbVec3f& point) { m_point = point; }
  void setPoint(float x, float y, float z) { m_point.setValue(x, y, z); }
  void setNormal(const SbVec3f& normal) { m_normal = normal; }
  void setNormal(float x, float y, float z) { m_normal.setValue(x, y, z); }
  void setTextureCoords(const SbVec4f& coords) { m_textureCoords = coords; }
  void setMaterialIndex(int index) { m_materialIndex = index; }
  void setDetail(const SoDetail* detail) { m_detail = detail; }

 private:
  SbVec3f m_point;
  SbVec3f m_normal;
  SbVec4f m_textureCoords;
  int m_materialIndex = 0;
  const SoDetail* m_detail = nullptr;
};
