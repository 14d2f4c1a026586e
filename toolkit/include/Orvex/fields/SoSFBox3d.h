#pragma once
#include <Orvex/SbBox3d.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbBox3d box (minimum, then maximum, in files).
class SoSFBox3d : public SoSField {
  SO_SFIELD_HEADER(SoSFBox3d, SbBox3d, const SbBox3d&);

 public:
  void setValue(const SbVec3d& min, const SbVec3d& max);
  void getValue(SbVec3d& min, SbVec3d& max) const;
};
