#pragma once
#include <Orvex/SbBox3i32.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbBox3i32 box (minimum, then maximum, in files).
class SoSFBox3i32 : public SoSField {
  SO_SFIELD_HEADER(SoSFBox3i32, SbBox3i32, const SbBox3i32&);

 public:
  void setValue(const SbVec3i32& min, const SbVec3i32& max);
  void getValue(SbVec3i32& min, SbVec3i32& max) const;
};
