#pragma once
#include <Orvex/details/SoSubDetail.h>

#include <cstdint>

// A character of a text shape: the string it belongs to, its index in the
// string, and the part of 3D text (front, sides, back) concerned.
class SoTextDetail : public SoDetail {
  SO_DETAIL_HEADER(SoTextDetail);

 public:
  SoTextDetail();
  ~SoTextDetail() override;

  int32_t getStringIndex() const { return m_stringIndex; }
  int32_t getCharacterIndex() const { return m_characterIndex; }
  int getPart() const { return m_part; }
  void setStringIndex(int32_t index) { m_stringIndex = index; }
  void setCharacterIndex(int32_t index) { m_characterIndex = index; }
  void setPart(int part) { m_part = part; }

 private:
  int32_t m_stringIndex = 0;
  int32_t m_characterIndex = 0;
  int m_part = 0;
};
