#pragma once
#include <Orvex/SbVec4b.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec4b vector.
class SoMFVec4b : public SoMField {
  SO_MFIELD_HEADER(SoMFVec4b, SbVec4b, const SbVec4b&);

 public:
  void setValues(int start, int num, const int8_t v[][4]);
  void set1Value(int index, int8_t x, int8_t y, int8_t z, int8_t w);
  void set1Value(int index, const int8_t v[4]);
  void setValue(int8_t x, int8_t y, int8_t z, int8_t w);
  void setValue(const int8_t v[4]);
};
