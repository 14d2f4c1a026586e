#pragma once
#include <Orvex/details/SoSubDetail.h>

// The part of a cylinder a primitive or a pick concerns (SoCylinder::PartType values SIDES, TOP and BOTTOM).
class SoCylinderDetail : public SoDetail {
  SO_DETAIL_HEADER(SoCylinderDetail);

 public:
  SoCylinderDetail();
  ~SoCylinderDetail() override;

  int getPart() const { return m_part; }
  void setPart(int part) { m_part = part; }

 private:
  int m_part = 0;
};
