#pragma once
#include <Orvex/SbBox2i32.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbBox2i32 box (minimum, then maximum, in files).
class SoSFBox2i32 : public SoSField {
  SO_SFIELD_HEADER(SoSFBox2i32, SbBox2i32, const SbBox2i32&);

 public:
  void setValue(const SbVec2i32& min, const SbVec2i32& max);
  void getValue(SbVec2i32& min, SbVec2i32& max) const;
};
