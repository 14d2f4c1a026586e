#pragma once
#include <Orvex/SbVec3i32.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbVec3i32 vector.
class SoSFVec3i32 : public SoSField {
  SO_SFIELD_HEADER(SoSFVec3i32, SbVec3i32, const SbVec3i32&);

 public:
  void setValue(int32_t x, int32_t y, int32_t z);
  void setValue(const int32_t v[3]);
};
