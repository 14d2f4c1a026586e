#pragma once
#include <Orvex/SbVec3i32.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec3i32 vector.
class SoMFVec3i32 : public SoMField {
  SO_MFIELD_HEADER(SoMFVec3i32, SbVec3i32, const SbVec3i32&);

 public:
  void setValues(int start, int num, const int32_t v[][3]);
  void set1Value(int index, int32_t x, int32_t y, int32_t z);
  void set1Value(int index, const int32_t v[3]);
  void setValue(int32_t x, int32_t y, int32_t z);
  void setValue(const int32_t v[3]);
};
