#pragma once
#include <Orvex/SbVec4ub.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec4ub vector.
class SoMFVec4ub : public SoMField {
  SO_MFIELD_HEADER(SoMFVec4ub, SbVec4ub, const SbVec4ub&);

 public:
  void setValues(int start, int num, const uint8_t v[][4]);
  void set1Value(int index, uint8_t x, uint8_t y, uint8_t z, uint8_t w);
  void set1Value(int index, const uint8_t v[4]);
  void setValue(uint8_t x, uint8_t y, uint8_t z, uint8_t w);
  void setValue(const uint8_t v[4]);
};
