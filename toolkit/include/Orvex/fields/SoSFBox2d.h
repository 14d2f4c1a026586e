#pragma once
#include <Orvex/SbBox2d.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbBox2d box (minimum, then maximum, in files).
class SoSFBox2d : public SoSField {
  SO_SFIELD_HEADER(SoSFBox2d, SbBox2d, const SbBox2d&);

 public:
  void setValue(const SbVec2d& min, const SbVec2d& max);
  void getValue(SbVec2d& min, SbVec2d& max) const;
};
