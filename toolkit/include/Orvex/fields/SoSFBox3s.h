#pragma once
#include <Orvex/SbBox3s.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbBox3s box (minimum, then maximum, in files).
class SoSFBox3s : public SoSField {
  SO_SFIELD_HEADER(SoSFBox3s, SbBox3s, const SbBox3s&);

 public:
  void setValue(const SbVec3s& min, const SbVec3s& max);
  void getValue(SbVec3s& min, SbVec3s& max) const;
};
