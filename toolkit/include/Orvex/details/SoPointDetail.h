#pragma once
#include <Orvex/details/SoSubDetail.h>

#include <cstdint>

// A vertex of a shape: the indices of its coordinate, material, normal and
// texture coordinate.
class SoPointDetail : public SoDetail {
  SO_DETAIL_HEADER(SoPointDetail);

 public:
  SoPointDetail();
  ~SoPointDetail() override;

  int32_t getCoordinateIndex() const { return m_coordIndex; }
  int32_t getMaterialIndex() const { return m_materialIndex; }
  int32_t getNormalIndex() const { return m_normalIndex; }
  int32_t getTextureCoordIndex() const { return m_textureCoordIndex; }
  void setCoordinateIndex(int32_t index) { m_coordIndex = index; }
  void setMaterialIndex(int32_t index) { m_materialIndex = index; }
  void setNormalIndex(int32_t index) { m_normalIndex = index; }
  void setTextureCoordIndex(int32_t index) { m_textureCoordIndex = index; }

 private:
  int32_t m_coordIndex = 0;
  int32_t m_materialIndex = 0;
  int32_t m_normalIndex = 0;
  int32_t m_textureCoordIndex = 0;
};
