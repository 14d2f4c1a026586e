#pragma once
#include <Orvex/SbVec2i32.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec2i32 vector.
class SoMFVec2i32 : public SoMField {
  SO_MFIELD_HEADER(SoMFVec2i32, SbVec2i32, const SbVec2i32&);

 public:
  void setValues(int start, int num, const int32_t v[][2]);
  void set1Value(int index, int32_t x, int32_t y);
  void set1Value(int index, const int32_t v[2]);
  void setValue(int32_t x, int32_t y);
  void setValue(const int32_t v[2]);
};
