#pragma once
#include <Orvex/SbBox2s.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbBox2s box (minimum, then maximum, in files).
class SoSFBox2s : public SoSField {
  SO_SFIELD_HEADER(SoSFBox2s, SbBox2s, const SbBox2s&);

 public:
  void setValue(const SbVec2s& min, const SbVec2s& max);
  void getValue(SbVec2s& min, SbVec2s& max) const;
};
