#pragma once
#include <Orvex/details/SoSubDetail.h>

// The part of a cone a primitive or a pick concerns (SoCone::PartType values SIDES and BOTTOM).
class SoConeDetail : public SoDetail {
  SO_DETAIL_HEADER(SoConeDetail);

 public:
  SoConeDetail();
  ~SoConeDetail() override;

  int getPart() const { return m_part; }
  void setPart(int part) { m_part = part; }

 private:
  int m_part = 0;
};
