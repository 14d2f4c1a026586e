#pragma once
#include <Orvex/details/SoSubDetail.h>

// The part of a cube a primitive or a pick concerns (0 front, 1 back, 2 left, 3 right, 4 top, 5 bottom).
class SoCubeDetail : public SoDetail {
  SO_DETAIL_HEADER(SoCubeDetail);

 public:
  SoCubeDetail();
  ~SoCubeDetail() override;

  int getPart() const { return m_part; }
  void setPart(int part) { m_part = part; }

 private:
  int m_part = 0;
};
