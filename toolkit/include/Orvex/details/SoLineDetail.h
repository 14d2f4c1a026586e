#pragma once
#include <Orvex/details/SoPointDetail.h>

// A segment of a line shape: its two end points, its index among all the
// segments of the shape and the index of the polyline (part) it belongs to.
class SoLineDetail : public SoDetail {
  SO_DETAIL_HEADER(SoLineDetail);

 public:
  SoLineDetail();
  ~SoLineDetail() override;

  const SoPointDetail* getPoint0() const { return &m_point0; }
  const SoPointDetail* getPoint1() const { return &m_point1; }
  int32_t getLineIndex() const { return m_lineIndex; }
  int32_t getPartIndex() const { return m_partIndex; }
  void setPoint0(const SoPointDetail* point) { m_point0 = *point; }
  void setPoint1(const SoPointDetail* point) { m_point1 = *point; }
  void setLineIndex(int32_t index) { m_lineIndex = index; }
  void setPartIndex(int32_t index) { m_partIndex = index; }
  void incLineIndex() { ++m_lineIndex; }
  void incPartIndex() { ++m_partIndex; }

 private:
  SoPointDetail m_point0;
  SoPointDetail m_point1;
  int32_t m_lineIndex = 0;
  int32_t m_partIndex = 0;
};
