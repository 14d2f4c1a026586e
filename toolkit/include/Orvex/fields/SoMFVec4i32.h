#pragma once
#include <Orvex/SbVec4i32.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec4i32 vector.
class SoMFVec4i32 : public SoMField {
  SO_MFIELD_HEADER(SoMFVec4i32, SbVec4i32, const SbVec4i32&);

 public:
  void setValues(int start, int num, const int32_t v[][4]);
  void set1Value(int index, int32_t x, int32_t y, int32_t z, int32_t w);
  void set1Value(int index, const int32_t v[4]);
  void setValue(int32_t x, int32_t y, int32_t z, int32_t w);
  void setValue(const int32_t v[4]);
};
