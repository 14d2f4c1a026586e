#pragma once
#include <Orvex/details/SoPointDetail.h>

#include <vector>

// A face of a shape (for a pick, the triangle hit): its vertices, its index
// among the faces of the shape and the index of the part (strip) it belongs
// to.
class SoFaceDetail : public SoDetail {
  SO_DETAIL_HEADER(SoFaceDetail);

 public:
  SoFaceDetail();
  ~SoFaceDetail() override;

  int32_t getNumPoints() const { return static_cast<int32_t>(m_points.size()); }
  const SoPointDetail* getPoint(int index) const { return &m_points[static_cast<size_t>(index)]; }
  // The vertices as an array of getNumPoints() details.
  const SoPointDetail* getPoints() const { return m_points.data(); }
  int32_t getFaceIndex() const { return m_faceIndex; }
  int32_t getPartIndex() const { return m_partIndex; }
  void setNumPoints(int32_t num) { m_points.resize(static_cast<size_t>(num < 0 ? 0 : num)); }
  // Copies a vertex in (index < getNumPoints()).
  void setPoint(int32_t index, const SoPointDetail* point) { m_points[static_cast<size_t>(index)] = *point; }
  void setFaceIndex(int32_t index) { m_faceIndex = index; }
  void setPartIndex(int32_t index) { m_partIndex = index; }
  void incFaceIndex() { ++m_faceIndex; }
  void incPartIndex() { ++m_partIndex; }

 private:
  std::vector<SoPointDetail> m_points;
  int32_t m_faceIndex = 0;
  int32_t m_partIndex = 0;
};
