#pragma once
#include <Orvex/SbVec4i32.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbVec4i32 vector.
class SoSFVec4i32 : public SoSField {
  SO_SFIELD_HEADER(SoSFVec4i32, SbVec4i32, const SbVec4i32&);

 public:
  void setValue(int32_t x, int32_t y, int32_t z, int32_t w);
  void setValue(const int32_t v[4]);
};
