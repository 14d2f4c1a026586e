#pragma once
#include <Orvex/SbBox2f.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbBox2f box (minimum, then maximum, in files).
class SoSFBox2f : public SoSField {
  SO_SFIELD_HEADER(SoSFBox2f, SbBox2f, const SbBox2f&);

 public:
  void setValue(const SbVec2f& min, const SbVec2f& max);
  void getValue(SbVec2f& min, SbVec2f& max) const;
};
