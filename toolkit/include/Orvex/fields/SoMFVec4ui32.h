#pragma once
#include <Orvex/SbVec4ui32.h>
#include <Orvex/fields/SoSubField.h>

// A field holding any number of values, each a SbVec4ui32 vector.
class SoMFVec4ui32 : public SoMField {
  SO_MFIELD_HEADER(SoMFVec4ui32, SbVec4ui32, const SbVec4ui32&);

 public:
  void setValues(int start, int num, const uint32_t v[][4]);
  void set1Value(int index, uint32_t x, uint32_t y, uint32_t z, uint32_t w);
  void set1Value(int index, const uint32_t v[4]);
  void setValue(uint32_t x, uint32_t y, uint32_t z, uint32_t w);
  void setValue(const uint32_t v[4]);
};
