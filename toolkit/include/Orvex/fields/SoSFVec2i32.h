#pragma once
#include <Orvex/SbVec2i32.h>
#include <Orvex/fields/SoSubField.h>

// A field holding a SbVec2i32 vector.
class SoSFVec2i32 : public SoSField {
  SO_SFIELD_HEADER(SoSFVec2i32, SbVec2i32, const SbVec2i32&);

 public:
  void setValue(int32_t x, int32_t y);
  void setValue(const int32_t v[2]);
};
