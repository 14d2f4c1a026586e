#pragma once
#include <Orvex/SbBox3f.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbBox3f box (minimum, then maximum, in files).
class SoSFBox3f : public SoSField {
  SO_SFIELD_HEADER(SoSFBox3f, SbBox3f, const SbBox3f&);

 public:
  void setValue(const SbVec3f& min, const SbVec3f& max);
  void getValue(SbVec3f& min, SbVec3f& max) const;
};
